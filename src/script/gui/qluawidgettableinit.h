#pragma once

// Constructors of the dialog layer's classes: `Label()`, `Label("text")`
// and `Label{text = "Hi", minW = 80}`, which sets each property of the table
// on the new object, so that a dialog is built in one expression. An
// unknown property name is a Lua error, not a silent extra field.

#include "qluaqobject.h"
#include "script/qluatableinit.h"

#include <luabind/detail/object_rep.hpp>

#include <QApplication>

#include <memory>
#include <utility>

namespace lq {

/// Sets the entries of `table` on the Qt object of a new handle of class H.
template<class H>
void applyTableTo(lua_State* state, typename H::Object* object, const luabind::object& table)
{
    lua::applyTable(luabind::object(state, H(object)), table);
}

/// Puts `handle` into the userdata luabind made for a new instance, as its constructors do.
template<class H>
void place(const luabind::argument& self, std::unique_ptr<H> handle)
{
    using namespace luabind::detail;
    using Holder = pointer_holder<std::unique_ptr<H>, H>;
    object_rep* instance = luabind::touserdata<object_rep>(self);
    void* naked = handle.get();
    void* storage = instance->allocate(sizeof(Holder));
    instance->set_instance(new (storage) Holder(std::move(handle), registered_class<H>::id, naked));
}

/// A new Qt object for a handle of class H, owned by the script.
template<class H, class... A>
typename H::Object* make(const luabind::argument& self, A&&... args)
{
    auto* object = new typename H::Object(std::forward<A>(args)...);
    auto handle = std::make_unique<H>(object);
    handle->own();
    place(self, std::move(handle));
    return object;
}

template<class H>
void init(const luabind::argument& self)
{
    make<H>(self);
}

template<class H>
void initTable(const luabind::argument& self, const luabind::table<>& table)
{
    applyTableTo<H>(self.interpreter(), make<H>(self), table);
}

template<class H>
void initText(const luabind::argument& self, const std::string& text)
{
    make<H>(self, QString::fromStdString(text));
}

/// A new object on `parent`, which owns it from the start.
template<class H, class Parent>
void initOn(const luabind::argument& self, const Parent& parent)
{
    make<H>(self, parent.get());
}

/// A script's window (a dialog) opens over the program's active window; it
/// stays a window of its own, so the script still owns it.
template<class H>
void initWindow(const luabind::argument& self)
{
    make<H>(self, QApplication::activeWindow());
}

template<class H>
void initWindowTable(const luabind::argument& self, const luabind::table<>& table)
{
    applyTableTo<H>(self.interpreter(), make<H>(self, QApplication::activeWindow()), table);
}

} // namespace lq

/// The plain and the table constructor of a window class.
#define LQ_WINDOW_CONSTRUCTORS(H) .def("__init", &lq::initWindow<H>).def("__init", &lq::initWindowTable<H>)
/// The plain and the table constructor of a handle class.
#define LQ_CONSTRUCTORS(H) .def("__init", &lq::init<H>).def("__init", &lq::initTable<H>)
/// The constructor from a text (a label's, a button's caption).
#define LQ_TEXT_CONSTRUCTOR(H) .def("__init", &lq::initText<H>)
/// The constructor taking the parent widget.
#define LQ_PARENT_CONSTRUCTOR(H) .def("__init", &lq::initOn<H, LWidget>)
