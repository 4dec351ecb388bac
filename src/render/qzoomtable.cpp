#include "qzoomtable.h"

namespace {

constexpr float factors[QZoomTable::rows][QZoomTable::steps] = {
    { 0.25f, 0.5f, 0.75f, 1.0f, 1.5f, 2.0f, 2.25f, 2.5f, 2.75f, 3.0f, 3.5f, 4.0f },
    { 0.25f, 0.5f, 1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 7.0f, 8.0f, 9.0f, 10.0f },
};
constexpr quint8 actual[QZoomTable::rows] = { 3, 2 };

int clampRow(int row)
{
    return qBound(0, row, QZoomTable::rows - 1);
}

} // namespace

float QZoomTable::factor(int row, int index)
{
    return factors[clampRow(row)][qBound(0, index, steps - 1)];
}

quint8 QZoomTable::actualIndex(int row)
{
    return actual[clampRow(row)];
}
