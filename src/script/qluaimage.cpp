// Image: pixels a script draws (indexed, 256 colours) to give a sprite, or
// reads from one.
#include "qluabindings.h"
#include "qluaheaders.h"
#include "qluaimage.h"
#include "qluawrappers.h"
#include "image/qopaquebounds.h"

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

} // namespace

void registerLuaImage(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LImage>("Image")
            .def(constructor<int, int>())
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
