#pragma once

#include "qluaheaders.h"

#include <QObject>
#include <QPointer>
#include <QString>

class QWidget;

/**
 * A Lua function taking part in Qt's signals: connect() makes one per
 * connection, with the signal's signature, and Qt calls the general_slot
 * overload that fits the signal's arguments. The slot lives as a child of
 * its script's slot parent, so it goes before the Lua state does.
 *
 * A slot may also stand for an object of its own: its general_signal
 * overloads are what emit_signal(object, value) fires from Lua, so a script
 * can drive other Lua functions or the slots of Qt objects.
 *
 * An error inside the function never goes through Qt: it is reported with
 * QScript::report under "Script error" and the signal's sender carries on.
 */
class QLuaSlot : public QObject
{
    Q_OBJECT
public:
    /// `function` may be nil: a slot that only signals.
    QLuaSlot(QObject* parent, const luabind::object& function, const QString& signal, bool oneShot);

    /// Connects `function` to the signal of `sender` named by `signal`
    /// ("valueChanged(int)" or just "valueChanged"); throws a Lua fault for
    /// an unknown signal or one whose arguments no slot takes. With a
    /// `receiver`, the function is called with it first, as a method, and
    /// the connection ends when the receiver goes.
    static QLuaSlot* connect(QObject* sender, const QString& signal, const luabind::object& function,
                             bool oneShot = false, QObject* receiver = nullptr);
    /// Connects a signal of `sender` to a slot (or signal) of `receiver`, both
    /// named as in connect(); throws a Lua fault when either is unknown or
    /// their arguments don't fit.
    static void connect(QObject* sender, const QString& signal, QObject* receiver, const QString& slot);

    /// Fires the general_signal that fits `value`: none for nil, bool,
    /// int for a whole number, double for another, QString for a string.
    void emitValue(const luabind::object& value);

    /// The signal as a property of its sender (`timer.timeout = f`): assigning
    /// replaces the function assigned before, nil disconnects. Connections
    /// made by connect() are left alone.
    static void assign(QObject* sender, const QString& signal, const luabind::object& function);
    /// What the property form of the signal holds: the function, or nil.
    static luabind::object assigned(lua_State* state, QObject* sender, const QString& signal);

    const luabind::object& function() const { return m_function; }
    QString signal() const { return m_signal; }
    bool isOneShot() const { return m_oneShot; }

public slots:
    void general_slot();
    void general_slot(int value);
    void general_slot(bool value);
    void general_slot(double value);
    void general_slot(qint64 value);
    void general_slot(const QString& value);
    void general_slot(int first, int second);
    void general_slot(qint64 first, qint64 second);
    void general_slot(int first, bool second);
    void general_slot(int first, const QString& second);
    void general_slot(int first, int second, int third, int fourth);
    void general_slot(QObject* object);
    void general_slot(QWidget* widget);
    void general_slot(QWidget* first, QWidget* second);

signals:
    void general_signal();
    void general_signal(int value);
    void general_signal(bool value);
    void general_signal(double value);
    void general_signal(const QString& value);

private:
    template<typename... Args>
    void call(const Args&... args);
    /// The slot that the property form of `signal` made on `sender`, if any.
    static QLuaSlot* propertySlot(lua_State* state, QObject* sender, const QString& signal);

    luabind::object m_function;
    QString m_signal;
    bool m_oneShot;
    bool m_hasReceiver = false;
    QPointer<QObject> m_receiver;
    QPointer<QObject> m_sender;
    bool m_property = false;
};
