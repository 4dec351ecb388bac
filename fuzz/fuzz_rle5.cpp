// RLE5 decoding of arbitrary bytes: the image is never written outside, holds
// only 5-bit values, and the cache filter agrees with the QImage loader; the
// result survives LZ5, which is how an RLE5 sprite is written back.
#include "fivebitinput.h"
#include "model/qspritecodecs.h"
#include "model/qstreamcachefilters.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FiveBitInput input;
    if (!input.read(data, size))
        return 0;
    const QStreamImageParam& param = input.param;
    const QImage image = loadRLE5(param.width, param.height, input.stream);
    const QByteArray bits = bitsOf(image);
    requireFiveBits(bits);
    if (QRLE5CacheFilter().process(input.stream, &input.param) != bits)
        std::abort();
    if (bitsOf(loadLZ5(param.width, param.height, saveLZ5(image))) != bits)
        std::abort();
    return 0;
}
