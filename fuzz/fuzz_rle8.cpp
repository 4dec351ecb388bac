// RLE8 decoding of arbitrary bytes: the image is never written outside, the
// cache filter agrees with the QImage loader, and re-encoding an indexed
// result decodes to the same pixels. Input: width (2 bytes, low 9 bits),
// height (1 byte), format selector (1 byte), then the stream.
#include "model/qspritecodecs.h"
#include "model/qstreamcachefilter.h"
#include "model/qstreamcachefilters.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 4)
        return 0;
    const QImage::Format formats[] = { QImage::Format_Indexed8, QImage::Format_RGB32, QImage::Format_ARGB32 };
    QStreamImageParam param;
    param.width = quint16(1 + ((data[0] | (data[1] << 8)) & 0x1FF));
    param.height = quint16(1 + data[2] % 16);
    param.format = formats[data[3] % 3];
    const QByteArray stream(reinterpret_cast<const char*>(data + 4), qsizetype(size - 4));

    const QImage image = loadRLE8(param.width, param.height, param.format, stream);
    const QByteArray bits(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    if (QRLE8CacheFilter().process(stream, &param) != bits)
        std::abort();
    if (param.format == QImage::Format_Indexed8) {
        const QImage again = loadRLE8(param.width, param.height, param.format, saveRLE8(image));
        if (QByteArray(reinterpret_cast<const char*>(again.constBits()), again.sizeInBytes()) != bits)
            std::abort();
    }
    return 0;
}
