#pragma once

#include "qrgb.h"

#include <QColor>

/**
 * A colour with alpha as four bytes in the order red, green, blue, alpha. A
 * palette is a table of 256 of them, entry 0 being the sprite's transparent
 * colour; SFF version 2 stores such tables byte for byte, so the layout must
 * not change.
 */
struct QRGBA
{
    unsigned char r = 0;
    unsigned char g = 0;
    unsigned char b = 0;
    unsigned char a = 0;

    QRGBA() = default;
    QRGBA(unsigned char red, unsigned char green, unsigned char blue, unsigned char alpha = 255)
        : r(red)
        , g(green)
        , b(blue)
        , a(alpha)
    {
    }
    explicit QRGBA(const QColor& colour)
        : r(intToByte(colour.red()))
        , g(intToByte(colour.green()))
        , b(intToByte(colour.blue()))
        , a(intToByte(colour.alpha()))
    {
    }

    /// An opaque entry from a triple.
    static QRGBA fromRGB(const QRGB& rgb) { return QRGBA(rgb.r, rgb.g, rgb.b, 255); }
    /// An entry from a 32-bit colour 0xAARRGGBB.
    static QRGBA fromQRgb(QRgb value)
    {
        return QRGBA(uchar(qRed(value)), uchar(qGreen(value)), uchar(qBlue(value)), uchar(qAlpha(value)));
    }

    QRGB toRGB() const { return QRGB(r, g, b); }
    QColor toQColor() const { return QColor(r, g, b, a); }
    /// The 32-bit colour 0xAARRGGBB of QImage colour tables.
    QRgb toQRgb() const { return qRgba(r, g, b, a); }

    /// Adds to the colour channels, clamped; alpha stays.
    QRGBA& operator+=(unsigned char amount);
    /// Subtracts from the colour channels, clamped; alpha stays.
    QRGBA& operator-=(unsigned char amount);

    bool operator==(const QRGBA& other) const
    {
        return r == other.r && g == other.g && b == other.b && a == other.a;
    }
    bool operator!=(const QRGBA& other) const { return !(*this == other); }
};
static_assert(sizeof(QRGBA) == 4, "QRGBA is stored as four bytes");

/// A full colour table: what a palette file reads into and a sprite uses.
using QRGBATable = QRGBA[256];
