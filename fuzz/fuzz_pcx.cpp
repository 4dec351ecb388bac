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
    QByteArray saved;
    QBuffer buffer(&saved);
    buffer.open(QIODevice::WriteOnly);
    if (!savePCX(image, &buffer) || loadPCX(saved).size() != image.size())
        __builtin_trap();
    return 0;
}
