// LZ5 decoding of arbitrary bytes: the image is never written outside, holds
// only 5-bit values, the cache filter agrees with the QImage loader, and
// re-encoding (with and without copies) decodes to the same pixels.
#include "fivebitinput.h"
#include "model/qspritecodecs.h"
#include "model/qstreamcachefilters.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FiveBitInput input;
    if (!input.read(data, size))
        return 0;
    const QStreamImageParam& param = input.param;
    const QImage image = loadLZ5(param.width, param.height, input.stream);
    const QByteArray bits = bitsOf(image);
    requireFiveBits(bits);
    if (QLZ5CacheFilter().process(input.stream, &input.param) != bits)
        std::abort();
    if (bitsOf(loadLZ5(param.width, param.height, saveLZ5(image, true))) != bits)
        std::abort();
    if (bitsOf(loadLZ5(param.width, param.height, saveLZ5(image, false))) != bits)
        std::abort();
    return 0;
}
