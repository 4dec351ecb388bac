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
    /// Copies refer to the object and never own it.
    LObject(const LObject& other) : m_object(other.m_object) {}
    LObject& operator=(const LObject& other);
    /// An object the script made goes with its Lua value unless it has a parent by then.
    virtual ~LObject();

    /// The object, or a Lua fault when it is gone.
    QObject* object() const;
    bool isAlive() const { return !m_object.isNull(); }
    std::string objectName() const;
    void setObjectName(const std::string& name);

protected:
    /// For the constructors of the classes scripts make (a Timer, a File):
    /// the Lua value owns `object` until the object is given a parent.
    struct Owned
    {
    };
    LObject(QObject* object, Owned) : m_object(object), m_owned(true) {}
    bool ownsObject() const { return m_owned; }

    template<class T>
    T* live() const
    {
        return static_cast<T*>(object());
    }

private:
    QPointer<QObject> m_object;
    bool m_owned = false;
};

/// The fault every wrapper raises for a vanished object.
std::runtime_error deletedObject();

/// Makes the Lua value of an object of the class `className` (as the meta
/// object names it, "QTimer"); a bound family adds one for each class it
/// binds, so that `parent`, `children` and values of properties reach Lua
/// as the most specific class the API has.
using LObjectWrapper = luabind::object (*)(lua_State* state, QObject* object);
void addObjectWrapper(const char* className, LObjectWrapper wrapper);
/// The Lua value of `object`: its most specific bound class, `Object` at least, nil for null.
luabind::object wrapObject(lua_State* state, QObject* object);
/// Lua's nil as a value to return.
luabind::object luaNil(lua_State* state);

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
