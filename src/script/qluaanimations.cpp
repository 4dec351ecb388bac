// Animations, Animation, AnimationFrame, HitBoxes and HitBox: the AIR of the
// project. Edits go through the AIR's text, so they are undone there.
#include "qluabindings.h"
#include "qluawrappers.h"
#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QTextDocument>

QAnimations* LAnimation::owner() const
{
    if (!m_owner)
        throw deletedObject();
    return m_owner.data();
}

QAnimation* LAnimation::animation() const
{
    if (!owner()->animations().contains(m_animation))
        throw deletedObject();
    return m_animation;
}

QAnimationFrame* LAnimationFrame::frame() const
{
    if (!m_animation.animation()->frames().contains(m_frame))
        throw deletedObject();
    return m_frame;
}

QCollisionBoxes* LHitBoxes::boxes() const
{
    return m_frame.frame()->collisionBoxes(QCollisionBoxType(m_type));
}

QCollisionBox* LHitBox::box() const
{
    QCollisionBoxes* boxes = m_boxes.boxes();
    if (!boxes || !boxes->boxes().contains(m_box))
        throw deletedObject();
    return m_box;
}

namespace {

QAnimations* list(const LAnimations& a) { return a.animations(); }
int count(const LAnimations& a) { return list(a)->count(); }

LAnimation at(const LAnimations& a, int position)
{
    checkIndex(position, count(a));
    return LAnimation(list(a), list(a)->at(position));
}

luabind::object made(lua_State* state, const LAnimations& a, QAnimation* animation)
{
    return animation ? luabind::object(state, LAnimation(list(a), animation)) : luabind::object();
}

luabind::object add(lua_State* state, const LAnimations& a, int number) { return made(state, a, list(a)->add(number)); }

luabind::object insert(lua_State* state, const LAnimations& a, int position, int number)
{
    checkIndex(position, count(a) + 1);
    return made(state, a, list(a)->insert(unsigned(position), number));
}

luabind::object duplicate(lua_State* state, const LAnimations& a, int position, int number)
{
    checkIndex(position, count(a));
    return made(state, a, list(a)->duplicate(unsigned(position), number));
}

void removeAnimation(const LAnimations& a, int position)
{
    checkIndex(position, count(a));
    list(a)->remove(unsigned(position));
}

void move(const LAnimations& a, int from, int to)
{
    checkIndex(from, count(a));
    checkIndex(to, count(a));
    list(a)->move(unsigned(from), unsigned(to));
}

int currentIndex(const LAnimations& a) { return int(list(a)->currentIndex()); }
void setCurrentIndex(const LAnimations& a, int index) { list(a)->setCurrentIndex(unsigned(index)); }
bool isModified(const LAnimations& a) { return list(a)->isModified(); }
int findByNumber(const LAnimations& a, int number) { return list(a)->find(0, number); }
int findByName(const LAnimations& a, const std::string& name) { return list(a)->find(0, lua::str(name)); }
void autoOrganize(const LAnimations& a) { list(a)->autoOrganize(); }
void undo(const LAnimations& a) { list(a)->textEditor()->document()->undo(); }
void redo(const LAnimations& a) { list(a)->textEditor()->document()->redo(); }
LTextDocument text(const LAnimations& a) { return LTextDocument(list(a)->textEditor()); }

int number(const LAnimation& a) { return a.animation()->number(); }
void setNumber(const LAnimation& a, int number) { a.animation()->setNumber(number); }
std::string name(const LAnimation& a) { return lua::std(a.animation()->nameText()); }
void setName(const LAnimation& a, const std::string& name) { a.animation()->setNameText(lua::str(name)); }
std::string animationText(const LAnimation& a) { return lua::std(a.animation()->text()); }
void setAnimationText(const LAnimation& a, const std::string& text) { a.animation()->setText(lua::str(text)); }
int frameCount(const LAnimation& a) { return a.animation()->frameCount(); }
int totalTime(const LAnimation& a) { return a.animation()->totalTime(); }
int currentFrameIndex(const LAnimation& a) { return int(a.animation()->frameIndex()); }
void setCurrentFrameIndex(const LAnimation& a, int index) { a.animation()->setFrameIndex(unsigned(index)); }

LAnimationFrame frameAt(const LAnimation& a, int index)
{
    checkIndex(index, frameCount(a));
    return LAnimationFrame(a, a.animation()->frame(index));
}

luabind::object frameMade(lua_State* state, const LAnimation& a, QAnimationFrame* frame)
{
    return frame ? luabind::object(state, LAnimationFrame(a, frame)) : luabind::object();
}

luabind::object frameAdd(lua_State* state, const LAnimation& a) { return frameMade(state, a, a.animation()->addFrame()); }

luabind::object frameInsert(lua_State* state, const LAnimation& a, int position)
{
    checkIndex(position, frameCount(a) + 1);
    return frameMade(state, a, a.animation()->insertFrame(unsigned(position)));
}

// The frame's fields are written as one line: each setter rewrites it with one value changed.
struct FrameFields
{
    explicit FrameFields(QAnimationFrame* frame)
        : frame(frame), sprite(frame->sprite()), offset(frame->offset()), time(frame->time()),
          flip(frame->flipFlags()), blend(frame->blend()), target(frame->blendTarget()),
          scale(frame->scaleFactor()), angle(frame->angle())
    {
    }
    void write() { frame->setProperties(sprite, offset, time, flip, blend, target, scale, angle); }

    QAnimationFrame* frame;
    QSubItem sprite;
    QPoint offset;
    int time;
    unsigned int flip;
    QAnimationFrameBlend blend;
    QBlendTarget target;
    QPointF scale;
    double angle;
};

LAnimation parent(const LAnimationFrame& f) { return f.animation(); }
int spriteGroup(const LAnimationFrame& f) { return f.frame()->spriteGroup(); }
int spriteIndex(const LAnimationFrame& f) { return f.frame()->spriteIndex(); }
int offsetX(const LAnimationFrame& f) { return f.frame()->offsetX(); }
int offsetY(const LAnimationFrame& f) { return f.frame()->offsetY(); }
int frameTime(const LAnimationFrame& f) { return f.frame()->time(); }
int flip(const LAnimationFrame& f) { return int(f.frame()->flipFlags()); }
int blend(const LAnimationFrame& f) { return f.frame()->blend(); }
double scaleX(const LAnimationFrame& f) { return f.frame()->scaleX(); }
double scaleY(const LAnimationFrame& f) { return f.frame()->scaleY(); }
double angle(const LAnimationFrame& f) { return f.frame()->angle(); }
int frameIndex(const LAnimationFrame& f) { return f.frame()->index(); }

void setSprite(const LAnimationFrame& f, int group, int index)
{
    FrameFields fields(f.frame());
    fields.sprite = QSubItem(group, index);
    fields.write();
}

void setSpriteGroup(const LAnimationFrame& f, int group) { setSprite(f, group, f.frame()->spriteIndex()); }
void setSpriteIndex(const LAnimationFrame& f, int index) { setSprite(f, f.frame()->spriteGroup(), index); }
void setOffsetX(const LAnimationFrame& f, int x) { f.frame()->setOffset(QPoint(x, f.frame()->offsetY())); }
void setOffsetY(const LAnimationFrame& f, int y) { f.frame()->setOffset(QPoint(f.frame()->offsetX(), y)); }
void setScaleX(const LAnimationFrame& f, double scale) { f.frame()->setScaleX(scale); }
void setScaleY(const LAnimationFrame& f, double scale) { f.frame()->setScaleY(scale); }
void setAngle(const LAnimationFrame& f, double angle) { f.frame()->setAngle(angle); }

void setTime(const LAnimationFrame& f, int time)
{
    FrameFields fields(f.frame());
    fields.time = time;
    fields.write();
}

void setFlip(const LAnimationFrame& f, int flip)
{
    FrameFields fields(f.frame());
    fields.flip = unsigned(flip) & 3;
    fields.write();
}

void setBlend(const LAnimationFrame& f, int blend, int source, int destination)
{
    FrameFields fields(f.frame());
    fields.blend = QAnimationFrameBlend(qBound(0, blend, 2));
    fields.target.source = qint16(source);
    fields.target.destination = qint16(destination);
    fields.write();
}

bool checkInterFrame(const LAnimationFrame& f, int type) { return f.frame()->checkInterElem(QInterFrameElementType(type)); }
void setInterFrame(const LAnimationFrame& f, int type, bool on) { f.frame()->setInterElem(QInterFrameElementType(type), on); }
LHitBoxes hitBoxes(const LAnimationFrame& f, int type) { return LHitBoxes(f, type & 3); }

luabind::object insertBox(lua_State* state, const LAnimationFrame& f, int type, int x1, int y1, int x2, int y2)
{
    QCollisionBox* box = f.frame()->insertBox(QCollisionBoxType(type & 3), QRect(QPoint(x1, y1), QPoint(x2, y2)));
    return box ? luabind::object(state, LHitBox(LHitBoxes(f, type & 3), box)) : luabind::object();
}

int boxCount(const LHitBoxes& b)
{
    const QCollisionBoxes* boxes = b.boxes();
    return boxes ? boxes->count() : 0;
}

LHitBox boxAt(const LHitBoxes& b, int index)
{
    checkIndex(index, boxCount(b));
    return LHitBox(b, b.boxes()->at(index));
}

luabind::object boxInsert(lua_State* state, const LHitBoxes& b, int x1, int y1, int x2, int y2)
{
    return insertBox(state, b.frame(), b.type(), x1, y1, x2, y2);
}

void boxClear(const LHitBoxes& b)
{
    if (QCollisionBoxes* boxes = b.boxes())
        boxes->clear();
}

int boxesType(const LHitBoxes& b) { return b.type(); }
int left(const LHitBox& b) { return b.box()->left(); }
int top(const LHitBox& b) { return b.box()->top(); }
int right(const LHitBox& b) { return b.box()->right(); }
int bottom(const LHitBox& b) { return b.box()->bottom(); }
void setRect(const LHitBox& b, int x1, int y1, int x2, int y2) { b.box()->setRect(QRect(QPoint(x1, y1), QPoint(x2, y2))); }

} // namespace

void registerLuaAnimations(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LAnimations, LObject>("Animations")
            .property("count", &count)
            .property("currentIndex", &currentIndex, &setCurrentIndex)
            .property("isModified", &isModified)
            .property("text", &text)
            .def("at", &at)
            .def("add", &add)
            .def("insert", &insert)
            .def("duplicate", &duplicate)
            .def("remove", &removeAnimation)
            .def("move", &move)
            .def("findByNumber", &findByNumber)
            .def("findByName", &findByName)
            .def("autoOrganize", &autoOrganize)
            .def("undo", &undo)
            .def("redo", &redo),
        class_<LAnimation>("Animation")
            .property("number", &number, &setNumber)
            .property("name", &name, &setName)
            .property("text", &animationText, &setAnimationText)
            .property("frameCount", &frameCount)
            .property("totalTime", &totalTime)
            .property("currentFrameIndex", &currentFrameIndex, &setCurrentFrameIndex)
            .def("frameAt", &frameAt)
            .def("frameAdd", &frameAdd)
            .def("frameInsert", &frameInsert),
        class_<LAnimationFrame>("AnimationFrame")
            .enum_("blend")[value("Addition", afbAdditive), value("Subtraction", afbSubtractive)]
            .enum_("flip")[value("Horizontally", 1), value("Vertically", 2), value("Both", 3)]
            .enum_("interframe")[value("LoopStart", ifeLoopStart), value("InterpolateBlend", ifeBlend),
                                 value("InterpolateOffset", ifeOffset), value("InterpolateScale", ifeScale),
                                 value("InterpolateAngle", ifeAngle)]
            .property("parent", &parent)
            .property("index", &frameIndex)
            .property("spriteGroup", &spriteGroup, &setSpriteGroup)
            .property("spriteIndex", &spriteIndex, &setSpriteIndex)
            .property("offsetX", &offsetX, &setOffsetX)
            .property("offsetY", &offsetY, &setOffsetY)
            .property("time", &frameTime, &setTime)
            .property("flip", &flip, &setFlip)
            .property("blend", &blend)
            .property("scaleX", &scaleX, &setScaleX)
            .property("scaleY", &scaleY, &setScaleY)
            .property("angle", &angle, &setAngle)
            .def("setSprite", &setSprite)
            .def("setBlend", &setBlend)
            .def("checkInterFrame", &checkInterFrame)
            .def("setInterFrame", &setInterFrame)
            .def("hitBoxes", &hitBoxes)
            .def("insertBox", &insertBox),
        class_<LHitBoxes>("HitBoxes")
            .enum_("type")[value("Attack", cbtClsn1), value("Collision", cbtClsn2),
                           value("AttackDefault", cbtClsn1Default), value("CollisionDefault", cbtClsn2Default)]
            .property("count", &boxCount)
            .property("type", &boxesType)
            .def("at", &boxAt)
            .def("insert", &boxInsert)
            .def("clear", &boxClear),
        class_<LHitBox>("HitBox")
            .property("x1", &left)
            .property("y1", &top)
            .property("x2", &right)
            .property("y2", &bottom)
            .def("setRect", &setRect)
    ];
}
