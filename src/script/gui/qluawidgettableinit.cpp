#include "qluawidgettableinit.h"

#include <luabind/detail/class_rep.hpp>

namespace {

int setEntry(lua_State* state)
{
    lua_settable(state, 1);
    return 0;
}

// Whether the class of the instance at the top of the stack binds `name`
// (its own members and those of its bases).
bool isBound(lua_State* state, const char* name, QString* className)
{
    luabind::detail::object_rep* instance = luabind::detail::get_instance(state, -1);
    if (!instance)
        return false;
    *className = QString::fromLatin1(instance->crep()->name());
    instance->crep()->get_table(state);
    lua_getfield(state, -1, name);
    const bool bound = !lua_isnil(state, -1);
    lua_pop(state, 2);
    return bound;
}

} // namespace

namespace lq {

void applyTable(const luabind::object& self, const luabind::object& table)
{
    lua_State* state = self.interpreter();
    for (luabind::iterator entry(table), end; entry != end; ++entry) {
        // The entry as objects now: the iterator's own value reads the table
        // at the stack positions it had, which the pushes below move.
        const luabind::object key = entry.key();
        const luabind::object value = *entry;
        if (luabind::type(key) != LUA_TSTRING)
            throw lua::fault(QStringLiteral("a constructor table takes property names as keys"));
        const std::string name = luabind::object_cast<std::string>(key);
        QString className;
        self.push(state);
        const bool bound = isBound(state, name.c_str(), &className);
        lua_pop(state, 1);
        if (!bound)
            throw lua::fault(QStringLiteral("%1 has no property %2").arg(className, lua::str(name)));
        lua_pushcfunction(state, &setEntry);
        self.push(state);
        key.push(state);
        value.push(state);
        if (lua_pcall(state, 3, 0, 0) != LUA_OK) {
            const QString message = QString::fromUtf8(lua_tostring(state, -1));
            lua_pop(state, 1);
            throw lua::fault(QStringLiteral("%1.%2: %3").arg(className, lua::str(name), message));
        }
    }
}

} // namespace lq
