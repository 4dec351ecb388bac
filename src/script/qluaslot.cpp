#include "qluaslot.h"

#include "qluaobject.h"
#include "qscript.h"

#include <QMetaMethod>

namespace {

// The signal of `sender` that `name` names: a full signature, or the first
// signal of that name.
QMetaMethod findSignal(const QObject* sender, const QString& name)
{
    const QMetaObject* meta = sender->metaObject();
    const QByteArray wanted = name.toLatin1();
    if (wanted.contains('(')) {
        const int index = meta->indexOfSignal(QMetaObject::normalizedSignature(wanted.constData()).constData());
        return index >= 0 ? meta->method(index) : QMetaMethod();
    }
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal && method.name() == wanted)
            return method;
    }
    return QMetaMethod();
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

} // namespace

QLuaSlot::QLuaSlot(QObject* parent, const luabind::object& function, const QString& signal, bool oneShot)
    : QObject(parent)
    , m_function(function)
    , m_signal(signal)
    , m_oneShot(oneShot)
{
}

QLuaSlot* QLuaSlot::connect(QObject* sender, const QString& signal, const luabind::object& function, bool oneShot)
{
    if (luabind::type(function) != LUA_TFUNCTION)
        throw lua::fault(QStringLiteral("connect: a function is needed for %1").arg(signal));
    const QMetaMethod found = findSignal(sender, signal);
    if (!found.isValid())
        throw lua::fault(QStringLiteral("connect: %1 has no signal %2").arg(QString::fromLatin1(sender->metaObject()->className()), signal));
    const QMetaMethod slot = matchingSlot(found);
    QScript* script = QScript::of(function.interpreter());
    auto* luaSlot = new QLuaSlot(script ? script->slotParent() : nullptr, function,
                                 QString::fromLatin1(found.methodSignature()), oneShot);
    luaSlot->m_sender = sender;
    QObject::connect(sender, found, luaSlot, slot);
    return luaSlot;
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
    lua_State* state = m_function.interpreter();
    QScript* script = QScript::of(state);
    const int top = lua_gettop(state);
    if (script)
        script->resetCount();
    try {
        luabind::call_function<void>(m_function, args...);
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
