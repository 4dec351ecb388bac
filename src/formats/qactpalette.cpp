#include "qactpalette.h"

#include "qrgbpalette.h"

#include <QIODevice>

bool QACTPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    QRGB triples[256];
    const qint64 read = device->read(reinterpret_cast<char*>(triples), sizeof triples);
    if (read != qint64(sizeof triples)) {
        m_fault = QStringLiteral("an ACT palette has 768 bytes of colours, this file has %1").arg(qMax<qint64>(read, 0));
        return false;
    }
    for (int i = 0; i < 256; ++i)
        (*palette)[i] = QRGBA::fromRGB(triples[i]);
    invertPalette(palette);
    return true;
}
