#pragma once

// The table form of a bound class's constructor: `Rect{x = 1, width = 3}`
// makes a default object and assigns each key through the class's own
// property setters, so a widget or a value is built in one expression and
// every property a class binds is settable this way with nothing more to
// write. Register it beside the plain constructors:
//
//     class_<QRect>("Rect")
//         .def(constructor<int, int, int, int>())
//         .def("__init", &lua::initFromTable<QRect>)
//
// luabind prefers any typed overload to this one (a table matches only its
// `object` parameter, at the worst score), so `Rect(otherRect)` still copies.

#include "qluaheaders.h"

#include <luabind/detail/constructor.hpp>

#include <boost/mpl/vector.hpp>

#include <memory>

namespace lua {

/**
 * Assigns each key of `table` on the new object `self` as `self[key] = value`.
 * A key that is not a property of the class raises the Lua error
 * "Rect has no property 'widht'"; a value the setter refuses raises
 * "Rect.width: " and luabind's message. Properties are applied in the
 * table's own order, so a class whose properties depend on each other
 * makes each setter independent of the others.
 */
void applyTable(const luabind::argument& self, const luabind::object& table);
/// The same on an object already made: luabind converts an instance to its
/// bases only once its constructor has returned, so a constructor of a derived
/// class applies the table through a second handle on its new object.
void applyTable(const luabind::object& self, const luabind::object& table);

/// The `__init` overload taking a table: a default-constructed T, then applyTable().
template <class T> void initFromTable(const luabind::argument& self, const luabind::object& table)
{
    luabind::detail::construct<T, std::unique_ptr<T>, boost::mpl::vector2<void, const luabind::argument&>>()(
        self);
    applyTable(self, table);
}

/// For an `__init` overload of a value class that Qt builds otherwise than
/// luabind's constructor<> can (a colour and a style, a date from a table):
/// the new object is a copy of `value`.
template <class T> void initAs(const luabind::argument& self, const T& value)
{
    luabind::detail::construct<T, std::unique_ptr<T>,
        boost::mpl::vector3<void, const luabind::argument&, const T&>>()(self, value);
}

} // namespace lua
