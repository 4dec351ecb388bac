// Color, Brush, Pen, Font: what a Painter draws with, as values.
#include "qluabindings.h"
#include "qluaqt.h"
#include "qluatableinit.h"

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QPen>

namespace {


// A colour's table form starts from opaque black, so Color{red = 255} is red.
void colorFromTable(const luabind::argument& self, const luabind::object& table)
{
    lua::initAs(self, QColor(Qt::black));
    lua::applyTable(self, table);
}
// The colour as "#AARRGGBB" (or "invalid"), which Color(name) reads back.
QString colorName(const QColor& c) { return c.isValid() ? c.name(QColor::HexArgb) : QStringLiteral("invalid"); }
void setColorName(QColor& c, const QString& name) { c = QColor::fromString(name); }
QString colorText(const QColor& c) { return QStringLiteral("Color(%1)").arg(colorName(c)); }
unsigned int rgba(const QColor& c) { return c.rgba(); }
void setRgba(QColor& c, unsigned int value) { c.setRgba(value); }
unsigned int rgb(const QColor& c) { return c.rgb(); }
void setRgb(QColor& c, int r, int g, int b, int a) { c.setRgb(r, g, b, a); }
void setHsv(QColor& c, int h, int s, int v, int a) { c.setHsv(h, s, v, a); }
QColor fromHsv(int h, int s, int v) { return QColor::fromHsv(h, s, v); }
QColor lighter(const QColor& c, int factor) { return c.lighter(factor); }
QColor darker(const QColor& c, int factor) { return c.darker(factor); }

int brushStyle(const QBrush& b) { return int(b.style()); }
void setBrushStyle(QBrush& b, int style) { b.setStyle(Qt::BrushStyle(style)); }
QColor brushColor(const QBrush& b) { return b.color(); }
void setBrushColor(QBrush& b, const QColor& c) { b.setColor(c); }
void brushWith(const luabind::argument& self, const QColor& c, int style)
{
    lua::initAs(self, QBrush(c, Qt::BrushStyle(style)));
}

int penStyle(const QPen& p) { return int(p.style()); }
void setPenStyle(QPen& p, int style) { p.setStyle(Qt::PenStyle(style)); }
int capStyle(const QPen& p) { return int(p.capStyle()); }
void setCapStyle(QPen& p, int style) { p.setCapStyle(Qt::PenCapStyle(style)); }
int joinStyle(const QPen& p) { return int(p.joinStyle()); }
void setJoinStyle(QPen& p, int style) { p.setJoinStyle(Qt::PenJoinStyle(style)); }
void penWith(const luabind::argument& self, const QColor& c, double width)
{
    QPen pen(c);
    pen.setWidthF(width);
    lua::initAs(self, pen);
}

bool fontFromString(QFont& f, const QString& text) { return f.fromString(text); }
bool bold(const QFont& f) { return f.bold(); }
void setBold(QFont& f, bool on) { f.setBold(on); }
QString fontText(const QFont& f) { return QStringLiteral("Font(%1)").arg(f.toString()); }

void registerColor(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QColor>("Color")
            .def(constructor<>())
            .def(constructor<int, int, int>())
            .def(constructor<int, int, int, int>())
            .def(constructor<unsigned int>())
            .def(constructor<const QString&>())
            .def(constructor<const QColor&>())
            .def("__init", &colorFromTable)
            .property("red", lua::bare<&QColor::red>, lua::bare<&QColor::setRed>)
            .property("green", lua::bare<&QColor::green>, lua::bare<&QColor::setGreen>)
            .property("blue", lua::bare<&QColor::blue>, lua::bare<&QColor::setBlue>)
            .property("alpha", lua::bare<&QColor::alpha>, lua::bare<&QColor::setAlpha>)
            .property("hue", lua::bare<&QColor::hue>)
            .property("saturation", lua::bare<&QColor::saturation>)
            .property("value", lua::bare<&QColor::value>)
            .property("lightness", lua::bare<&QColor::lightness>)
            .property("name", &colorName, &setColorName)
            .property("rgba", &rgba, &setRgba)
            .property("rgb", &rgb)
            .def("isValid", lua::bare<&QColor::isValid>)
            .def("setRgb", &setRgb)
            .def("setHsv", &setHsv)
            .def("lighter", &lighter)
            .def("darker", &darker)
            .def("__eq", &lua::equal<QColor>)
            .def("__tostring", &colorText)
            .scope[def("fromHsv", &fromHsv)]
    ];
}

void registerBrushPenFont(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<QBrush>("Brush")
            .def(constructor<>())
            .def(constructor<const QColor&>())
            .def(constructor<const QBrush&>())
            .def("__init", &brushWith)
            .def("__init", &lua::initFromTable<QBrush>)
            .enum_("constants")[
                value("NoBrush", Qt::NoBrush), value("SolidPattern", Qt::SolidPattern),
                value("Dense4Pattern", Qt::Dense4Pattern), value("HorPattern", Qt::HorPattern),
                value("VerPattern", Qt::VerPattern), value("CrossPattern", Qt::CrossPattern),
                value("BDiagPattern", Qt::BDiagPattern), value("FDiagPattern", Qt::FDiagPattern),
                value("DiagCrossPattern", Qt::DiagCrossPattern)
            ]
            .property("color", &brushColor, &setBrushColor)
            .property("style", &brushStyle, &setBrushStyle)
            .def("isOpaque", lua::bare<&QBrush::isOpaque>)
            .def("__eq", &lua::equal<QBrush>),
        class_<QPen>("Pen")
            .def(constructor<>())
            .def(constructor<const QColor&>())
            .def(constructor<const QPen&>())
            .def("__init", &penWith)
            .def("__init", &lua::initFromTable<QPen>)
            .enum_("constants")[
                value("NoPen", Qt::NoPen), value("SolidLine", Qt::SolidLine), value("DashLine", Qt::DashLine),
                value("DotLine", Qt::DotLine), value("DashDotLine", Qt::DashDotLine),
                value("FlatCap", Qt::FlatCap), value("SquareCap", Qt::SquareCap), value("RoundCap", Qt::RoundCap),
                value("MiterJoin", Qt::MiterJoin), value("BevelJoin", Qt::BevelJoin), value("RoundJoin", Qt::RoundJoin)
            ]
            .property("color", lua::bare<&QPen::color>, lua::bare<&QPen::setColor>)
            .property("width", lua::bare<&QPen::widthF>, lua::bare<&QPen::setWidthF>)
            .property("style", &penStyle, &setPenStyle)
            .property("capStyle", &capStyle, &setCapStyle)
            .property("joinStyle", &joinStyle, &setJoinStyle)
            .property("brush", lua::bare<&QPen::brush>, lua::bare<&QPen::setBrush>)
            .property("cosmetic", lua::bare<&QPen::isCosmetic>, lua::bare<&QPen::setCosmetic>)
            .def("__eq", &lua::equal<QPen>),
        class_<QFont>("Font")
            .def(constructor<>())
            .def(constructor<const QString&>())
            .def(constructor<const QString&, int>())
            .def(constructor<const QFont&>())
            .def("__init", &lua::initFromTable<QFont>)
            .property("family", lua::bare<&QFont::family>, lua::bare<&QFont::setFamily>)
            .property("pointSize", lua::bare<&QFont::pointSize>, lua::bare<&QFont::setPointSize>)
            .property("pixelSize", lua::bare<&QFont::pixelSize>, lua::bare<&QFont::setPixelSize>)
            .property("bold", &bold, &setBold)
            .property("italic", lua::bare<&QFont::italic>, lua::bare<&QFont::setItalic>)
            .property("underline", lua::bare<&QFont::underline>, lua::bare<&QFont::setUnderline>)
            .property("strikeOut", lua::bare<&QFont::strikeOut>, lua::bare<&QFont::setStrikeOut>)
            .property("fixedPitch", lua::bare<&QFont::fixedPitch>, lua::bare<&QFont::setFixedPitch>)
            .def("toString", lua::bare<&QFont::toString>)
            .def("fromString", &fontFromString)
            .def("__eq", &lua::equal<QFont>)
            .def("__tostring", &fontText)
    ];
}

} // namespace

void registerLuaPaintValues(lua_State* state)
{
    registerColor(state);
    registerBrushPenFont(state);
}
