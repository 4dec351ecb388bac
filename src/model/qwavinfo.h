#pragma once

#include <QByteArray>
#include <QtGlobal>

/**
 * What a sound shows of its WAV bytes: the format and the length. The
 * program never decodes audio; it reads the header only. A sound that is not
 * PCM, or whose header cannot be read, has an information of all zero.
 */
struct QWAVInfo
{
    quint16 channels = 0;
    quint32 rate = 0; ///< samples per second
    quint8 bits = 0; ///< bits per sample
    float duration = 0; ///< seconds

    bool operator==(const QWAVInfo& other) const
    {
        return channels == other.channels && rate == other.rate && bits == other.bits
            && duration == other.duration;
    }
};

/**
 * Fills `info` from the header of the WAV file in `data`. The RIFF chunks
 * are walked to find "fmt " and "data", so chunks of other kinds before the
 * samples are stepped over. When the chunks are broken (a size running past
 * the end, no "data" chunk on the walk), the samples are found as the
 * engine's tools find them: at the first bytes "data" anywhere. The duration
 * is the size of the samples over the bytes per second, clipped to the bytes
 * that are there. False, with `info` all zero, when the bytes are no PCM WAV.
 */
bool getWAVInfoFromData(const QByteArray& data, QWAVInfo& info);
