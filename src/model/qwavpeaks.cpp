#include "qwavpeaks.h"

#include "qwavinfo.h"

#include <QtEndian>

namespace {

/// One sample as a level from -1 to 1; `bytes` is 1 to 4.
float level(const uchar* p, int bytes)
{
    switch (bytes) {
    case 1:
        return (int(p[0]) - 128) / 128.0f;
    case 2:
        return qFromLittleEndian<qint16>(p) / 32768.0f;
    case 3: {
        // Shifted up into 32 bits so the sign comes along.
        const qint32 value = qint32(quint32(p[0]) << 8 | quint32(p[1]) << 16 | quint32(p[2]) << 24);
        return float(value / 2147483648.0);
    }
    default:
        return float(qFromLittleEndian<qint32>(p) / 2147483648.0);
    }
}

} // namespace

QList<QWAVPeak> wavPeaks(const QByteArray& data, int columns)
{
    QWAVLayout layout;
    if (columns <= 0 || !locateWAVData(data, layout) || layout.tag != 1 || layout.channels == 0)
        return {};
    const int bytes = (layout.bits + 7) / 8;
    if (bytes < 1 || bytes > 4)
        return {};
    const qsizetype frameSize = qsizetype(bytes) * layout.channels;
    const qsizetype present = qMin<qsizetype>(layout.dataSize, data.size() - layout.dataStart);
    const qsizetype frames = present / frameSize;
    if (frames <= 0)
        return {};
    const auto* samples = reinterpret_cast<const uchar*>(data.constData() + layout.dataStart);
    QList<QWAVPeak> peaks(columns);
    for (int column = 0; column < columns; ++column) {
        // Every column takes at least one frame, so short sounds stretch.
        const qsizetype first = frames * column / columns;
        const qsizetype last = qMax(first + 1, frames * (column + 1) / columns);
        QWAVPeak peak { 1.0f, -1.0f };
        for (qsizetype frame = first; frame < last && frame < frames; ++frame) {
            for (int channel = 0; channel < layout.channels; ++channel) {
                const float value = level(samples + frame * frameSize + channel * bytes, bytes);
                peak.low = qMin(peak.low, value);
                peak.high = qMax(peak.high, value);
            }
        }
        peaks[column] = peak;
    }
    return peaks;
}
