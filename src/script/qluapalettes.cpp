// SpritePalette and the palette members of Sprites: the colour tables of the SFF.
#include "qluabindings.h"
#include "qluapalettes.h"
#include "model/qsprites.h"

QSpritePalette* LSpritePalette::palette() const
{
    auto* palette = live<QSpritePalette>();
    if (palette->index() < 0)
        throw deletedObject();
    return palette;
}

namespace {

// A Lua array of up to 256 colour values (rgb()) as a colour table.
QVector<QRgb> colourTable(const luabind::object& colours)
{
    if (luabind::type(colours) != LUA_TTABLE)
        throw lua::fault(QStringLiteral("a table of colours is needed"));
    QVector<QRgb> table(256, qRgb(0, 0, 0));
    for (int i = 0; i < 256; ++i) {
        const luabind::object entry = colours[i + 1];
        if (luabind::type(entry) == LUA_TNUMBER)
            table[i] = luabind::object_cast<unsigned int>(entry);
    }
    return table;
}

int paletteCount(const LSprites& s) { return s.sprites()->paletteCount(); }

LSpritePalette paletteAt(const LSprites& s, int position)
{
    checkIndex(position, paletteCount(s));
    return LSpritePalette(s.sprites()->paletteAt(position));
}

LSpritePalette addPalette(const LSprites& s, const luabind::object& colours, int group, int index)
{
    return LSpritePalette(s.sprites()->addPalette(colourTable(colours), spsNew, group, index));
}

void removePalette(const LSprites& s, int position)
{
    checkIndex(position, paletteCount(s));
    s.sprites()->removePalette(position);
}

int findPalette(const LSprites& s, int group, int index) { return s.sprites()->findPalette(0, group, index); }
void removeDuplicatePalettes(const LSprites& s) { s.sprites()->removeDuplicatePalettes(); }
void clearPalettes(const LSprites& s) { s.sprites()->clearPalettes(); }
void clearUnusedPalettes(const LSprites& s) { s.sprites()->clearUnusedPalettes(); }

int colorCount(const LSpritePalette& p) { return p.palette()->colorCount(); }
void setColorCount(const LSpritePalette& p, int count) { p.palette()->setColorCount(quint16(qBound(0, count, 256))); }
int group(const LSpritePalette& p) { return p.palette()->itemGroup(); }
void setGroup(const LSpritePalette& p, int group) { p.palette()->setItemGroup(group); }
int paletteItemIndex(const LSpritePalette& p) { return p.palette()->itemIndex(); }
void setIndex(const LSpritePalette& p, int index) { p.palette()->setItemIndex(index); }

unsigned int color(const LSpritePalette& p, int index)
{
    checkIndex(index, 256);
    return p.palette()->colorTable().at(index);
}

void setColors(const LSpritePalette& p, const luabind::object& colours)
{
    p.palette()->setColorTable(colourTable(colours), ssmPrivate);
}

} // namespace

void bindSpritePalettes(luabind::class_<LSprites, LObject>& sprites)
{
    sprites.property("paletteCount", &paletteCount)
        .def("paletteAt", &paletteAt)
        .def("addPalette", &addPalette)
        .def("removePalette", &removePalette)
        .def("findPalette", &findPalette)
        .def("removeDuplicatePalettes", &removeDuplicatePalettes)
        .def("clearPalettes", &clearPalettes)
        .def("clearUnusedPalettes", &clearUnusedPalettes);
}

void registerLuaPalettes(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LSpritePalette, LObject>("SpritePalette")
            .property("colorCount", &colorCount, &setColorCount)
            .property("itemGroup", &group, &setGroup)
            .property("itemIndex", &paletteItemIndex, &setIndex)
            .def("color", &color)
            .def("setColors", &setColors)
    ];
}
