#include "qimagepalette.h"

#include <cstring>

void QImagePalette::toRGBPal(QRGBA (&table)[256]) const
{
    std::memcpy(table, palette(), sizeof(table));
}

QVector<QRgb> QImagePalette::toRgbPal() const
{
    const QRGBA* entries = palette();
    QVector<QRgb> table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = entries[i].toQRgb();
    return table;
}
