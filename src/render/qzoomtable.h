#pragma once

#include <QtGlobal>

/**
 * The zoom factors the view steps through: two rows of twelve, a small range
 * up to 4x and a large one up to 10x, chosen in the options. The index of
 * 1:1 differs per row.
 */
namespace QZoomTable {

constexpr int rows = 2;
constexpr int steps = 12;
/// The highest index the mouse wheel reaches: 8x in the large row, 3x in the small one.
constexpr int wheelLimit = 9;

/// The factor at `row` and `index`, both clamped into the table.
float factor(int row, int index);
/// The index of 1:1 in `row`.
quint8 actualIndex(int row);

} // namespace QZoomTable
