// inflateZlib on arbitrary streams: the first two bytes give the output size
// (little-endian), the rest is the stream. It never reads or writes out of
// bounds, and it succeeds exactly when zlib finds a valid stream of that many
// bytes, with the same bytes. zlib reads the deflate data raw because the
// inflater ignores the Adler-32 trailer on purpose.
#include "formats/qinflate.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <zlib.h>

namespace {

/// RFC 1950 as zlib applies it: deflate, a window of at most 32K, check bits, no preset dictionary.
bool validHeader(const uint8_t* in, size_t size)
{
    return size >= 2 && (in[0] & 0x0F) == 8 && (in[0] >> 4) <= 7 && (in[0] * 256 + in[1]) % 31 == 0
           && (in[1] & 0x20) == 0;
}

} // namespace

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
    bool expectedOk = false;
    if (validHeader(in, inLength)) {
        z_stream z{};
        inflateInit2(&z, -15);
        z.next_in = const_cast<Bytef*>(in + 2);
        z.avail_in = uInt(inLength - 2);
        z.next_out = expected.get();
        z.avail_out = uInt(length + 1);
        expectedOk = inflate(&z, Z_FINISH) == Z_STREAM_END && z.total_out == length;
        inflateEnd(&z);
    }
    if (ok != expectedOk || (ok && std::memcmp(out.get(), expected.get(), length) != 0))
        __builtin_trap();
    return 0;
}
