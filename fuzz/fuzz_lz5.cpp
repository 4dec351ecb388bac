// LZ5 decoding of arbitrary bytes: the image is never written outside, holds
// only 5-bit values, the cache filter agrees with the QImage loader, and
// re-encoding (with and without copies) decodes to the same pixels.
// Input: width (2 bytes, low 9 bits), height (1 byte), then the stream.
#include "model/qspritecodecs.h"
#include "model/qstreamcachefilter.h"
#include "model/qstreamcachefilters.h"

#include <cstdint>
#include <cstdlib>

namespace {

QByteArray bitsOf(const QImage& image)
{
    return QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 3)
        return 0;
    QStreamImageParam param;
    param.width = quint16(1 + ((data[0] | (data[1] << 8)) & 0x1FF));
    param.height = quint16(1 + data[2] % 16);
    const QByteArray stream(reinterpret_cast<const char*>(data + 3), qsizetype(size - 3));

    const QImage image = loadLZ5(param.width, param.height, stream);
    const QByteArray bits = bitsOf(image);
    for (const char c : bits)
        if (uchar(c) >= 32)
            std::abort();
    if (QLZ5CacheFilter().process(stream, &param) != bits)
        std::abort();
    if (bitsOf(loadLZ5(param.width, param.height, saveLZ5(image, true))) != bits)
        std::abort();
    if (bitsOf(loadLZ5(param.width, param.height, saveLZ5(image, false))) != bits)
        std::abort();
    return 0;
}
