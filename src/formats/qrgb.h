#pragma once

#include <QColor>

/// Clamps an integer to a colour channel, 0 to 255.
inline unsigned char intToByte(int value)
{
    return static_cast<unsigned char>(value < 0 ? 0 : (value > 255 ? 255 : value));
}

/**
 * An opaque colour as three bytes, red, green, blue: the triple of ACT files,
 * PCX colour tables and GIF colour maps. Its layout is the file's, so arrays of
 * it may be read and written as bytes.
 */
struct QRGB
{
    unsigned char r = 0;
    unsigned char g = 0;
    unsigned char b = 0;

    QRGB() = default;
    QRGB(unsigned char red, unsigned char green, unsigned char blue)
        : r(red)
        , g(green)
        , b(blue)
    {
    }
    explicit QRGB(const QColor& colour)
        : r(intToByte(colour.red()))
        , g(intToByte(colour.green()))
        , b(intToByte(colour.blue()))
    {
    }

    QColor toQColor() const { return QColor(r, g, b); }

    /// Adds to every channel, clamped.
    QRGB& operator+=(unsigned char amount);
    /// Subtracts from every channel, clamped.
    QRGB& operator-=(unsigned char amount);

    bool operator==(const QRGB& other) const { return r == other.r && g == other.g && b == other.b; }
    bool operator!=(const QRGB& other) const { return !(*this == other); }
};
static_assert(sizeof(QRGB) == 3, "QRGB is stored as three bytes");
