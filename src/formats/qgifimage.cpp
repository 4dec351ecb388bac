#include "qgifimage.h"

#include "qgiflzw.h"

#include <QDataStream>
#include <QSaveFile>

#include <memory>

namespace {

void writeLoopExtension(QDataStream& stream)
{
    stream << quint8(0x21) << quint8(0xFF) << quint8(11);
    stream.writeRawData("NETSCAPE2.0", 11);
    stream << quint8(3) << quint8(1) << quint16(0) << quint8(0);
}

void writeControlExtension(QDataStream& stream, int delay)
{
    // 9: restore to background, with a transparent colour (index 0).
    stream << quint8(0x21) << quint8(0xF9) << quint8(4) << quint8(9) << quint16(qBound(0, delay, 0xFFFF))
           << quint8(0) << quint8(0);
}

} // namespace

bool QGIFImage::save(QIODevice* device) const
{
    for (const QGIFFrame& frame : m_frames)
        if (frame.image.format() != QImage::Format_Indexed8 || frame.image.width() > 0xFFFF
            || frame.image.height() > 0xFFFF)
            return false;
    QDataStream stream(device);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("GIF89a", 6);
    const bool global = !m_globalColorMap.isEmpty();
    stream << quint16(m_width) << quint16(m_height) << quint8(global ? 0xF7 : 0x77) << quint8(0) << quint8(0);
    if (global)
        m_globalColorMap.save(stream);

    // The coder's tables are large; one is enough for all frames.
    const auto coder = std::make_unique<QGIFLZW>(stream);
    for (const QGIFFrame& frame : m_frames) {
        if (frame.loop)
            writeLoopExtension(stream);
        writeControlExtension(stream, frame.delay);
        const bool local = !frame.colorMap.isEmpty();
        stream << quint8(0x2C) << quint16(frame.left) << quint16(frame.top) << quint16(frame.image.width())
               << quint16(frame.image.height()) << quint8(local ? 0x87 : 0);
        if (local)
            frame.colorMap.save(stream);
        stream << quint8(8);
        coder->compressInit();
        for (int y = 0; y < frame.image.height(); ++y) {
            const uchar* line = frame.image.constScanLine(y);
            for (int x = 0; x < frame.image.width(); ++x)
                coder->compressByte(line[x]);
        }
        coder->compressTerm();
    }
    stream << quint8(0x3B);
    return stream.status() == QDataStream::Ok;
}

bool QGIFImage::save(const QString& path) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (!save(&file)) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}
