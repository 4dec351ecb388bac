#include "qluaslot.h"

#include "qluaobject.h"
#include "qscript.h"

#include <QMetaMethod>

#include <climits>
#include <cmath>

namespace {

// The method of `object` that `name` names, of one of the given kinds: a
// full signature, or the first method of that name.
QMetaMethod findMethod(const QObject* object, const QString& name, std::initializer_list<QMetaMethod::MethodType> kinds)
{
    const QMetaObject* meta = object->metaObject();
    const QByteArray wanted = name.toLatin1();
    const bool signature = wanted.contains('(');
    const QByteArray normalized = signature ? QMetaObject::normalizedSignature(wanted.constData()) : wanted;
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (std::find(kinds.begin(), kinds.end(), method.methodType()) == kinds.end())
            continue;
        if (signature ? method.methodSignature() == normalized : method.name() == wanted)
            return method;
    }
    return QMetaMethod();
}

QMetaMethod findSignal(const QObject* sender, const QString& name)
{
    const QMetaMethod found = findMethod(sender, name, {QMetaMethod::Signal});
    if (!found.isValid())
        throw lua::fault(QStringLiteral("connect: %1 has no signal %2").arg(QString::fromLatin1(sender->metaObject()->className()), name));
    return found;
}

// The general_slot overload that takes the most leading arguments of `signal`.
QMetaMethod matchingSlot(const QMetaMethod& signal)
{
    const QMetaObject& meta = QLuaSlot::staticMetaObject;
    QList<QByteArray> types = signal.parameterTypes();
    for (;;) {
        const QByteArray signature = "general_slot(" + types.join(',') + ')';
        const int index = meta.indexOfSlot(signature.constData());
        if (index >= 0)
            return meta.method(index);
        if (types.isEmpty())
            return QMetaMethod();
        types.removeLast();
    }
}

// A slot's arguments as Lua takes them: values as they are, objects wrapped.
template<typename T>
const T& toLua(lua_State*, const T& value)
{
    return value;
}

luabind::object toLua(lua_State* state, QObject* object)
{
    return wrapObject(state, object);
}

} // namespace

QLuaSlot::QLuaSlot(QObject* parent, const luabind::object& function, const QString& signal, bool oneShot)
    : QObject(parent)
    , m_function(function)
    , m_signal(signal)
    , m_oneShot(oneShot)
{
}

QLuaSlot* QLuaSlot::connect(QObject* sender, const QString& signal, const luabind::object& function, bool oneShot,
                            QObject* receiver)
{
    if (luabind::type(function) != LUA_TFUNCTION)
        throw lua::fault(QStringLiteral("connect: a function is needed for %1").arg(signal));
    const QMetaMethod found = findSignal(sender, signal);
    const QMetaMethod slot = matchingSlot(found);
    QScript* script = QScript::of(function.interpreter());
    auto* luaSlot = new QLuaSlot(script ? script->slotParent() : nullptr, function,
                                 QString::fromLatin1(found.methodSignature()), oneShot);
    if (receiver) {
        luaSlot->m_hasReceiver = true;
        luaSlot->m_receiver = receiver;
        QObject::connect(receiver, &QObject::destroyed, luaSlot, &QObject::deleteLater);
    }
    luaSlot->m_sender = sender;
    QObject::connect(sender, found, luaSlot, slot);
    return luaSlot;
}

void QLuaSlot::connect(QObject* sender, const QString& signal, QObject* receiver, const QString& slot)
{
    const QMetaMethod from = findSignal(sender, signal);
    const QMetaMethod to = findMethod(receiver, slot, {QMetaMethod::Slot, QMetaMethod::Signal});
    const QString receiverClass = QString::fromLatin1(receiver->metaObject()->className());
    if (!to.isValid())
        throw lua::fault(QStringLiteral("connect: %1 has no slot %2").arg(receiverClass, slot));
    if (!QMetaObject::checkConnectArgs(from, to) || !QObject::connect(sender, from, receiver, to))
        throw lua::fault(QStringLiteral("connect: %1 can't take %2")
                             .arg(receiverClass + QStringLiteral("::") + QString::fromLatin1(to.methodSignature()),
                                  QString::fromLatin1(from.methodSignature())));
}

void QLuaSlot::emitValue(const luabind::object& value)
{
    switch (value.is_valid() ? luabind::type(value) : LUA_TNIL) {
    case LUA_TNIL:
        emit general_signal();
        break;
    case LUA_TBOOLEAN:
        emit general_signal(luabind::object_cast<bool>(value));
        break;
    case LUA_TNUMBER: {
        const double number = luabind::object_cast<double>(value);
        if (number == std::floor(number) && number >= INT_MIN && number <= INT_MAX)
            emit general_signal(int(number));
        else
            emit general_signal(number);
        break;
    }
    case LUA_TSTRING:
        emit general_signal(lua::str(luabind::object_cast<std::string>(value)));
        break;
    default:
        throw lua::fault(QStringLiteral("emit_signal: a %1 can't travel in a signal")
                             .arg(QString::fromUtf8(lua_typename(value.interpreter(), luabind::type(value)))));
    }
}

QLuaSlot* QLuaSlot::propertySlot(lua_State* state, QObject* sender, const QString& signal)
{
    QScript* script = QScript::of(state);
    const QMetaMethod found = findSignal(sender, signal);
    if (!script || !found.isValid())
        return nullptr;
    const QString signature = QString::fromLatin1(found.methodSignature());
    for (QLuaSlot* slot : script->slotParent()->findChildren<QLuaSlot*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (slot->m_property && slot->m_sender == sender && slot->m_signal == signature)
            return slot;
    }
    return nullptr;
}

void QLuaSlot::assign(QObject* sender, const QString& signal, const luabind::object& function)
{
    lua_State* state = function.interpreter();
    delete propertySlot(state, sender, signal);
    if (luabind::type(function) == LUA_TNIL)
        return;
    connect(sender, signal, function)->m_property = true;
}

luabind::object QLuaSlot::assigned(lua_State* state, QObject* sender, const QString& signal)
{
    if (QLuaSlot* slot = propertySlot(state, sender, signal))
        return slot->m_function;
    return luaNil(state);
}

template<typename... Args>
void QLuaSlot::call(const Args&... args)
{
    if (!m_function.is_valid() || luabind::type(m_function) != LUA_TFUNCTION || (m_hasReceiver && !m_receiver))
        return; // a slot that only signals, or one whose receiver is gone
    lua_State* state = m_function.interpreter();
    QScript* script = QScript::of(state);
    const int top = lua_gettop(state);
    // Called from the event loop, the function is a run of its own with a
    // whole budget; called while Lua runs (emit_signal), it spends the
    // budget of the code that fired it, or a loop of emissions never stops.
    lua_Debug running;
    if (script && !lua_getstack(state, 0, &running))
        script->resetCount();
    try {
        if (m_hasReceiver)
            luabind::call_function<void>(m_function, wrapObject(state, m_receiver), toLua(state, args)...);
        else
            luabind::call_function<void>(m_function, toLua(state, args)...);
    } catch (const luabind::error&) {
        QScript::report(QStringLiteral("Script error"), m_signal + QStringLiteral(": ") +
                                                            (script ? script->errorMessage() : QString()));
    } catch (const std::exception& error) {
        QScript::report(QStringLiteral("Script error"), m_signal + QStringLiteral(": ") + QString::fromUtf8(error.what()));
    }
    lua_settop(state, top);
    if (m_oneShot)
        deleteLater();
}

void QLuaSlot::general_slot() { call(); }
void QLuaSlot::general_slot(int value) { call(value); }
void QLuaSlot::general_slot(bool value) { call(value); }
void QLuaSlot::general_slot(double value) { call(value); }
void QLuaSlot::general_slot(qint64 value) { call(double(value)); }
void QLuaSlot::general_slot(const QString& value) { call(value.toStdString()); }
void QLuaSlot::general_slot(int first, int second) { call(first, second); }
void QLuaSlot::general_slot(qint64 first, qint64 second) { call(double(first), double(second)); }
void QLuaSlot::general_slot(int first, bool second) { call(first, second); }
void QLuaSlot::general_slot(int first, const QString& second) { call(first, second.toStdString()); }
void QLuaSlot::general_slot(int first, int second, int third, int fourth) { call(first, second, third, fourth); }
void QLuaSlot::general_slot(QObject* object) { call(object); }

// The core sees no widget header: a QWidget is taken as the QObject it
// starts with, as Qt's meta-types take every pointer to a QObject class.
void QLuaSlot::general_slot(QWidget* widget) { call(reinterpret_cast<QObject*>(widget)); }
void QLuaSlot::general_slot(QWidget* first, QWidget* second)
{
    call(reinterpret_cast<QObject*>(first), reinterpret_cast<QObject*>(second));
}
