#pragma once

#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

/**
 * Who deletes a Qt object a script made. Every Lua handle of the object
 * made by the constructor shares one ownership; when Lua lets go of the last
 * of them (garbage collection, or the state closing after the run) the
 * object is deleted if nothing of Qt owns it: it has no parent, or it is a
 * window of its own (a dialog lent a parent only to open over the program).
 * A parented object belongs to its parent and is left alone, so neither side
 * deletes it twice; the guarded pointer notices when Qt deleted it first.
 *
 * The decision and the deletion wait for the event loop: Lua may let go of
 * a widget that a layout is about to place, or of a button inside that
 * button's own signal.
 */
class QLuaOwnership
{
public:
    explicit QLuaOwnership(QObject* object) : m_object(object) {}
    ~QLuaOwnership();
    QLuaOwnership(const QLuaOwnership&) = delete;
    QLuaOwnership& operator=(const QLuaOwnership&) = delete;

    /// Keeps `other` alive as long as this one: a layout not yet on a widget
    /// holds the widgets added to it, which have no parent until then.
    void keep(const std::shared_ptr<QLuaOwnership>& other);

private:
    QPointer<QObject> m_object;
    std::vector<std::shared_ptr<QLuaOwnership>> m_kept;
};
