#include "qluatableinit.h"

#include <luabind/detail/class_rep.hpp>
#include <luabind/detail/object_rep.hpp>

namespace {

// Runs protected: a setter's Lua error must not unwind through C++ frames.
int assign(lua_State* state)
{
    lua_settable(state, 1);
    return 0;
}

// Whether `key` names a property (not a method, not a stranger) of the object's class.
bool isProperty(lua_State* state, luabind::detail::object_rep* object, const luabind::object& key)
{
    object->crep()->get_table(state);
    key.push(state);
    lua_rawget(state, -2);
    const bool found = lua_tocfunction(state, -1) == &luabind::detail::property_tag;
    lua_pop(state, 2);
    return found;
}

} // namespace

void lua::applyTable(const luabind::argument& self, const luabind::object& table)
{
    lua_State* state = self.interpreter();
    self.push(state);
    const luabind::object target(luabind::from_stack(state, -1));
    lua_pop(state, 1);
    applyTable(target, table);
}

void lua::applyTable(const luabind::object& self, const luabind::object& table)
{
    lua_State* state = self.interpreter();
    self.push(state);
    luabind::detail::object_rep* object = luabind::detail::get_instance(state, -1);
    lua_pop(state, 1);
    const QString className = object ? QString::fromLatin1(object->crep()->name()) : QStringLiteral("object");
    if (luabind::type(table) != LUA_TTABLE)
        throw fault(QStringLiteral("%1: a table of property names and values is needed").arg(className));
    for (luabind::iterator item(table), end; item != end; ++item) {
        const luabind::object key = item.key();
        if (luabind::type(key) != LUA_TSTRING)
            throw fault(QStringLiteral("%1: an item of the table has no property name").arg(className));
        const QString name = str(luabind::object_cast<std::string>(key));
        if (!object || !isProperty(state, object, key))
            throw fault(QStringLiteral("%1 has no property '%2'").arg(className, name));
        lua_pushcfunction(state, &assign);
        self.push(state);
        key.push(state);
        luabind::rawget(table, key).push(state);
        if (lua_pcall(state, 3, 0, 0) != LUA_OK) {
            const QString message = str(lua_tostring(state, -1) ? lua_tostring(state, -1) : "");
            lua_pop(state, 1);
            throw fault(QStringLiteral("%1.%2: %3").arg(className, name, message));
        }
    }
}
