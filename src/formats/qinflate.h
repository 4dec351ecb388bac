#pragma once

#include <cstddef>

/**
 * Inflates a whole zlib stream (RFC 1950 around RFC 1951 deflate) held in
 * memory into a buffer whose size is known beforehand, as it is for the pixel
 * rows of a PNG picture. Knowing both ends lets it decode without the
 * stream state of a general inflater and copy matches a word at a time.
 *
 * It succeeds only when the header is valid, every block decodes, the last
 * block ends within the input, exactly `outLength` bytes come out and the
 * Adler-32 trailer that follows matches them. Bytes after the trailer are
 * ignored.
 *
 * `out` must have `inflateSlack` writable bytes past `outLength`: a match may
 * write that many bytes of scratch beyond its end, which the following output
 * overwrites.
 */
constexpr std::size_t inflateSlack = 64;
bool inflateZlib(const unsigned char* in, std::size_t inLength, unsigned char* out, std::size_t outLength);
