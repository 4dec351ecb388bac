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
