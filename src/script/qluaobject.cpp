#include "qluaobject.h"

#include <QHash>
#include <QMetaObject>

LObject& LObject::operator=(const LObject& other)
{
    m_object = other.m_object;
    return *this;
}

LObject::~LObject()
{
    if (m_owned && m_object && !m_object->parent())
        delete m_object.data();
}

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

QHash<QByteArray, LObjectWrapper>& wrappers()
{
    static QHash<QByteArray, LObjectWrapper> installed;
    return installed;
}

} // namespace

void addObjectWrapper(const char* className, LObjectWrapper wrapper)
{
    wrappers().insert(QByteArray(className), wrapper);
}

luabind::object wrapObject(lua_State* state, QObject* object)
{
    if (!object)
        return luaNil(state);
    for (const QMetaObject* meta = object->metaObject(); meta; meta = meta->superClass()) {
        if (const LObjectWrapper wrapper = wrappers().value(QByteArray(meta->className())))
            return wrapper(state, object);
    }
    return luabind::object(state, LObject(object));
}

luabind::object luaNil(lua_State* state)
{
    lua_pushnil(state);
    luabind::object nil(luabind::from_stack(state, -1));
    lua_pop(state, 1);
    return nil;
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
