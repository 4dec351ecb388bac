// inflateZlib on arbitrary streams: the first two bytes give the output size
// (little-endian), the rest is the stream. It never reads or writes out of
// bounds, and it succeeds exactly when zlib finds a valid stream of that many
// bytes with a matching trailer, with the same bytes.
#include "formats/qinflate.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <zlib.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const size_t length = size_t(data[0]) | size_t(data[1]) << 8;
    const uint8_t* in = data + 2;
    const size_t inLength = size - 2;

    // Exactly the room the inflater may use, so that the sanitizer sees any write beyond.
    const std::unique_ptr<unsigned char[]> out(new unsigned char[length + inflateSlack]);
    const bool ok = inflateZlib(in, inLength, out.get(), length);

    const std::unique_ptr<unsigned char[]> expected(new unsigned char[length + 1]);
    z_stream z{};
    inflateInit(&z);
    z.next_in = const_cast<Bytef*>(in);
    z.avail_in = uInt(inLength);
    z.next_out = expected.get();
    z.avail_out = uInt(length + 1);
    const bool expectedOk = inflate(&z, Z_FINISH) == Z_STREAM_END && z.total_out == length;
    inflateEnd(&z);
    if (ok != expectedOk || (ok && std::memcmp(out.get(), expected.get(), length) != 0))
        __builtin_trap();
    return 0;
}
