#pragma once

#include <QByteArray>
#include <QString>
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

/// Where the samples of a WAV file lie and how they are laid out.
struct QWAVLayout
{
    quint16 tag = 0; ///< 1 for PCM
    quint16 channels = 0;
    quint32 rate = 0;
    quint32 bytesPerSecond = 0;
    quint16 blockAlign = 0; ///< bytes per frame
    quint16 bits = 0;
    qsizetype dataStart = 0;
    quint32 dataSize = 0; ///< as the "data" chunk says; may run past the end of a truncated file
};

/// Finds the format and the samples as getWAVInfoFromData does; false when the bytes are no WAV.
bool locateWAVData(const QByteArray& data, QWAVLayout& layout);

/**
 * Why the bytes can't stand as a sound of an SND file, in a few words
 * ("no RIFF WAVE header", "truncated: ..."); empty when they can. A file
 * that is not PCM is accepted: the engine plays what it can.
 */
QString wavFault(const QByteArray& data);
