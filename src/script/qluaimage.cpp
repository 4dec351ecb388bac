// Image: pixels a script draws (indexed, 256 colours) to give a sprite, or
// reads from one, with the members of Qt's image a script works with.
#include "qluabindings.h"
#include "qluaheaders.h"
#include "qluaimage.h"
#include "qluaqt.h"
#include "qluatableinit.h"
#include "qluawrappers.h"
#include "image/qopaquebounds.h"

#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QSaveFile>

#include <cstring>

LImage::LImage(int width, int height)
    : image(qMax(1, width), qMax(1, height), QImage::Format_Indexed8)
{
    image.setColorTable(QVector<QRgb>(256, qRgb(0, 0, 0)));
    image.fill(0);
}

namespace {

int width(const LImage& i) { return i.image.width(); }
int height(const LImage& i) { return i.image.height(); }
bool isNull(const LImage& i) { return i.image.isNull(); }
bool isIndexed(const LImage& i) { return i.image.format() == QImage::Format_Indexed8; }

void setColor(LImage& i, int index, unsigned int colour)
{
    checkIndex(index, 256);
    if (i.image.format() == QImage::Format_Indexed8)
        i.image.setColor(index, colour);
}

// The colour index of an indexed image, the ARGB value of another; 0 outside.
unsigned int pixel(const LImage& i, int x, int y)
{
    if (!i.image.valid(x, y))
        return 0;
    return i.image.format() == QImage::Format_Indexed8 ? unsigned(i.image.pixelIndex(x, y)) : i.image.pixel(x, y);
}

void setPixel(LImage& i, int x, int y, unsigned int value)
{
    if (i.image.valid(x, y))
        i.image.setPixel(x, y, value);
}

// Fills the part of the rectangle inside the image.
void fillRect(LImage& i, int x, int y, int w, int h, unsigned int value)
{
    const QRect area = QRect(x, y, w, h).intersected(i.image.rect());
    for (int row = area.top(); row <= area.bottom(); ++row) {
        for (int column = area.left(); column <= area.right(); ++column)
            i.image.setPixel(column, row, value);
    }
}

// Fills the ellipse inside the rectangle: the shapes of a drawn character.
void fillEllipse(LImage& i, int x, int y, int w, int h, unsigned int value)
{
    const double rx = w / 2.0, ry = h / 2.0, cx = x + rx, cy = y + ry;
    for (int row = y; row < y + h; ++row) {
        for (int column = x; column < x + w; ++column) {
            const double dx = (column + 0.5 - cx) / rx, dy = (row + 0.5 - cy) / ry;
            if (dx * dx + dy * dy <= 1.0 && i.image.valid(column, row))
                i.image.setPixel(column, row, value);
        }
    }
}

// The rectangle of the pixels that are not transparent, as x, y, w, h.
luabind::object opaque(lua_State* state, const LImage& i)
{
    const QRect bounds = opaqueBounds(i.image);
    luabind::object table = luabind::newtable(state);
    table["x"] = bounds.x();
    table["y"] = bounds.y();
    table["w"] = bounds.width();
    table["h"] = bounds.height();
    return table;
}

LImage mirrored(const LImage& i, bool horizontal, bool vertical) { return LImage(i.image.mirrored(horizontal, vertical)); }
LImage mirroredVertically(const LImage& i) { return LImage(i.image.mirrored()); }

// Image(width, height, format): any of Qt's formats; Image(width, height) is indexed.
void withFormat(const luabind::argument& self, int width, int height, int format)
{
    if (format <= QImage::Format_Invalid || format >= QImage::NImageFormats)
        throw lua::fault(QStringLiteral("Image: unknown format %1").arg(format));
    LImage made(width, height);
    if (format != QImage::Format_Indexed8) {
        made.image = QImage(qMax(1, width), qMax(1, height), QImage::Format(format));
        made.image.fill(0);
    }
    lua::initAs(self, made);
}

// Image.fromData(bytes): a picture file's bytes (PNG, PCX, BMP...); an empty image when unreadable.
LImage fromData(const QByteArray& bytes) { return LImage(QImage::fromData(bytes)); }
// The pixel bytes, row after row, each row padded to 32 bits as Qt keeps it.
QByteArray getBits(const LImage& i) { return QByteArray(reinterpret_cast<const char*>(i.image.constBits()), i.image.sizeInBytes()); }
int getByteCount(const LImage& i) { return int(i.image.sizeInBytes()); }
int bytesPerLine(const LImage& i) { return int(i.image.bytesPerLine()); }
int depth(const LImage& i) { return i.image.depth(); }
int format(const LImage& i) { return int(i.image.format()); }

void checkRow(const LImage& i, int y)
{
    if (y < 0 || y >= i.image.height())
        throw lua::fault(QStringLiteral("Image: no row %1 of %2").arg(y).arg(i.image.height()));
}
QByteArray scanLine(const LImage& i, int y)
{
    checkRow(i, y);
    return QByteArray(reinterpret_cast<const char*>(i.image.constScanLine(y)), i.image.bytesPerLine());
}
// Takes as many bytes as the row holds; a shorter string leaves the rest of the row.
void setScanLine(LImage& i, int y, const QByteArray& bytes)
{
    checkRow(i, y);
    std::memcpy(i.image.scanLine(y), bytes.constData(), size_t(qMin<qsizetype>(bytes.size(), i.image.bytesPerLine())));
}
int pixelIndex(const LImage& i, int x, int y)
{
    if (!i.image.valid(x, y) || i.image.format() != QImage::Format_Indexed8)
        return -1;
    return i.image.pixelIndex(x, y);
}
unsigned int color(const LImage& i, int index)
{
    checkIndex(index, int(i.image.colorCount()));
    return i.image.color(index);
}
luabind::object colorTableOf(lua_State* state, const LImage& i)
{
    luabind::object table = luabind::newtable(state);
    const QVector<QRgb> colours = i.image.colorTable();
    for (int index = 0; index < colours.size(); ++index)
        table[index + 1] = colours[index];
    return table;
}
void setColorTable(LImage& i, const luabind::object& table)
{
    QVector<QRgb> colours;
    for (int index = 1; luabind::type(table[index]) == LUA_TNUMBER; ++index)
        colours << luabind::object_cast<unsigned int>(table[index]);
    i.image.setColorTable(colours);
}
int colorCount(const LImage& i) { return int(i.image.colorCount()); }
LImage convertToFormat(const LImage& i, int format) { return LImage(i.image.convertToFormat(QImage::Format(format))); }
LImage scaled(const LImage& i, int width, int height) { return LImage(i.image.scaled(width, height)); }
LImage copy(const LImage& i, const QRect& rect) { return LImage(i.image.copy(rect)); }
void fill(LImage& i, unsigned int value) { i.image.fill(value); }
QSize size(const LImage& i) { return i.image.size(); }
QRect rect(const LImage& i) { return i.image.rect(); }
bool valid(const LImage& i, int x, int y) { return i.image.valid(x, y); }

// Writes through a save file: a failed save leaves the previous file whole.
bool save(const LImage& i, const QString& fileName, const QString& format)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QImageWriter writer(&file, format.toLatin1());
    return writer.write(i.image) && file.commit();
}
// The format named by the file's suffix.
bool saveGuessing(const LImage& i, const QString& fileName) { return save(i, fileName, QFileInfo(fileName).suffix()); }
LImage load(const QString& fileName) { return LImage(QImageReader(fileName).read()); }

} // namespace

void registerLuaImage(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LImage>("Image")
            .def(constructor<int, int>())
            .def(constructor<const LImage&>())
            .def("__init", &withFormat)
            .enum_("constants")[
                value("Format_Indexed8", QImage::Format_Indexed8), value("Format_Mono", QImage::Format_Mono),
                value("Format_RGB32", QImage::Format_RGB32), value("Format_ARGB32", QImage::Format_ARGB32),
                value("Format_ARGB32_Premultiplied", QImage::Format_ARGB32_Premultiplied),
                value("Format_RGB888", QImage::Format_RGB888), value("Format_Grayscale8", QImage::Format_Grayscale8)
            ]
            .property("format", &format)
            .property("depth", &depth)
            .property("size", &size)
            .property("rect", &rect)
            .property("bytesPerLine", &bytesPerLine)
            .property("colorCount", &colorCount)
            .def("getBits", &getBits)
            .def("getByteCount", &getByteCount)
            .def("scanLine", &scanLine)
            .def("setScanLine", &setScanLine)
            .def("pixelIndex", &pixelIndex)
            .def("valid", &valid)
            .def("color", &color)
            .def("colorTable", &colorTableOf)
            .def("setColorTable", &setColorTable)
            .def("convertToFormat", &convertToFormat)
            .def("mirrored", &mirroredVertically)
            .def("scaled", &scaled)
            .def("copy", &copy)
            .def("fill", &fill)
            .def("save", &save)
            .def("save", &saveGuessing)
            .scope[def("fromData", &fromData), def("load", &load)]
            .property("width", &width)
            .property("height", &height)
            .property("isNull", &isNull)
            .property("isIndexed", &isIndexed)
            .def("setColor", &setColor)
            .def("pixel", &pixel)
            .def("setPixel", &setPixel)
            .def("fillRect", &fillRect)
            .def("fillEllipse", &fillEllipse)
            .def("opaqueBounds", &opaque)
            .def("mirrored", &mirrored)
    ];
}
