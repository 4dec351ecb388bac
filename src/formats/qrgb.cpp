#include "qrgb.h"

QRGB& QRGB::operator+=(unsigned char amount)
{
    r = intToByte(r + amount);
    g = intToByte(g + amount);
    b = intToByte(b + amount);
    return *this;
}

QRGB& QRGB::operator-=(unsigned char amount)
{
    r = intToByte(r - amount);
    g = intToByte(g - amount);
    b = intToByte(b - amount);
    return *this;
}
