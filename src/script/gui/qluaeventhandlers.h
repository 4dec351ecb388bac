#pragma once

// A script's own handling of a widget's events: `w.mousePressEvent =
// function(event) ... end` runs the function for each such event of the
// widget, with an Event handle valid during the call. Returning true takes
// the event from the widget; anything else lets the widget handle it too.

#include "script/qluaobject.h"

#include <QEvent>

namespace lq {

luabind::object eventHandler(QObject* object, lua_State* state, QEvent::Type type);
/// Sets the function for `type` on `object`, replacing the one before; nil removes it.
void setEventHandler(QObject* object, QEvent::Type type, const luabind::object& function);

template<QEvent::Type Type>
luabind::object eventGet(const LObject& self, lua_State* state)
{
    return eventHandler(self.object(), state, Type);
}

template<QEvent::Type Type>
void eventSet(const LObject& self, const luabind::object& function)
{
    setEventHandler(self.object(), Type, function);
}

} // namespace lq

#define LQ_EVENT(name, type) .property(name, &lq::eventGet<QEvent::type>, &lq::eventSet<QEvent::type>)
