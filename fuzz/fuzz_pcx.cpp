// loadPCX and infoFromPCX on arbitrary bytes; what loads must save and load again.
#include "formats/qpcx.h"

#include <QBuffer>
#include <QByteArray>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    const QImageInfo info = infoFromPCX(bytes);
    const QImage image = loadPCX(bytes);
    if (image.isNull() || info.isNull())
        return 0;
    if (image.size() != QSize(info.width, info.height) || image.format() != info.format)
        __builtin_trap();
    QByteArray encoded;
    QBuffer buffer(&encoded);
    buffer.open(QIODevice::WriteOnly);
    // A 65536-pixel-wide image loads, but its row length does not fit the header to save it.
    const bool saved = savePCX(image, &buffer);
    if (saved != (image.width() <= 65535) || (saved && loadPCX(encoded).size() != image.size()))
        __builtin_trap();
    return 0;
}
