#pragma once

#include <QByteArray>
#include <QList>

/// The lowest and highest level of the samples under one column of a waveform, from -1 to 1.
struct QWAVPeak
{
    float low = 0;
    float high = 0;
};

/**
 * The waveform of a PCM WAV file squeezed into `columns` columns: each
 * column holds the extremes of its frames over all channels. 8-bit samples
 * are unsigned, wider ones signed, as WAV stores them. Empty when the bytes
 * are no PCM WAV or hold no frame; a truncated file shows the frames present.
 */
QList<QWAVPeak> wavPeaks(const QByteArray& data, int columns);
