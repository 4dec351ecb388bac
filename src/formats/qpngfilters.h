#pragma once

// The five row filters of PNG, undone; and the channel swap from the RGBA
// byte order of PNG rows to the BGRA order of 32-bit QImage pixels.

#include <QtGlobal>

/**
 * Undoes the filter of one row of `length` bytes with `channels` bytes a
 * pixel, from `in` to `out` (which may be the same row), given the row above
 * already undone (zeros for the first row). False for an unknown filter.
 */
bool unfilterRow(int channels, uchar filter, const uchar* in, uchar* out, const uchar* above, qsizetype length);

/**
 * Swaps the first and third byte of each of `width` four-byte pixels in place.
 * Filters treat each byte position of a pixel alike, so a row may be swapped
 * before its filter is undone, against rows above that were swapped too.
 */
void swapRedAndBlue(uchar* row, quint32 width);
