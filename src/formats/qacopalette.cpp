#include "qacopalette.h"

#include <QColor>
#include <QDataStream>
#include <QIODevice>

#include <cmath>

namespace {

enum AcoSpace : quint16 { acoRgb = 0, acoHsb = 1, acoCmyk = 2, acoGrey = 8 };

// QColor refuses (and warns about) components out of range; such a colour
// ends black, as an invalid QColor converts.
QRGBA fromHsv(int h, int s, int v)
{
    if (h < -1 || h > 359 || s < 0 || s > 255 || v < 0 || v > 255)
        return QRGBA(0, 0, 0);
    return QRGBA(QColor::fromHsv(h, s, v, 255).toRgb());
}

QRGBA fromCmyk(int c, int m, int y, int k)
{
    auto inRange = [](int value) { return value >= 0 && value <= 255; };
    if (!inRange(c) || !inRange(m) || !inRange(y) || !inRange(k))
        return QRGBA(0, 0, 0);
    return QRGBA(QColor::fromCmyk(c, m, y, k, 255).toRgb());
}

} // namespace

bool QACOPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    QDataStream stream(device);
    stream.setByteOrder(QDataStream::BigEndian);
    quint16 version = 0;
    quint16 count = 0;
    stream >> version >> count;
    if (stream.status() != QDataStream::Ok || version != 1)
        return false;
    int next = 0;
    for (int i = 0; i < count && next < 256; ++i) {
        quint16 space = 0;
        qint16 w = 0, x = 0, y = 0, z = 0;
        stream >> space >> w >> x >> y >> z;
        if (stream.status() != QDataStream::Ok)
            return false;
        // Values are the signed 16-bit numbers as read: a channel above 0x7FFF
        // wraps, as it always has in this program's reading of ACO.
        switch (space) {
        case acoRgb:
            (*palette)[next++] = QRGBA(uchar(w / 257), uchar(x / 257), uchar(y / 257));
            break;
        case acoHsb:
            (*palette)[next++] = fromHsv(int(std::lround(w / 182.5487)), x / 257, y / 257);
            break;
        case acoCmyk:
            (*palette)[next++] = fromCmyk(255 - w / 257, 255 - x / 257, 255 - y / 257, 255 - z / 257);
            break;
        case acoGrey: {
            const uchar grey = uchar(255 - std::lround(w / 39.2157));
            (*palette)[next++] = QRGBA(grey, grey, grey);
            break;
        }
        default:
            break;
        }
    }
    return true;
}
