#include "qriffpalette.h"

#include "qrgbpalette.h"

#include <QDataStream>
#include <QIODevice>

bool QRIFFPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    QDataStream stream(device);
    stream.setByteOrder(QDataStream::LittleEndian);
    char form[8];
    quint32 chunkSize = 0;
    if (device->size() < 24 || !device->seek(8) || stream.readRawData(form, 8) != 8
        || QByteArray(form, 8) != "PAL data")
        return false;
    stream >> chunkSize;
    const qint64 bytes = qint64(chunkSize) - 8;
    if (stream.status() != QDataStream::Ok || bytes < 0 || bytes > 1024 || !device->seek(24))
        return false;
    if (stream.readRawData(reinterpret_cast<char*>(*palette), int(bytes)) != int(bytes))
        return false;
    for (QRGBA& entry : *palette)
        entry.a = 255;
    invertPalette(palette);
    return true;
}
