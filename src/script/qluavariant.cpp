#include "qluavariant.h"

#include "qluaobject.h"
#include "qluaqt.h"

#include <QBrush>
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QPen>
#include <QPolygon>
#include <QRect>
#include <QRegion>
#include <QVariantList>
#include <QVariantMap>

namespace {

// The bound value classes, in the order they are tried on a userdata.
template <class T> bool tryValue(const luabind::object& value, QVariant& result)
{
    if (const auto cast = luabind::object_cast_nothrow<T>(value)) {
        result = QVariant::fromValue(*cast);
        return true;
    }
    return false;
}

QVariant fromUserData(const luabind::object& value)
{
    QVariant result;
    if (const auto object = luabind::object_cast_nothrow<LObject*>(value))
        return QVariant::fromValue((*object)->object());
    if (tryValue<QVariant>(value, result) || tryValue<QPoint>(value, result) || tryValue<QSize>(value, result)
        || tryValue<QRect>(value, result) || tryValue<QLine>(value, result)
        || tryValue<QMargins>(value, result) || tryValue<QPolygon>(value, result)
        || tryValue<QRegion>(value, result) || tryValue<QColor>(value, result)
        || tryValue<QBrush>(value, result) || tryValue<QPen>(value, result) || tryValue<QFont>(value, result)
        || tryValue<QDate>(value, result) || tryValue<QTime>(value, result)
        || tryValue<QDateTime>(value, result))
        return result;
    throw lua::fault(QStringLiteral("this value has no Qt form"));
}

// A table whose keys are 1..n is a list; any other is a map of its string keys.
QVariant fromTable(const luabind::object& table)
{
    QVariantList list;
    QVariantMap map;
    bool isList = true;
    for (luabind::iterator item(table), end; item != end; ++item) {
        const luabind::object key = item.key();
        const QVariant value = lua::toVariant(luabind::rawget(table, key));
        if (luabind::type(key) == LUA_TNUMBER && isList
            && luabind::object_cast<double>(key) == list.size() + 1)
            list << value;
        else
            isList = false;
        map.insert(luabind::type(key) == LUA_TSTRING ? luabind::object_cast<QString>(key)
                                                     : QString::number(luabind::object_cast<double>(key)),
            value);
    }
    return isList ? QVariant(list) : QVariant(map);
}

template <class T> luabind::object valueOf(lua_State* state, const QVariant& value)
{
    return luabind::object(state, value.value<T>());
}

} // namespace

QVariant lua::toVariant(const luabind::object& value)
{
    switch (luabind::type(value)) {
    case LUA_TNIL:
        return QVariant();
    case LUA_TBOOLEAN:
        return luabind::object_cast<bool>(value);
    case LUA_TNUMBER: {
        const double number = luabind::object_cast<double>(value);
        if (number == double(int(number)))
            return int(number);
        return number;
    }
    case LUA_TSTRING:
        return luabind::object_cast<QString>(value);
    case LUA_TTABLE:
        return fromTable(value);
    case LUA_TUSERDATA:
        return fromUserData(value);
    default:
        throw fault(QStringLiteral("a %1 has no Qt form")
                        .arg(QString::fromLatin1(lua_typename(value.interpreter(), luabind::type(value)))));
    }
}

luabind::object lua::fromVariant(lua_State* state, const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return luaNil(state);
    case QMetaType::Bool:
        return luabind::object(state, value.toBool());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::UChar:
    case QMetaType::SChar:
        return luabind::object(state, value.toDouble());
    case QMetaType::QString:
        return luabind::object(state, value.toString());
    case QMetaType::QByteArray:
        return luabind::object(state, value.toByteArray());
    case QMetaType::QStringList:
        return luabind::object(state, value.toStringList());
    case QMetaType::QVariantList: {
        luabind::object table = luabind::newtable(state);
        int index = 1;
        for (const QVariant& item : value.toList())
            table[index++] = fromVariant(state, item);
        return table;
    }
    case QMetaType::QVariantMap: {
        luabind::object table = luabind::newtable(state);
        const QVariantMap map = value.toMap();
        for (auto item = map.cbegin(); item != map.cend(); ++item)
            table[item.key().toStdString()] = fromVariant(state, item.value());
        return table;
    }
    case QMetaType::QPoint:
        return valueOf<QPoint>(state, value);
    case QMetaType::QSize:
        return valueOf<QSize>(state, value);
    case QMetaType::QRect:
        return valueOf<QRect>(state, value);
    case QMetaType::QLine:
        return valueOf<QLine>(state, value);
    case QMetaType::QPolygon:
        return valueOf<QPolygon>(state, value);
    case QMetaType::QRegion:
        return valueOf<QRegion>(state, value);
    case QMetaType::QColor:
        return valueOf<QColor>(state, value);
    case QMetaType::QBrush:
        return valueOf<QBrush>(state, value);
    case QMetaType::QPen:
        return valueOf<QPen>(state, value);
    case QMetaType::QFont:
        return valueOf<QFont>(state, value);
    case QMetaType::QDate:
        return valueOf<QDate>(state, value);
    case QMetaType::QTime:
        return valueOf<QTime>(state, value);
    case QMetaType::QDateTime:
        return valueOf<QDateTime>(state, value);
    case QMetaType::QObjectStar:
        return wrapObject(state, value.value<QObject*>());
    default:
        if (value.metaType().flags() & QMetaType::IsEnumeration)
            return luabind::object(state, value.toInt());
        if (value.metaType().flags() & QMetaType::PointerToQObject)
            return wrapObject(state, value.value<QObject*>());
        return luabind::object(state, value);
    }
}
