// Sprites and Sprite: the SFF of the project. Every change goes through the
// model's undoable edits.
#include "qluabindings.h"
#include "qluaimage.h"
#include "qluapalettes.h"
#include "qluawrappers.h"
#include "image/qopaquebounds.h"
#include "model/qsprites.h"

QSprite* LSprite::sprite() const
{
    auto* sprite = live<QSprite>();
    if (sprite->index() < 0)
        throw deletedObject();
    return sprite;
}

namespace {

QSprites* list(const LSprites& s) { return s.sprites(); }
int count(const LSprites& s) { return list(s)->count(); }
int groupCount(const LSprites& s) { return list(s)->groupCount(); }

LSprite at(const LSprites& s, int position)
{
    checkIndex(position, count(s));
    return LSprite(list(s)->at(position));
}

int find(const LSprites& s, int group, int index) { return list(s)->find(0, group, index); }
int nextIndex(const LSprites& s, int group) { return list(s)->nextSpriteIndex(group); }
LSprite add(const LSprites& s) { return LSprite(list(s)->add()); }
LSprite insert(const LSprites& s, int position) { return LSprite(list(s)->insert(position)); }

void removeSprite(const LSprites& s, int position)
{
    checkIndex(position, count(s));
    list(s)->remove(unsigned(position));
}

void move(const LSprites& s, int from, int to)
{
    checkIndex(from, count(s));
    checkIndex(to, count(s));
    list(s)->move(unsigned(from), unsigned(to));
}

void renameGroup(const LSprites& s, int group, int newGroup) { list(s)->renameGroup(group, newGroup, true, 0, 0); }
void renameRange(const LSprites& s, int group, int newGroup, int first, int last) { list(s)->renameGroup(group, newGroup, false, first, last); }
void removeGroup(const LSprites& s, int group) { list(s)->removeGroup(group, true, 0, 0); }
void fullAxis(const LSprites& s, int x, int y, bool relative, int group) { list(s)->fullAxis(x, y, relative, group); }
void crop(const LSprites& s, int group) { list(s)->crop(group); }
void autoOrganize(const LSprites& s) { list(s)->autoOrganize(); }
void undo(const LSprites& s) { list(s)->undo(); }
void redo(const LSprites& s) { list(s)->redo(); }
void beginMacro(const LSprites& s, const std::string& name) { list(s)->beginMacro(lua::str(name)); }
void endMacro(const LSprites& s) { list(s)->endMacro(); }
unsigned int version(const LSprites& s) { return list(s)->getVersion(); }
void setVersion(const LSprites& s, unsigned int version) { list(s)->setVersion(version); }
std::string fileName(const LSprites& s) { return lua::std(list(s)->fileName()); }
bool isModified(const LSprites& s) { return list(s)->isModified(); }

int group(const LSprite& s) { return s.sprite()->itemGroup(); }
void setGroup(const LSprite& s, int group) { s.sprite()->setItemGroup(group); }
int spriteItemIndex(const LSprite& s) { return s.sprite()->itemIndex(); }
void setIndex(const LSprite& s, int index) { s.sprite()->setItemIndex(index); }
int x(const LSprite& s) { return s.sprite()->offsetX(); }
void setX(const LSprite& s, int x) { s.sprite()->setOffsetX(x); }
int y(const LSprite& s) { return s.sprite()->offsetY(); }
void setY(const LSprite& s, int y) { s.sprite()->setOffsetY(y); }
int position(const LSprite& s) { return s.sprite()->index(); }
bool flag(const LSprite& s, int flag) { return s.sprite()->flag(QSpriteFlag(flag)); }
void setFlag(const LSprite& s, int flag, bool on) { s.sprite()->setFlag(QSpriteFlag(flag), on); }
bool imageIsShared(const LSprite& s) { return s.sprite()->imageIsShared(); }
int width(const LSprite& s) { return s.sprite()->imageInfo().width; }
int height(const LSprite& s) { return s.sprite()->imageInfo().height; }
LImage image(const LSprite& s) { return LImage(s.sprite()->image(sipOwn)); }
bool crop1(const LSprite& s) { return s.sprite()->crop(); }

// The sprite's new pixels; an indexed image brings its colours as the sprite's palette.
void setImage(const LSprite& s, const LImage& image)
{
    s.sprite()->setImage(image.image, ssmPrivate, false, spmNew);
}

void setImageWithPalette(const LSprite& s, const LImage& image, const LSpritePalette& palette)
{
    const QSpritePalette* pal = palette.palette();
    s.sprite()->setImage(image.image, ssmPrivate, false, spmUse, pal->subItem());
}

// Where the picture is not transparent, relative to the axis as the engine
// places boxes: x1, y1, x2, y2 with the axis at 0,0.
luabind::object bounds(lua_State* state, const LSprite& s)
{
    QSprite* sprite = s.sprite();
    const QRect opaque = opaqueBounds(sprite->image(sipOwn));
    luabind::object table = luabind::newtable(state);
    table["x1"] = opaque.left() - sprite->offsetX();
    table["y1"] = opaque.top() - sprite->offsetY();
    table["x2"] = opaque.right() + 1 - sprite->offsetX();
    table["y2"] = opaque.bottom() + 1 - sprite->offsetY();
    table["empty"] = opaque.isEmpty();
    return table;
}

} // namespace

void registerLuaSprites(lua_State* state)
{
    using namespace luabind;
    class_<LSprites, LObject> sprites("Sprites");
    bindSpritePalettes(sprites);
    module(state)[
        sprites
            .enum_("version")[value("Version_101", sffVersion101), value("Version_200", sffVersion200),
                              value("Version_201", sffVersion201)]
            .property("count", &count)
            .property("groupCount", &groupCount)
            .property("version", &version, &setVersion)
            .property("fileName", &fileName)
            .property("isModified", &isModified)
            .def("at", &at)
            .def("find", &find)
            .def("nextIndex", &nextIndex)
            .def("add", &add)
            .def("insert", &insert)
            .def("remove", &removeSprite)
            .def("move", &move)
            .def("renameGroup", &renameGroup)
            .def("renameGroup", &renameRange)
            .def("removeGroup", &removeGroup)
            .def("fullAxis", &fullAxis)
            .def("crop", &crop)
            .def("autoOrganize", &autoOrganize)
            .def("undo", &undo)
            .def("redo", &redo)
            .def("beginMacro", &beginMacro)
            .def("endMacro", &endMacro),
        class_<LSprite, LObject>("Sprite")
            .enum_("options")[value("DecompressOnLoad", sfDecompressOnLoad)]
            .property("itemGroup", &group, &setGroup)
            .property("itemIndex", &spriteItemIndex, &setIndex)
            .property("x", &x, &setX)
            .property("y", &y, &setY)
            .property("position", &position)
            .property("imageIsShared", &imageIsShared)
            .property("width", &width)
            .property("height", &height)
            .property("image", &image)
            .def("flag", &flag)
            .def("setFlag", &setFlag)
            .def("setImage", &setImage)
            .def("setImage", &setImageWithPalette)
            .def("bounds", &bounds)
            .def("crop", &crop1)
    ];
}
