"""Ember's sounds, synthesised: a swing, two hits, a landing and voice-like
cues. Mono 16-bit PCM at 22050 Hz, which the engine plays as it is.

The noise comes from a fixed linear congruential generator, so each run
writes the same samples."""

import io
import math
import struct
import wave

RATE = 22050


class _Noise:
    def __init__(self, seed):
        self.state = seed

    def next(self):
        self.state = (self.state * 1103515245 + 12345) & 0x7FFFFFFF
        return self.state / 0x3FFFFFFF - 1.0


class _Resonator:
    """A two-pole band-pass filter around `centre` Hz whose gain at the
    centre stays near 1 wherever the centre moves."""

    def __init__(self, bandwidth):
        self.r = math.exp(-math.pi * bandwidth / RATE)
        self.x1 = self.x2 = self.y1 = self.y2 = 0.0

    def step(self, x, centre):
        r = self.r
        a1 = 2 * r * math.cos(2 * math.pi * centre / RATE)
        y = (1 - r * r) / 2 * (x - self.x2) + a1 * self.y1 - r * r * self.y2
        self.x2, self.x1 = self.x1, x
        self.y2, self.y1 = self.y1, y
        return y


def _envelope(t, attack, decay):
    return min(1.0, t / attack) * math.exp(-t / decay) if attack > 0 else math.exp(-t / decay)


def swing(seconds=0.28):
    """Air cut by a fast limb: noise whose pitch sweeps up and back down."""
    noise, band = _Noise(7), _Resonator(900.0)
    out = []
    for n in range(int(seconds * RATE)):
        t = n / RATE
        u = t / seconds
        centre = 600.0 + 2600.0 * math.sin(math.pi * u)
        out.append(band.step(noise.next(), centre) * math.sin(math.pi * u) ** 2)
    return out


def hit(seconds, pitch, weight, seed):
    """A blow landing: a falling thump under a burst of noise, driven hard."""
    noise, band = _Noise(seed), _Resonator(2500.0)
    out = []
    phase = 0.0
    for n in range(int(seconds * RATE)):
        t = n / RATE
        frequency = pitch * (0.35 + 0.65 * math.exp(-t / 0.03))
        phase += 2 * math.pi * frequency / RATE
        body = math.sin(phase) * _envelope(t, 0.002, 0.05 + 0.06 * weight)
        crack = band.step(noise.next(), 1800.0 - 800.0 * weight) * 1.6 * _envelope(t, 0.0005, 0.018 + 0.02 * weight)
        out.append(math.tanh((1.2 + 0.6 * weight) * (body + crack)))
    return out


def landing(seconds=0.22):
    """Feet meeting the floor: a low thud and a short scuff."""
    noise, band = _Noise(52), _Resonator(700.0)
    out = []
    phase = 0.0
    for n in range(int(seconds * RATE)):
        t = n / RATE
        phase += 2 * math.pi * (45.0 + 50.0 * math.exp(-t / 0.02)) / RATE
        thud = math.sin(phase) * _envelope(t, 0.003, 0.05)
        scuff = band.step(noise.next(), 500.0) * 0.8 * _envelope(t, 0.01, 0.04)
        out.append(math.tanh(1.2 * (thud + scuff)))
    return out


# Formant centres (Hz) of the vowels the voice passes through.
_VOWELS = {"a": (800.0, 1200.0, 2500.0), "o": (500.0, 900.0, 2400.0), "e": (500.0, 1900.0, 2600.0)}


def voice(seconds, pitch_from, pitch_to, vowels, breath, seed):
    """A shout: a buzzing glottal source through three vowel formants, with a
    breathy "h" at its start. `vowels` is the pair the mouth moves between."""
    noise = _Noise(seed)
    formants = [_Resonator(b) for b in (90.0, 110.0, 160.0)]
    start, end = _VOWELS[vowels[0]], _VOWELS[vowels[1]]
    out = []
    phase = 0.0
    for n in range(int(seconds * RATE)):
        t = n / RATE
        u = t / seconds
        pitch = pitch_from + (pitch_to - pitch_from) * u + 4.0 * math.sin(2 * math.pi * 5.5 * t)
        phase = (phase + pitch / RATE) % 1.0
        buzz = 1.0 - 2.0 * phase  # a falling saw stands in for the vocal folds
        voiced = min(1.0, max(0.0, (t - breath) / 0.03))
        source = voiced * buzz + (1.0 - 0.8 * voiced) * 0.6 * noise.next()
        value = 0.0
        for i, (formant, gain) in enumerate(zip(formants, (1.0, 0.6, 0.25))):
            value += gain * formant.step(source, start[i] + (end[i] - start[i]) * u)
        out.append(2.2 * value * _envelope(t, 0.02, seconds * 0.45) * (1.0 - u) ** 0.5)
    return out


def wav_bytes(samples):
    """Mono 16-bit PCM WAV of samples in -1..1, peaks scaled to 90 %."""
    peak = max(1e-9, max(abs(s) for s in samples))
    frames = b"".join(struct.pack("<h", int(round(32767 * 0.9 * s / peak))) for s in samples)
    buffer = io.BytesIO()
    with wave.open(buffer, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(frames)
    return buffer.getvalue()


# group, number, file stem, samples: what the states play.
SOUNDS = [
    (0, 0, "swing", lambda: swing()),
    (1, 0, "hit-light", lambda: hit(0.16, 190.0, 0.0, 11)),
    (1, 1, "hit-heavy", lambda: hit(0.32, 120.0, 1.0, 13)),
    (11, 0, "ko", lambda: voice(0.9, 260.0, 130.0, "ao", 0.05, 17)),
    (52, 0, "landing", lambda: landing()),
    (200, 0, "shout-punch", lambda: voice(0.24, 210.0, 170.0, "ea", 0.04, 19)),
    (200, 1, "shout-kick", lambda: voice(0.32, 240.0, 180.0, "ao", 0.06, 23)),
]
