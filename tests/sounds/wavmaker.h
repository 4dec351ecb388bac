#pragma once

#include <QByteArray>

/// Small WAV files for the sound tests, written byte by byte.
namespace wav {

/// A PCM WAV of `frames` frames of silence-like ramp data; `extraChunk`
/// puts a "LIST" chunk (holding the text "data") between "fmt " and "data".
QByteArray make(quint16 channels, quint32 rate, quint16 bits, quint32 frames, bool extraChunk = false);

} // namespace wav
