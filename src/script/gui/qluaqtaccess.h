#pragma once

// How the dialog layer reaches Qt's members without a hand-written adapter
// for each: a member pointer of the Qt class becomes a luabind function on
// the handle, with Qt's value types converted to Lua's (QString to UTF-8
// strings, enumerations and flags to numbers). Members that take widgets or
// other handles are written out by hand in their family.

#include "qluaqobject.h"

#include <QFlags>
#include <QString>
#include <QStringList>

#include <string>
#include <type_traits>

namespace lq {

/// The Qt object of a handle as Q; a Lua error when the handle holds another
/// class (a method called with a wrong self: `Label.setText(button, "x")`).
template<class Q>
Q* as(const LObject& self)
{
    auto* object = qobject_cast<Q*>(self.object());
    if (!object)
        throw lua::fault(QStringLiteral("%1 expected, got %2")
                             .arg(QString::fromLatin1(Q::staticMetaObject.className()),
                                  QString::fromLatin1(self.object()->metaObject()->className())));
    return object;
}

/// The Lua form of a Qt value type and the conversions both ways.
template<class T, class = void>
struct LuaType
{
    using type = T;
    static T to(const T& value) { return value; }
    static T from(const T& value) { return value; }
};

template<>
struct LuaType<void>
{
    using type = void;
};

template<>
struct LuaType<QString>
{
    using type = std::string;
    static std::string to(const QString& value) { return value.toStdString(); }
    static QString from(const std::string& value) { return QString::fromStdString(value); }
};

template<class E>
struct LuaType<E, std::enable_if_t<std::is_enum_v<E>>>
{
    using type = int;
    static int to(E value) { return int(value); }
    static E from(int value) { return E(value); }
};

template<class E>
struct LuaType<QFlags<E>>
{
    using type = int;
    static int to(QFlags<E> value) { return int(value.toInt()); }
    static QFlags<E> from(int value) { return QFlags<E>::fromInt(value); }
};

template<class T>
using LuaOf = typename LuaType<std::decay_t<T>>::type;

template<class Q, auto Member, class R, class... A>
struct Invoke
{
    static LuaOf<R> call(const LObject& self, LuaOf<A>... args)
    {
        Q* object = as<Q>(self);
        if constexpr (std::is_void_v<R>)
            (object->*Member)(LuaType<std::decay_t<A>>::from(args)...);
        else
            return LuaType<std::decay_t<R>>::to((object->*Member)(LuaType<std::decay_t<A>>::from(args)...));
    }
};

template<class Q, auto Member, class Signature = decltype(Member)>
struct Call;

template<class Q, auto Member, class C, class R, class... A>
struct Call<Q, Member, R (C::*)(A...)> : Invoke<Q, Member, R, A...>
{
};

template<class Q, auto Member, class C, class R, class... A>
struct Call<Q, Member, R (C::*)(A...) const> : Invoke<Q, Member, R, A...>
{
};

/// The texts of a Lua list of strings.
inline QStringList strings(const luabind::object& list)
{
    QStringList texts;
    for (luabind::iterator entry(list), end; entry != end; ++entry)
        texts << QString::fromStdString(luabind::object_cast<std::string>(*entry));
    return texts;
}

/// The Lua function connected to `signal` of `sender` through a signal property, or nil.
luabind::object connectedFunction(lua_State* state, QObject* sender, const char* signal);
/// Connects `function` to `signal` of `sender` in place of the one assigned before; nil disconnects.
void connectFunction(QObject* sender, const char* signal, const luabind::object& function);

template<const char* Signal>
luabind::object signalGet(const LObject& self, lua_State* state)
{
    return connectedFunction(state, self.object(), Signal);
}

template<const char* Signal>
void signalSet(const LObject& self, const luabind::object& function)
{
    connectFunction(self.object(), Signal, function);
}

/// The handle of class H for an object known to be H's Qt class.
template<class H>
luabind::object wrapAs(lua_State* state, QObject* object)
{
    return luabind::object(state, H(static_cast<typename H::Object*>(object)));
}

/// Lets LQObject::wrap() give objects of H's Qt class (and of classes not bound below it) as H.
template<class H>
void wraps()
{
    LQObject::addWrapper(&H::Object::staticMetaObject, &wrapAs<H>);
}

} // namespace lq

// Member functions of Q bound by name: a read and write property, a
// read-only one, a method, and a signal property (`id` names a constexpr
// string holding the signal's signature).
#define LQ_PROPERTY(name, Q, getter, setter) \
    .property(name, &lq::Call<Q, &Q::getter>::call, &lq::Call<Q, &Q::setter>::call)
#define LQ_READ(name, Q, getter) .property(name, &lq::Call<Q, &Q::getter>::call)
#define LQ_METHOD(name, Q, method) .def(name, &lq::Call<Q, &Q::method>::call)
#define LQ_SIGNAL(name, id) .property(name, &lq::signalGet<id>, &lq::signalSet<id>)
