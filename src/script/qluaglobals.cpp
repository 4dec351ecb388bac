// The global functions of the scripting API: printing, translation, bit and
// colour helpers, signals and their connections.
#include "qluabindings.h"
#include "qluaobject.h"
#include "qluaslot.h"
#include "qscript.h"
#include "qscriptmanager.h"
#include "util/qmessages.h"

#include <QByteArray>
#include <QColor>
#include <QCoreApplication>

namespace {

// print(...) as Lua's own, but into the script messages.
int luaPrint(lua_State* state)
{
    QStringList parts;
    const int count = lua_gettop(state);
    for (int i = 1; i <= count; ++i) {
        size_t length = 0;
        const char* text = luaL_tolstring(state, i, &length);
        parts << QString::fromUtf8(text, int(length));
        lua_pop(state, 1);
    }
    QScriptManager::scriptMsgs().add(mtInformation, parts.join(QLatin1Char('\t')), 0, -1);
    return 0;
}

// translate(text): the script's own name (_SCRIPT) disambiguates, empty for a script run from text.
int luaTranslate(lua_State* state)
{
    const char* text = luaL_checkstring(state, 1);
    lua_getglobal(state, "_SCRIPT");
    const char* script = lua_isstring(state, -1) ? lua_tostring(state, -1) : "";
    const QString translated = QCoreApplication::translate("QScriptManager", text, script);
    lua_pop(state, 1);
    lua_pushstring(state, translated.toUtf8().constData());
    return 1;
}

unsigned int bitAnd(unsigned int a, unsigned int b) { return a & b; }
unsigned int bitOr(unsigned int a, unsigned int b) { return a | b; }
unsigned int bitXor(unsigned int a, unsigned int b) { return a ^ b; }
unsigned int rgb(int r, int g, int b) { return qRgb(r, g, b); }
unsigned int rgba(int r, int g, int b, int a) { return qRgba(r, g, b, a); }
int alpha(unsigned int colour) { return qAlpha(colour); }
int red(unsigned int colour) { return qRed(colour); }
int green(unsigned int colour) { return qGreen(colour); }
int blue(unsigned int colour) { return qBlue(colour); }

std::string toBase64(const std::string& bytes)
{
    return QByteArray::fromStdString(bytes).toBase64().toStdString();
}

std::string fromBase64(const std::string& text)
{
    return QByteArray::fromBase64(QByteArray::fromStdString(text)).toStdString();
}

// connect(sender, signal, function): the connection is returned, an object
// that emit_signal can fire as well.
LObject connectFunction(const LObject& sender, const std::string& signal, const luabind::object& function)
{
    return LObject(QLuaSlot::connect(sender.object(), lua::str(signal), function));
}

// connect(sender, signal, receiver, slot): a slot named by text is the
// receiver's own (Qt to Qt); a function is called with the receiver first.
void connectReceiver(const LObject& sender, const std::string& signal, const LObject& receiver,
                     const luabind::object& slot)
{
    if (luabind::type(slot) == LUA_TSTRING)
        QLuaSlot::connect(sender.object(), lua::str(signal), receiver.object(), lua::str(luabind::object_cast<std::string>(slot)));
    else
        QLuaSlot::connect(sender.object(), lua::str(signal), slot, false, receiver.object());
}

// Signal(): an object of the script's own whose general_signal overloads
// emit_signal fires; it goes with the script.
LObject newSignal(lua_State* state)
{
    QScript* script = QScript::of(state);
    return LObject(new QLuaSlot(script ? script->slotParent() : nullptr, luabind::object(), QString(), false));
}

// emit_signal(object, value): fires the signal of a connection or a Signal() that fits the value.
void emitSignal(const LObject& target, const luabind::object& value)
{
    auto* slot = qobject_cast<QLuaSlot*>(target.object());
    if (!slot)
        throw lua::fault(QStringLiteral("emit_signal: %1 has no script signal; make one with Signal()")
                             .arg(QString::fromLatin1(target.object()->metaObject()->className())));
    slot->emitValue(value);
}

void emitBare(const LObject& target)
{
    emitSignal(target, luabind::object());
}

} // namespace

void registerLuaGlobals(lua_State* state)
{
    using namespace luabind;
    lua_register(state, "print", &luaPrint);
    lua_register(state, "translate", &luaTranslate);
    module(state)[
        def("bit_and", &bitAnd), def("bit_or", &bitOr), def("bit_xor", &bitXor),
        def("rgb", &rgb), def("rgba", &rgba),
        def("alpha", &alpha), def("red", &red), def("green", &green), def("blue", &blue),
        def("toBase64", &toBase64), def("fromBase64", &fromBase64),
        def("connect", &connectFunction),
        def("connect", &connectReceiver),
        def("Signal", &newSignal),
        def("emit_signal", &emitSignal),
        def("emit_signal", &emitBare)
    ];
}
