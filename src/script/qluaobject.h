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

/// Where the scripts find the open projects; the window installs its list,
/// tests and the command line their own.
struct QLuaProjects
{
    std::function<QList<QProject*>()> all;
    std::function<QProject*()> current;

    static QLuaProjects& installed();
};
