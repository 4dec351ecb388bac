#include "qluaqobject.h"

#include <QHash>

namespace {

QHash<const QMetaObject*, LQObject::Wrapper>& wrappers()
{
    static QHash<const QMetaObject*, LQObject::Wrapper> known;
    return known;
}

} // namespace

void LQObject::own()
{
    m_ownership = std::make_shared<QLuaOwnership>(object());
}

void LQObject::keep(const LQObject& other) const
{
    if (m_ownership)
        m_ownership->keep(other.m_ownership);
}

luabind::object LQObject::wrap(lua_State* state, QObject* object)
{
    if (!object)
        return luabind::object();
    for (const QMetaObject* meta = object->metaObject(); meta; meta = meta->superClass()) {
        if (const Wrapper wrapper = wrappers().value(meta))
            return wrapper(state, object);
    }
    return luabind::object(state, LObject(object));
}

void LQObject::addWrapper(const QMetaObject* meta, Wrapper wrapper)
{
    wrappers().insert(meta, wrapper);
}
