#pragma once

// What binding Qt's own classes needs.
//
// How Qt's text and byte types cross into Lua, so that bound functions can
// take and return them as they are: a QString is a Lua string in UTF-8, a
// QByteArray a Lua string of raw bytes, a QStringList a Lua array of strings.
// Every unit that binds such a function includes this header, so luabind
// sees one conversion for each type.
//
// lua::bare<&QRect::width>: Qt's member functions as plain functions taking
// the object first. luabind deduces signatures without `noexcept`, which
// C++17 made part of a function's type and Qt puts on most value members.

#include "qluaheaders.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace luabind {

template<>
struct default_converter<QString> : native_converter_base<QString>
{
    // A number is accepted where text is wanted, as Lua itself does, at a worse score than a string.
    static int compute_score(lua_State* state, int index)
    {
        const int type = lua_type(state, index);
        return type == LUA_TSTRING ? 0 : type == LUA_TNUMBER ? 1 : -1;
    }

    QString from(lua_State* state, int index)
    {
        size_t length = 0;
        const char* text = lua_tolstring(state, index, &length);
        return QString::fromUtf8(text, qsizetype(length));
    }

    void to(lua_State* state, const QString& value)
    {
        const QByteArray bytes = value.toUtf8();
        lua_pushlstring(state, bytes.constData(), size_t(bytes.size()));
    }
};

template<>
struct default_converter<const QString> : default_converter<QString>
{
};

template<>
struct default_converter<const QString&> : default_converter<QString>
{
};

template<>
struct default_converter<QByteArray> : native_converter_base<QByteArray>
{
    static int compute_score(lua_State* state, int index)
    {
        return lua_type(state, index) == LUA_TSTRING ? 0 : -1;
    }

    QByteArray from(lua_State* state, int index)
    {
        size_t length = 0;
        const char* bytes = lua_tolstring(state, index, &length);
        return QByteArray(bytes, qsizetype(length));
    }

    void to(lua_State* state, const QByteArray& value)
    {
        lua_pushlstring(state, value.constData(), size_t(value.size()));
    }
};

template<>
struct default_converter<const QByteArray> : default_converter<QByteArray>
{
};

template<>
struct default_converter<const QByteArray&> : default_converter<QByteArray>
{
};

template<>
struct default_converter<QStringList> : native_converter_base<QStringList>
{
    static int compute_score(lua_State* state, int index)
    {
        return lua_type(state, index) == LUA_TTABLE ? 0 : -1;
    }

    // The array part, 1 to #t; an item that is not text becomes an empty string.
    QStringList from(lua_State* state, int index)
    {
        QStringList list;
        const int count = int(lua_rawlen(state, index));
        for (int i = 1; i <= count; ++i) {
            lua_rawgeti(state, index, i);
            size_t length = 0;
            const char* text = lua_isstring(state, -1) ? lua_tolstring(state, -1, &length) : "";
            list << QString::fromUtf8(text, qsizetype(length));
            lua_pop(state, 1);
        }
        return list;
    }

    void to(lua_State* state, const QStringList& value)
    {
        lua_createtable(state, int(value.size()), 0);
        for (int i = 0; i < value.size(); ++i) {
            const QByteArray bytes = value.at(i).toUtf8();
            lua_pushlstring(state, bytes.constData(), size_t(bytes.size()));
            lua_rawseti(state, -2, i + 1);
        }
    }
};

template<>
struct default_converter<const QStringList> : default_converter<QStringList>
{
};

template<>
struct default_converter<const QStringList&> : default_converter<QStringList>
{
};

} // namespace luabind

namespace lua {

template<class Pointer, Pointer member>
struct BareMember;

template<class R, class C, class... A, R (C::*member)(A...) const noexcept>
struct BareMember<R (C::*)(A...) const noexcept, member>
{
    static R call(const C& object, A... arguments) { return (object.*member)(arguments...); }
};

template<class R, class C, class... A, R (C::*member)(A...) const>
struct BareMember<R (C::*)(A...) const, member>
{
    static R call(const C& object, A... arguments) { return (object.*member)(arguments...); }
};

template<class R, class C, class... A, R (C::*member)(A...) noexcept>
struct BareMember<R (C::*)(A...) noexcept, member>
{
    static R call(C& object, A... arguments) { return (object.*member)(arguments...); }
};

template<class R, class C, class... A, R (C::*member)(A...)>
struct BareMember<R (C::*)(A...), member>
{
    static R call(C& object, A... arguments) { return (object.*member)(arguments...); }
};

/// Lua's comparisons on Qt's values: .def("__eq", &lua::equal<QRect>).
template<class T>
bool equal(const T& a, const T& b)
{
    return a == b;
}

template<class T>
bool less(const T& a, const T& b)
{
    return a < b;
}

template<class T>
bool lessOrEqual(const T& a, const T& b)
{
    return a <= b;
}

/// `member` as a function taking the object first; an overloaded member is named through a static_cast.
template<auto member>
constexpr auto bare = &BareMember<decltype(member), member>::call;

} // namespace lua
