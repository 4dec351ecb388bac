#include "qactpalette.h"

#include "qrgbpalette.h"

#include <QIODevice>

bool QACTPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    QRGB triples[256];
    if (device->read(reinterpret_cast<char*>(triples), sizeof triples) != qint64(sizeof triples))
        return false;
    for (int i = 0; i < 256; ++i)
        (*palette)[i] = QRGBA::fromRGB(triples[i]);
    invertPalette(palette);
    return true;
}
