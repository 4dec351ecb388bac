#include "qgifcolormap.h"

void QGIFColorMap::fromPalette(const QRGBA* palette)
{
    clear();
    reserve(256);
    for (int i = 0; i < 256; ++i)
        append(palette[i].toRGB());
}

void QGIFColorMap::fromColorTable(const QVector<QRgb>& colours)
{
    clear();
    reserve(colours.size());
    for (QRgb colour : colours)
        append(QRGB(uchar(qRed(colour)), uchar(qGreen(colour)), uchar(qBlue(colour))));
}

void QGIFColorMap::save(QDataStream& stream) const
{
    QRGB entries[256];
    for (int i = 0; i < 256 && i < size(); ++i)
        entries[i] = at(i);
    stream.writeRawData(reinterpret_cast<const char*>(entries), sizeof entries);
}
