// Point, Line, Rect, Size, Margins, Polygon, Region: Qt's integer geometry
// as plain values, with Qt's names, for the boxes, sprite bounds and drawing
// of scripts.
#include "qluabindings.h"
#include "qluaqt.h"
#include "qluatableinit.h"

#include <QLine>
#include <QMargins>
#include <QPoint>
#include <QPolygon>
#include <QRect>
#include <QRegion>
#include <QSize>

namespace {

QString pointText(const QPoint& p) { return QStringLiteral("Point(%1, %2)").arg(p.x()).arg(p.y()); }
QString sizeText(const QSize& s) { return QStringLiteral("Size(%1, %2)").arg(s.width()).arg(s.height()); }
QString lineText(const QLine& l)
{
    return QStringLiteral("Line(%1, %2, %3, %4)").arg(l.x1()).arg(l.y1()).arg(l.x2()).arg(l.y2());
}
QString rectText(const QRect& r)
{
    return QStringLiteral("Rect(%1, %2, %3, %4)").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}
QString marginsText(const QMargins& m)
{
    return QStringLiteral("Margins(%1, %2, %3, %4)").arg(m.left()).arg(m.top()).arg(m.right()).arg(m.bottom());
}
QString polygonText(const QPolygon& p) { return QStringLiteral("Polygon(%1 points)").arg(p.size()); }
QString regionText(const QRegion& r)
{
    return QStringLiteral("Region(%1 rectangles, bounds %2)").arg(r.rectCount()).arg(rectText(r.boundingRect()));
}

template<class T>
T plus(const T& a, const T& b) { return a + b; }
template<class T>
T minus(const T& a, const T& b) { return a - b; }

QPoint times(const QPoint& p, double factor) { return p * factor; }
QSize sizeTimes(const QSize& s, double factor) { return s * factor; }

// x and y of a rectangle move it and keep its size, so that a table
// {x=, y=, width=, height=} gives the same rectangle in any order; left,
// top, right and bottom move one edge, as Qt's do.
void moveX(QRect& r, int x) { r.moveLeft(x); }
void moveY(QRect& r, int y) { r.moveTop(y); }
bool containsPoint(const QRect& r, const QPoint& p) { return r.contains(p); }
bool containsXY(const QRect& r, int x, int y) { return r.contains(x, y); }
bool containsRect(const QRect& r, const QRect& other) { return r.contains(other); }
void moveTo(QRect& r, int x, int y) { r.moveTo(x, y); }
void translate(QRect& r, int dx, int dy) { r.translate(dx, dy); }
QRect translated(const QRect& r, int dx, int dy) { return r.translated(dx, dy); }
QRect marginsAdded(const QRect& r, const QMargins& m) { return r.marginsAdded(m); }
QRect marginsRemoved(const QRect& r, const QMargins& m) { return r.marginsRemoved(m); }

// A polygon's table form is its points, in order: Polygon{Point(0, 0), Point(4, 0)}.
void polygonFromTable(const luabind::argument& self, const luabind::object& table)
{
    if (luabind::type(table) != LUA_TTABLE)
        throw lua::fault(QStringLiteral("Polygon: a table of points is needed"));
    QPolygon points;
    for (luabind::iterator item(table), end; item != end; ++item) {
        const auto point = luabind::object_cast_nothrow<QPoint>(luabind::rawget(table, item.key()));
        if (!point)
            throw lua::fault(QStringLiteral("Polygon: every item of the table must be a Point"));
        points << *point;
    }
    lua::initAs(self, points);
}

void checkPoint(const QPolygon& p, int index)
{
    if (index < 0 || index >= p.size())
        throw lua::fault(QStringLiteral("Polygon: no point %1 of %2").arg(index).arg(p.size()));
}
QPoint pointAt(const QPolygon& p, int index)
{
    checkPoint(p, index);
    return p.at(index);
}
void setPoint(QPolygon& p, int index, const QPoint& point)
{
    checkPoint(p, index);
    p.setPoint(index, point);
}
void pushBack(QPolygon& p, const QPoint& point) { p.push_back(point); }
void pushFront(QPolygon& p, const QPoint& point) { p.push_front(point); }
int pointCount(const QPolygon& p) { return int(p.size()); }
bool polygonContains(const QPolygon& p, const QPoint& point) { return p.containsPoint(point, Qt::OddEvenFill); }
void translatePolygon(QPolygon& p, int dx, int dy) { p.translate(dx, dy); }
void clearPolygon(QPolygon& p) { p.clear(); }
bool polygonIsEmpty(const QPolygon& p) { return p.isEmpty(); }

bool regionContainsPoint(const QRegion& r, const QPoint& p) { return r.contains(p); }
bool regionContainsRect(const QRegion& r, const QRect& rect) { return r.contains(rect); }
QRegion regionPlus(const QRegion& a, const QRegion& b) { return a.united(b); }
QRegion regionMinus(const QRegion& a, const QRegion& b) { return a.subtracted(b); }
QRegion regionTranslated(const QRegion& r, int dx, int dy) { return r.translated(dx, dy); }
int rectCount(const QRegion& r) { return r.rectCount(); }
luabind::object regionRects(lua_State* state, const QRegion& r)
{
    luabind::object table = luabind::newtable(state);
    int index = 1;
    for (const QRect& rect : r)
        table[index++] = rect;
    return table;
}

void registerPointAndSize(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QPoint>("Point")
            .def(constructor<>())
            .def(constructor<int, int>())
            .def(constructor<const QPoint&>())
            .def("__init", &lua::initFromTable<QPoint>)
            .property("x", lua::bare<&QPoint::x>, lua::bare<&QPoint::setX>)
            .property("y", lua::bare<&QPoint::y>, lua::bare<&QPoint::setY>)
            .property("manhattanLength", lua::bare<&QPoint::manhattanLength>)
            .def("isNull", lua::bare<&QPoint::isNull>)
            .def("transposed", lua::bare<&QPoint::transposed>)
            .def("__eq", &lua::equal<QPoint>)
            .def("__add", &plus<QPoint>)
            .def("__sub", &minus<QPoint>)
            .def("__mul", &times)
            .def("__tostring", &pointText),
        class_<QSize>("Size")
            .def(constructor<>())
            .def(constructor<int, int>())
            .def(constructor<const QSize&>())
            .def("__init", &lua::initFromTable<QSize>)
            .property("width", lua::bare<&QSize::width>, lua::bare<&QSize::setWidth>)
            .property("height", lua::bare<&QSize::height>, lua::bare<&QSize::setHeight>)
            .def("isNull", lua::bare<&QSize::isNull>)
            .def("isEmpty", lua::bare<&QSize::isEmpty>)
            .def("isValid", lua::bare<&QSize::isValid>)
            .def("transposed", lua::bare<&QSize::transposed>)
            .def("expandedTo", lua::bare<&QSize::expandedTo>)
            .def("boundedTo", lua::bare<&QSize::boundedTo>)
            .def("__eq", &lua::equal<QSize>)
            .def("__add", &plus<QSize>)
            .def("__sub", &minus<QSize>)
            .def("__mul", &sizeTimes)
            .def("__tostring", &sizeText),
        class_<QMargins>("Margins")
            .def(constructor<>())
            .def(constructor<int, int, int, int>())
            .def(constructor<const QMargins&>())
            .def("__init", &lua::initFromTable<QMargins>)
            .property("left", lua::bare<&QMargins::left>, lua::bare<&QMargins::setLeft>)
            .property("top", lua::bare<&QMargins::top>, lua::bare<&QMargins::setTop>)
            .property("right", lua::bare<&QMargins::right>, lua::bare<&QMargins::setRight>)
            .property("bottom", lua::bare<&QMargins::bottom>, lua::bare<&QMargins::setBottom>)
            .def("isNull", lua::bare<&QMargins::isNull>)
            .def("__eq", &lua::equal<QMargins>)
            .def("__add", &plus<QMargins>)
            .def("__sub", &minus<QMargins>)
            .def("__tostring", &marginsText),
        class_<QLine>("Line")
            .def(constructor<>())
            .def(constructor<int, int, int, int>())
            .def(constructor<const QPoint&, const QPoint&>())
            .def(constructor<const QLine&>())
            .def("__init", &lua::initFromTable<QLine>)
            .property("p1", lua::bare<&QLine::p1>, lua::bare<&QLine::setP1>)
            .property("p2", lua::bare<&QLine::p2>, lua::bare<&QLine::setP2>)
            .property("x1", lua::bare<&QLine::x1>)
            .property("y1", lua::bare<&QLine::y1>)
            .property("x2", lua::bare<&QLine::x2>)
            .property("y2", lua::bare<&QLine::y2>)
            .property("dx", lua::bare<&QLine::dx>)
            .property("dy", lua::bare<&QLine::dy>)
            .def("isNull", lua::bare<&QLine::isNull>)
            .def("setLine", lua::bare<&QLine::setLine>)
            .def("translated", lua::bare<static_cast<QLine (QLine::*)(int, int) const>(&QLine::translated)>)
            .def("__eq", &lua::equal<QLine>)
            .def("__tostring", &lineText)
    ];
}

void registerRect(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QRect>("Rect")
            .def(constructor<>())
            .def(constructor<int, int, int, int>())
            .def(constructor<const QPoint&, const QSize&>())
            .def(constructor<const QPoint&, const QPoint&>())
            .def(constructor<const QRect&>())
            .def("__init", &lua::initFromTable<QRect>)
            .property("x", lua::bare<&QRect::x>, &moveX)
            .property("y", lua::bare<&QRect::y>, &moveY)
            .property("width", lua::bare<&QRect::width>, lua::bare<&QRect::setWidth>)
            .property("height", lua::bare<&QRect::height>, lua::bare<&QRect::setHeight>)
            .property("left", lua::bare<&QRect::left>, lua::bare<&QRect::setLeft>)
            .property("top", lua::bare<&QRect::top>, lua::bare<&QRect::setTop>)
            .property("right", lua::bare<&QRect::right>, lua::bare<&QRect::setRight>)
            .property("bottom", lua::bare<&QRect::bottom>, lua::bare<&QRect::setBottom>)
            .property("topLeft", lua::bare<&QRect::topLeft>, lua::bare<&QRect::setTopLeft>)
            .property("bottomRight", lua::bare<&QRect::bottomRight>, lua::bare<&QRect::setBottomRight>)
            .property("size", lua::bare<&QRect::size>, lua::bare<&QRect::setSize>)
            .property("center", lua::bare<&QRect::center>, lua::bare<&QRect::moveCenter>)
            .def("isNull", lua::bare<&QRect::isNull>)
            .def("isEmpty", lua::bare<&QRect::isEmpty>)
            .def("isValid", lua::bare<&QRect::isValid>)
            .def("normalized", lua::bare<&QRect::normalized>)
            .def("contains", &containsPoint)
            .def("contains", &containsXY)
            .def("contains", &containsRect)
            .def("intersects", lua::bare<&QRect::intersects>)
            .def("intersected", lua::bare<&QRect::intersected>)
            .def("united", lua::bare<&QRect::united>)
            .def("adjusted", lua::bare<&QRect::adjusted>)
            .def("adjust", lua::bare<&QRect::adjust>)
            .def("moveTo", &moveTo)
            .def("translate", &translate)
            .def("translated", &translated)
            .def("marginsAdded", &marginsAdded)
            .def("marginsRemoved", &marginsRemoved)
            .def("setRect", lua::bare<&QRect::setRect>)
            .def("__eq", &lua::equal<QRect>)
            .def("__tostring", &rectText)
    ];
}

void registerPolygonAndRegion(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QPolygon>("Polygon")
            .def(constructor<>())
            .def(constructor<const QRect&>())
            .def(constructor<const QPolygon&>())
            .def("__init", &polygonFromTable)
            .property("count", &pointCount)
            .property("boundingRect", lua::bare<&QPolygon::boundingRect>)
            .def("size", &pointCount)
            .def("__len", &pointCount)
            .def("isEmpty", &polygonIsEmpty)
            .def("at", &pointAt)
            .def("point", &pointAt)
            .def("setPoint", &setPoint)
            .def("push_back", &pushBack)
            .def("push_front", &pushFront)
            .def("append", &pushBack)
            .def("clear", &clearPolygon)
            .def("containsPoint", &polygonContains)
            .def("translate", &translatePolygon)
            .def("__eq", &lua::equal<QPolygon>)
            .def("__tostring", &polygonText),
        class_<QRegion>("Region")
            .def(constructor<>())
            .def(constructor<int, int, int, int>())
            .def(constructor<const QRect&>())
            .def(constructor<const QPolygon&>())
            .def(constructor<const QRegion&>())
            .property("boundingRect", lua::bare<&QRegion::boundingRect>)
            .property("rectCount", &rectCount)
            .def("rects", &regionRects)
            .def("isEmpty", lua::bare<&QRegion::isEmpty>)
            .def("isNull", lua::bare<&QRegion::isNull>)
            .def("contains", &regionContainsPoint)
            .def("contains", &regionContainsRect)
            .def("intersects", lua::bare<static_cast<bool (QRegion::*)(const QRegion&) const>(&QRegion::intersects)>)
            .def("intersected", lua::bare<static_cast<QRegion (QRegion::*)(const QRegion&) const>(&QRegion::intersected)>)
            .def("united", lua::bare<static_cast<QRegion (QRegion::*)(const QRegion&) const>(&QRegion::united)>)
            .def("subtracted", lua::bare<&QRegion::subtracted>)
            .def("xored", lua::bare<&QRegion::xored>)
            .def("translated", &regionTranslated)
            .def("__eq", &lua::equal<QRegion>)
            .def("__add", &regionPlus)
            .def("__sub", &regionMinus)
            .def("__tostring", &regionText)
    ];
}

} // namespace

void registerLuaRect(lua_State* state)
{
    registerPointAndSize(state);
    registerRect(state);
    registerPolygonAndRegion(state);
}
