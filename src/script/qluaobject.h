#pragma once

#include "qluaheaders.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QProject;

/**
 * What Lua holds of a QObject of the program: a guarded pointer. A script
 * may keep an object after the program deleted it (a sprite removed, a
 * project closed); every use then raises the Lua error "deleted object"
 * instead of touching freed memory.
 */
class LObject
{
public:
    LObject() = default;
    explicit LObject(QObject* object) : m_object(object) {}
    virtual ~LObject() = default;

    /// The object, or a Lua fault when it is gone.
    QObject* object() const;
    bool isAlive() const { return !m_object.isNull(); }
    std::string objectName() const;
    void setObjectName(const std::string& name);

protected:
    template<class T>
    T* live() const
    {
        return static_cast<T*>(object());
    }

private:
    QPointer<QObject> m_object;
};

/// The fault every wrapper raises for a vanished object.
std::runtime_error deletedObject();

/// How an object of the program reaches Lua (a signal's argument, the
/// receiver of a connection): nil for null, an Object by default. The
/// widget layer installs a wrapper that gives its classes their own Lua
/// classes; it returns an invalid object for those it doesn't know.
using LuaObjectWrapper = std::function<luabind::object(lua_State*, QObject*)>;
luabind::object luaObject(lua_State* state, QObject* object);
void setLuaObjectWrapper(LuaObjectWrapper wrapper);

/// Where the scripts find the open projects; the window installs its list,
/// tests and the command line their own.
struct QLuaProjects
{
    std::function<QList<QProject*>()> all;
    std::function<QProject*()> current;

    static QLuaProjects& installed();
};

/// The few questions a script asks the author (a value, a file name) and
/// what it tells them. The window installs dialogs; without them a script
/// takes its answers from the global table `answers` (keyed by the label or
/// title) and its messages go to the script messages, so tools run in tests
/// and on the command line alike.
struct QLuaDialogs
{
    /// Null string when the author cancels.
    std::function<QString(const QString& title, const QString& label, const QString& value)> ask;
    std::function<QString(const QString& title, const QString& filter)> saveFileName;
    std::function<void(const QString& title, const QString& text)> message;

    static QLuaDialogs& installed();
};
