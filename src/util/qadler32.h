#pragma once

#include <QtGlobal>
#include <cstddef>

/**
 * The Adler-32 of a buffer, as the trailer of a zlib stream holds it. Every
 * decoded byte of a PNG picture goes through it, so where the processor has
 * AVX2 it sums 32 bytes at a time; elsewhere it is zlib's own.
 */
quint32 adler32Of(const uchar* data, std::size_t length);
