// Object, Variant, Timer and RegExp: what scripts do with Qt's objects
// beyond the program's models, their properties, timers and patterns.
#include "qluabindings.h"
#include "qluaobject.h"
#include "qluaqt.h"
#include "qluaslot.h"
#include "qluatableinit.h"
#include "qluavariant.h"

#include <QRegExp>
#include <QTimer>

namespace {

QString className(const LObject& o) { return QString::fromLatin1(o.object()->metaObject()->className()); }
bool inherits(const LObject& o, const QString& name) { return o.object()->inherits(name.toLatin1().constData()); }
luabind::object parent(lua_State* state, const LObject& o) { return wrapObject(state, o.object()->parent()); }

// setParent(nil) or the property set to nil takes the object out of its parent.
void setParent(LObject& o, const luabind::object& parent)
{
    QObject* newParent = nullptr;
    if (luabind::type(parent) != LUA_TNIL) {
        const auto cast = luabind::object_cast_nothrow<LObject*>(parent);
        if (!cast)
            throw lua::fault(QStringLiteral("setParent: an Object or nil is needed"));
        newParent = (*cast)->object();
    }
    o.object()->setParent(newParent);
}

luabind::object children(lua_State* state, const LObject& o)
{
    luabind::object table = luabind::newtable(state);
    int index = 1;
    for (QObject* child : o.object()->children())
        table[index++] = wrapObject(state, child);
    return table;
}

QVariant property(const LObject& o, const QString& name) { return o.object()->property(name.toUtf8().constData()); }

// Qt's answer: false for a declared property that refuses the value; a new name makes a dynamic property.
bool setProperty(LObject& o, const QString& name, const luabind::object& value)
{
    return o.object()->setProperty(name.toUtf8().constData(), lua::toVariant(value));
}

QStringList dynamicPropertyNames(const LObject& o)
{
    QStringList names;
    for (const QByteArray& name : o.object()->dynamicPropertyNames())
        names << QString::fromUtf8(name);
    return names;
}

int startTimer(LObject& o, int milliseconds) { return o.object()->startTimer(milliseconds); }
void killTimer(LObject& o, int id) { o.object()->killTimer(id); }
void deleteLater(LObject& o) { o.object()->deleteLater(); }
bool blockSignals(LObject& o, bool block) { return o.object()->blockSignals(block); }

void variantFromLua(const luabind::argument& self, const luabind::object& value)
{
    lua::initAs(self, lua::toVariant(value));
}
luabind::object variantValue(lua_State* state, const QVariant& v)
{
    if (v.userType() == qMetaTypeId<QVariant>())
        return luabind::object(state, v);
    return lua::fromVariant(state, v);
}
luabind::object variantObject(lua_State* state, const QVariant& v)
{
    return wrapObject(state, (v.metaType().flags() & QMetaType::PointerToQObject) ? v.value<QObject*>() : nullptr);
}
bool variantIsValid(const QVariant& v) { return v.isValid(); }
bool variantIsNull(const QVariant& v) { return v.isNull(); }
QString variantTypeName(const QVariant& v) { return QString::fromLatin1(v.typeName()); }
QString variantString(const QVariant& v) { return v.toString(); }
double variantNumber(const QVariant& v) { return v.toDouble(); }
int variantInt(const QVariant& v) { return v.toInt(); }
bool variantBool(const QVariant& v) { return v.toBool(); }
bool variantEqual(const QVariant& a, const QVariant& b) { return a == b; }
QString variantText(const QVariant& v)
{
    return v.isValid() ? QStringLiteral("Variant(%1: %2)").arg(variantTypeName(v), v.toString())
                       : QStringLiteral("Variant()");
}

/// A QTimer that a script made or was given.
class LTimer : public LObject
{
public:
    LTimer() : LObject(new QTimer, Owned()) {}
    explicit LTimer(int interval) : LTimer() { timer()->setInterval(interval); }
    explicit LTimer(QTimer* timer) : LObject(timer) {}
    QTimer* timer() const { return live<QTimer>(); }
};

int interval(const LTimer& t) { return t.timer()->interval(); }
void setInterval(LTimer& t, int milliseconds) { t.timer()->setInterval(milliseconds); }
bool isActive(const LTimer& t) { return t.timer()->isActive(); }
bool isSingleShot(const LTimer& t) { return t.timer()->isSingleShot(); }
void setSingleShot(LTimer& t, bool single) { t.timer()->setSingleShot(single); }
int timerId(const LTimer& t) { return t.timer()->timerId(); }
int remainingTime(const LTimer& t) { return t.timer()->remainingTime(); }
void start(LTimer& t) { t.timer()->start(); }
void startWith(LTimer& t, int milliseconds) { t.timer()->start(milliseconds); }
void stop(LTimer& t) { t.timer()->stop(); }
luabind::object timeout(lua_State* state, const LTimer& t)
{
    return QLuaSlot::assigned(state, t.timer(), QStringLiteral("timeout()"));
}
void setTimeout(LTimer& t, const luabind::object& function)
{
    QLuaSlot::assign(t.timer(), QStringLiteral("timeout()"), function);
}

// Timer.singleShot(ms, function): the function runs once, later, from the event loop.
void singleShot(int milliseconds, const luabind::object& function)
{
    auto* timer = new QTimer;
    timer->setSingleShot(true);
    QLuaSlot* slot = QLuaSlot::connect(timer, QStringLiteral("timeout()"), function, true);
    timer->setParent(slot);
    timer->start(milliseconds);
}

int caseSensitivity(const QRegExp& r) { return int(r.caseSensitivity()); }
void setCaseSensitivity(QRegExp& r, int value) { r.setCaseSensitivity(Qt::CaseSensitivity(value)); }
int patternSyntax(const QRegExp& r) { return int(r.patternSyntax()); }
void setPatternSyntax(QRegExp& r, int value) { r.setPatternSyntax(QRegExp::PatternSyntax(value)); }
QRegExp regExpWith(const QString& pattern, int sensitivity, int syntax)
{
    return QRegExp(pattern, Qt::CaseSensitivity(sensitivity), QRegExp::PatternSyntax(syntax));
}
void regExpInit(const luabind::argument& self, const QString& pattern, int sensitivity)
{
    lua::initAs(self, QRegExp(pattern, Qt::CaseSensitivity(sensitivity)));
}
int indexIn(const QRegExp& r, const QString& text) { return r.indexIn(text); }
int indexInFrom(const QRegExp& r, const QString& text, int offset) { return r.indexIn(text, offset); }
int lastIndexIn(const QRegExp& r, const QString& text) { return r.lastIndexIn(text); }
int lastIndexInFrom(const QRegExp& r, const QString& text, int offset) { return r.lastIndexIn(text, offset); }
QString cap(const QRegExp& r, int nth) { return r.cap(nth); }
QString capZero(const QRegExp& r) { return r.cap(0); }
int pos(const QRegExp& r, int nth) { return r.pos(nth); }
QStringList capturedTexts(const QRegExp& r) { return r.capturedTexts(); }
QString errorString(const QRegExp& r) { return r.errorString(); }
QString replaceIn(const QRegExp& r, const QString& text, const QString& after) { return r.replaceIn(text, after); }
QString regExpText(const QRegExp& r) { return QStringLiteral("RegExp(%1)").arg(r.pattern()); }

void registerObjectAndVariant(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LObject>("Object")
            .property("objectName", &LObject::objectName, &LObject::setObjectName)
            .property("alive", &LObject::isAlive)
            .property("className", &className)
            .property("parent", &parent, &setParent)
            .def("setParent", &setParent)
            .def("inherits", &inherits)
            .def("children", &children)
            .def("property", &property)
            .def("setProperty", &setProperty)
            .def("dynamicPropertyNames", &dynamicPropertyNames)
            .def("startTimer", &startTimer)
            .def("killTimer", &killTimer)
            .def("deleteLater", &deleteLater)
            .def("blockSignals", &blockSignals),
        class_<QVariant>("Variant")
            .def(constructor<>())
            .def(constructor<const QVariant&>())
            .def("__init", &variantFromLua)
            .property("value", &variantValue)
            .property("typeName", &variantTypeName)
            .def("isValid", &variantIsValid)
            .def("isNull", &variantIsNull)
            .def("toString", &variantString)
            .def("toNumber", &variantNumber)
            .def("toDouble", &variantNumber)
            .def("toInt", &variantInt)
            .def("toBool", &variantBool)
            .def("toObject", &variantObject)
            .def("__eq", &variantEqual)
            .def("__tostring", &variantText)
    ];
}

void registerTimerAndRegExp(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LTimer, LObject>("Timer")
            .def(constructor<>())
            .def(constructor<int>())
            .def("__init", &lua::initFromTable<LTimer>)
            .property("interval", &interval, &setInterval)
            .property("isActive", &isActive)
            .property("isSingleShot", &isSingleShot)
            .property("timerId", &timerId)
            .property("remainingTime", &remainingTime)
            .property("timeout", &timeout, &setTimeout)
            .def("setSingleShot", &setSingleShot)
            .def("setInterval", &setInterval)
            .def("start", &start)
            .def("start", &startWith)
            .def("stop", &stop)
            .scope[def("singleShot", &singleShot)],
        class_<QRegExp>("RegExp")
            .def(constructor<>())
            .def(constructor<const QString&>())
            .def(constructor<const QRegExp&>())
            .def("__init", &regExpInit)
            .def("__init", &lua::initFromTable<QRegExp>)
            .enum_("constants")[
                value("CaseInsensitive", Qt::CaseInsensitive), value("CaseSensitive", Qt::CaseSensitive),
                value("RegExp", QRegExp::RegExp), value("RegExp2", QRegExp::RegExp2),
                value("Wildcard", QRegExp::Wildcard), value("WildcardUnix", QRegExp::WildcardUnix),
                value("FixedString", QRegExp::FixedString), value("W3CXmlSchema11", QRegExp::W3CXmlSchema11)
            ]
            .property("pattern", lua::bare<&QRegExp::pattern>, lua::bare<&QRegExp::setPattern>)
            .property("caseSensitivity", &caseSensitivity, &setCaseSensitivity)
            .property("patternSyntax", &patternSyntax, &setPatternSyntax)
            .property("minimal", lua::bare<&QRegExp::isMinimal>, lua::bare<&QRegExp::setMinimal>)
            .property("captureCount", lua::bare<&QRegExp::captureCount>)
            .property("matchedLength", lua::bare<&QRegExp::matchedLength>)
            .def("isEmpty", lua::bare<&QRegExp::isEmpty>)
            .def("isValid", lua::bare<&QRegExp::isValid>)
            .def("isMinimal", lua::bare<&QRegExp::isMinimal>)
            .def("setMinimal", lua::bare<&QRegExp::setMinimal>)
            .def("exactMatch", lua::bare<&QRegExp::exactMatch>)
            .def("indexIn", &indexIn)
            .def("indexIn", &indexInFrom)
            .def("lastIndexIn", &lastIndexIn)
            .def("lastIndexIn", &lastIndexInFrom)
            .def("cap", &cap)
            .def("cap", &capZero)
            .def("pos", &pos)
            .def("capturedTexts", &capturedTexts)
            .def("errorString", &errorString)
            .def("replaceIn", &replaceIn)
            .def("__eq", lua::bare<&QRegExp::operator==>)
            .def("__tostring", &regExpText)
            .scope[def("escape", &QRegExp::escape), def("withSyntax", &regExpWith)]
    ];
}

luabind::object wrapTimer(lua_State* state, QObject* object)
{
    return luabind::object(state, LTimer(static_cast<QTimer*>(object)));
}

} // namespace

void registerLuaUtil(lua_State* state)
{
    registerObjectAndVariant(state);
    registerTimerAndRegExp(state);
    addObjectWrapper("QTimer", &wrapTimer);
}
