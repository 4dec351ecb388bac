#include "qpalettewriter.h"

#include "qimagefiles.h"
#include "qrgbpalette.h"
#include "util/qsavebytes.h"

#include <QDataStream>
#include <QIODevice>
#include <QImage>

#include <cstring>

namespace {

struct FormatName
{
    const char* filter;
    const char* suffix;
};

// One row per QPaletteFileFormat, in its order.
const FormatName formatNames[pffCount] = {
    {"Adobe Color Table (*.act)", "act"},
    {"RIFF palette (*.pal)", "pal"},
    {"JASC palette (*.pal)", "pal"},
    {"Painter palette (*.txt)", "txt"},
    {"Adobe Color Swatch (*.aco)", "aco"},
    {"Adobe Swatch Exchange (*.ase)", "ase"},
    {"PCX image (*.pcx)", "pcx"},
    {"PNG image (*.png)", "png"},
};

/// The table with entry i at 255 - i, as ACT and RIFF files keep it.
void reversed(const QRGBA* colors, QRGBA (&out)[256])
{
    std::memcpy(static_cast<void*>(out), colors, sizeof out);
    invertPalette(&out);
}

QByteArray actBytes(const QRGBA* colors)
{
    QRGBA table[256];
    reversed(colors, table);
    QByteArray out;
    out.reserve(768);
    for (const QRGBA& each : table)
        out.append(char(each.r)).append(char(each.g)).append(char(each.b));
    return out;
}

QByteArray riffBytes(const QRGBA* colors)
{
    QRGBA table[256];
    reversed(colors, table);
    QByteArray out;
    QDataStream stream(&out, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    // The reader takes the chunk size less 8 as the bytes of entries: a chunk
    // of 4 + 1024 + 4 lets it read all 256, where the usual 4 + 1024 leaves
    // the last one (entry 0, the transparent colour) blank.
    const quint32 chunk = 4 + 1024 + 4;
    stream.writeRawData("RIFF", 4);
    stream << quint32(4 + 8 + chunk);
    stream.writeRawData("PAL data", 8);
    stream << chunk << quint16(0x0300) << quint16(256);
    for (const QRGBA& each : table)
        stream << quint8(each.r) << quint8(each.g) << quint8(each.b) << quint8(0);
    return out;
}

QByteArray jascBytes(const QRGBA* colors)
{
    QByteArray out("JASC-PAL\r\n0100\r\n256\r\n");
    for (int i = 0; i < 256; ++i) {
        const QRGBA& each = colors[i];
        out += QByteArray::number(each.r) + ' ' + QByteArray::number(each.g) + ' ' + QByteArray::number(each.b);
        if (each.a != 255)
            out += ' ' + QByteArray::number(each.a);
        out += "\r\n";
    }
    return out;
}

QByteArray painterBytes(const QRGBA* colors)
{
    QByteArray out("ROWS 16\nCOLS 16\n");
    for (int i = 0; i < 256; ++i) {
        const QRGBA& each = colors[i];
        out += "R: " + QByteArray::number(each.r) + ", G: " + QByteArray::number(each.g) + ", B: "
            + QByteArray::number(each.b);
        if (each.a != 255)
            out += " A: " + QByteArray::number(each.a);
        out += '\n';
    }
    return out;
}

QByteArray acoBytes(const QRGBA* colors)
{
    QByteArray out;
    QDataStream stream(&out, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::BigEndian);
    stream << quint16(1) << quint16(256);
    for (int i = 0; i < 256; ++i)
        stream << quint16(0) << quint16(colors[i].r * 257) << quint16(colors[i].g * 257)
               << quint16(colors[i].b * 257) << quint16(0);
    return out;
}

QByteArray aseBytes(const QRGBA* colors)
{
    QByteArray out;
    QDataStream stream(&out, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    stream.writeRawData("ASEF", 4);
    stream << quint16(1) << quint16(0) << quint32(256);
    for (int i = 0; i < 256; ++i) {
        // The name is the entry's number, in UTF-16 with its terminating zero.
        const QString name = QString::number(i);
        const quint32 length = 2 + 2 * quint32(name.size() + 1) + 4 + 12 + 2;
        stream << quint16(1) << length << quint16(name.size() + 1);
        for (const QChar c : name)
            stream << quint16(c.unicode());
        stream << quint16(0);
        stream.writeRawData("RGB ", 4);
        stream << float(colors[i].r / 255.0f) << float(colors[i].g / 255.0f) << float(colors[i].b / 255.0f);
        stream << quint16(2); // a normal, not a spot or global, colour
    }
    return out;
}

} // namespace

QStringList QPaletteWriter::filters()
{
    QStringList list;
    for (const FormatName& each : formatNames)
        list << QString::fromLatin1(each.filter);
    return list;
}

QPaletteFileFormat QPaletteWriter::formatOfFilter(const QString& filter)
{
    const int found = int(filters().indexOf(filter));
    return found < 0 ? pffACT : QPaletteFileFormat(found);
}

QString QPaletteWriter::suffix(QPaletteFileFormat format)
{
    return QString::fromLatin1(formatNames[format < pffCount ? format : pffACT].suffix);
}

QByteArray QPaletteWriter::bytes(QPaletteFileFormat format, const QRGBA* colors)
{
    switch (format) {
    case pffACT:
        return actBytes(colors);
    case pffRIFF:
        return riffBytes(colors);
    case pffJASC:
        return jascBytes(colors);
    case pffPainter:
        return painterBytes(colors);
    case pffACO:
        return acoBytes(colors);
    case pffASE:
        return aseBytes(colors);
    default:
        return QByteArray();
    }
}

bool QPaletteWriter::save(const QString& path, QPaletteFileFormat format, const QRGBA* colors)
{
    if (!colors)
        return false;
    if (format == pffPCX || format == pffPNG) {
        QImage picture(16, 16, QImage::Format_Indexed8);
        picture.setColorTable(paletteToColorTable(colors));
        for (int i = 0; i < 256; ++i)
            picture.setPixel(i % 16, i / 16, uint(i));
        return saveImage(path, picture);
    }
    const QByteArray data = bytes(format, colors);
    return !data.isEmpty() && saveBytes(path, data);
}
