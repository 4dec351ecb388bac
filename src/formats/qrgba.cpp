#include "qrgba.h"

QRGBA& QRGBA::operator+=(unsigned char amount)
{
    r = intToByte(r + amount);
    g = intToByte(g + amount);
    b = intToByte(b + amount);
    return *this;
}

QRGBA& QRGBA::operator-=(unsigned char amount)
{
    r = intToByte(r - amount);
    g = intToByte(g - amount);
    b = intToByte(b - amount);
    return *this;
}
