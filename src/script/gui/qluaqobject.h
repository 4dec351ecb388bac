#pragma once

#include "qluaownership.h"
#include "script/qluaobject.h"

#include <memory>

struct lua_State;

/**
 * A script's handle on a Qt object of the dialog layer: the guarded pointer
 * of every bound object, plus the ownership when the script made the object
 * itself (see QLuaOwnership). Handles the program gives out (a widget found
 * in a dialog, a layout's parent) own nothing.
 */
class LQObject : public LObject
{
public:
    LQObject() = default;
    explicit LQObject(QObject* object) : LObject(object) {}

    /// Makes this handle, and the copies Lua takes of it, the owner of its object.
    void own();
    /// The ownership of this handle keeps `other`'s object alive as well.
    void keep(const LQObject& other) const;
    const std::shared_ptr<QLuaOwnership>& ownership() const { return m_ownership; }

    /// The handle of the most derived bound class for `object` (nil for null):
    /// a label found in a dialog comes back as a Label, not a Widget.
    static luabind::object wrap(lua_State* state, QObject* object);
    /// Teaches wrap() a bound class; registrations call it for each class.
    using Wrapper = luabind::object (*)(lua_State*, QObject*);
    static void addWrapper(const QMetaObject* meta, Wrapper wrapper);

private:
    std::shared_ptr<QLuaOwnership> m_ownership;
};

/// The handle of the bound class for Qt class Q, derived from the handle of Q's bound base.
template<class Q, class Base>
class LHandle : public Base
{
public:
    using Object = Q;

    LHandle() = default;
    explicit LHandle(Q* object) : Base(object) {}

    Q* get() const { return static_cast<Q*>(this->object()); }
};
