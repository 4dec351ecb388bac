#include "qasepalette.h"

#include <QColor>
#include <QDataStream>
#include <QIODevice>

#include <cmath>

namespace {

enum AseBlock : quint16 { aseColour = 1, aseGroupStart = 0xC001, aseGroupEnd = 0xC002 };

uchar channel(float value)
{
    // Checked before rounding: a damaged file may hold NaN or huge values.
    if (!(value > 0.0f))
        return 0;
    if (value >= 1.0f)
        return 255;
    return intToByte(int(std::lround(double(value) * 255.0)));
}

bool skipName(QDataStream& stream)
{
    quint16 length = 0;
    stream >> length;
    return stream.skipRawData(2 * int(length)) == 2 * int(length);
}

} // namespace

bool QASEPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    QDataStream stream(device);
    stream.setByteOrder(QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    quint16 major = 0;
    quint16 minor = 0;
    quint32 blocks = 0;
    if (device->size() < 4 || !device->seek(4))
        return false;
    stream >> major >> minor;
    if (stream.status() != QDataStream::Ok || major != 1 || minor != 0)
        return false;
    stream >> blocks;
    int next = 0;
    for (quint32 block = 0; block < blocks && next < 256; ++block) {
        quint16 type = 0;
        quint32 length = 0;
        stream >> type >> length;
        if (stream.status() != QDataStream::Ok)
            return false;
        if (type == aseGroupStart || type == aseGroupEnd) {
            if (!skipName(stream))
                return false;
            continue;
        }
        if (type != aseColour) {
            // A length past the end would reach the device as a negative skip, which Qt complains of.
            if (qint64(length) > device->bytesAvailable() || stream.skipRawData(qint64(length)) != qint64(length))
                return false;
            continue;
        }
        if (!skipName(stream))
            return false;
        char model[4];
        if (stream.readRawData(model, 4) != 4)
            return false;
        const QByteArray name(model, 4);
        float a = 0, b = 0, c = 0, d = 0;
        if (name == "RGB ") {
            stream >> a >> b >> c;
            (*palette)[next++] = QRGBA(channel(a), channel(b), channel(c));
        } else if (name == "CMYK") {
            stream >> a >> b >> c >> d;
            (*palette)[next++]
                = QRGBA(QColor::fromCmyk(channel(a), channel(b), channel(c), channel(d), 255).toRgb());
        } else if (name == "Gray") {
            stream >> a;
            const uchar grey = channel(a);
            (*palette)[next++] = QRGBA(grey, grey, grey);
        } else {
            stream.skipRawData(12);
        }
        stream.skipRawData(2);
        if (stream.status() != QDataStream::Ok)
            return false;
    }
    return true;
}
