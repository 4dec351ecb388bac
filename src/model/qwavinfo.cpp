#include "qwavinfo.h"

#include <QCoreApplication>
#include <QtEndian>

namespace {

/// The 16 bytes of a PCM "fmt " chunk that are read.
struct WaveFormat
{
    quint16 tag = 0;
    quint16 channels = 0;
    quint32 rate = 0;
    quint32 bytesPerSecond = 0;
    quint16 blockAlign = 0;
    quint16 bits = 0;
};

constexpr qsizetype riffHeaderSize = 12; ///< "RIFF", size, "WAVE"
constexpr qsizetype chunkHeaderSize = 8; ///< name, size
constexpr qsizetype formatSize = 16;
constexpr quint16 formatPCM = 1;

quint16 u16(const char* p)
{
    return qFromLittleEndian<quint16>(p);
}

quint32 u32(const char* p)
{
    return qFromLittleEndian<quint32>(p);
}

bool nameIs(const char* p, const char* name)
{
    return p[0] == name[0] && p[1] == name[1] && p[2] == name[2] && p[3] == name[3];
}

WaveFormat readFormat(const char* p)
{
    return WaveFormat { u16(p), u16(p + 2), u32(p + 4), u32(p + 8), u16(p + 12), u16(p + 14) };
}

/// Walks the chunks after the RIFF header; false when they are broken or
/// no "data" follows a "fmt ".
bool walkChunks(const QByteArray& data, WaveFormat& format, qsizetype& dataStart, quint32& dataSize)
{
    bool haveFormat = false;
    qsizetype at = riffHeaderSize;
    while (at + chunkHeaderSize <= data.size()) {
        const char* chunk = data.constData() + at;
        const quint32 size = u32(chunk + 4);
        const qsizetype body = at + chunkHeaderSize;
        if (nameIs(chunk, "fmt ")) {
            if (size < formatSize || body + formatSize > data.size())
                return false;
            format = readFormat(data.constData() + body);
            haveFormat = true;
        } else if (nameIs(chunk, "data")) {
            dataStart = body;
            dataSize = size;
            return haveFormat;
        }
        if (qsizetype(size) > data.size() - body)
            return false;
        // Chunks of odd size are followed by a pad byte.
        at = body + qsizetype(size) + (size & 1);
    }
    return false;
}

/// The engine tools' way: the format record right after the RIFF header, the
/// samples after the first "data" in the bytes.
bool searchData(const QByteArray& data, WaveFormat& format, qsizetype& dataStart, quint32& dataSize)
{
    if (data.size() < riffHeaderSize + chunkHeaderSize + formatSize)
        return false;
    format = readFormat(data.constData() + riffHeaderSize + chunkHeaderSize);
    const qsizetype found = data.indexOf("data");
    if (found < 0 || found + chunkHeaderSize > data.size())
        return false;
    dataStart = found + chunkHeaderSize;
    dataSize = u32(data.constData() + found + 4);
    return true;
}

} // namespace

bool locateWAVData(const QByteArray& data, QWAVLayout& layout)
{
    layout = QWAVLayout();
    if (data.size() < riffHeaderSize || !nameIs(data.constData(), "RIFF")
        || !nameIs(data.constData() + 8, "WAVE"))
        return false;
    WaveFormat format;
    qsizetype dataStart = 0;
    quint32 dataSize = 0;
    if (!walkChunks(data, format, dataStart, dataSize) && !searchData(data, format, dataStart, dataSize))
        return false;
    layout = QWAVLayout { format.tag, format.channels, format.rate, format.bytesPerSecond, format.blockAlign,
        format.bits, dataStart, dataSize };
    return true;
}

bool getWAVInfoFromData(const QByteArray& data, QWAVInfo& info)
{
    info = QWAVInfo();
    QWAVLayout layout;
    if (!locateWAVData(data, layout) || layout.tag != formatPCM)
        return false;
    info.channels = layout.channels;
    info.rate = layout.rate;
    info.bits = quint8(layout.bits);
    const qint64 present = qMin<qint64>(layout.dataSize, data.size() - layout.dataStart);
    info.duration = layout.bytesPerSecond ? float(double(present) / layout.bytesPerSecond) : 0.0f;
    return true;
}

QString wavFault(const QByteArray& data)
{
    QWAVLayout layout;
    if (data.isEmpty())
        return QCoreApplication::translate("QWAVInfo", "the file is empty");
    if (!locateWAVData(data, layout))
        return QCoreApplication::translate("QWAVInfo", "no readable RIFF WAVE header with a \"data\" chunk");
    const qint64 present = data.size() - layout.dataStart;
    if (present < qint64(layout.dataSize))
        return QCoreApplication::translate("QWAVInfo", "truncated: the samples need %1 bytes, %2 are there")
            .arg(layout.dataSize)
            .arg(present);
    return QString();
}
