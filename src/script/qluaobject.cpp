#include "qluaobject.h"

QObject* LObject::object() const
{
    if (!m_object)
        throw deletedObject();
    return m_object.data();
}

std::string LObject::objectName() const
{
    return object()->objectName().toStdString();
}

void LObject::setObjectName(const std::string& name)
{
    object()->setObjectName(QString::fromStdString(name));
}

std::runtime_error deletedObject()
{
    return std::runtime_error("deleted object");
}

namespace {

LuaObjectWrapper& objectWrapper()
{
    static LuaObjectWrapper installed;
    return installed;
}

} // namespace

luabind::object luaObject(lua_State* state, QObject* object)
{
    if (!object)
        return luabind::object();
    if (objectWrapper()) {
        luabind::object wrapped = objectWrapper()(state, object);
        if (wrapped.is_valid())
            return wrapped;
    }
    return luabind::object(state, LObject(object));
}

void setLuaObjectWrapper(LuaObjectWrapper wrapper)
{
    objectWrapper() = std::move(wrapper);
}

QLuaProjects& QLuaProjects::installed()
{
    static QLuaProjects projects;
    return projects;
}

QLuaDialogs& QLuaDialogs::installed()
{
    static QLuaDialogs dialogs;
    return dialogs;
}
