// Signals as properties: `button.clicked = function() ... end` connects the
// function through a QLuaSlot, reading `button.clicked` gives it back, and
// assigning again replaces it (nil disconnects). The slot remembers its
// sender and signal so that the property finds it again.
#include "qluaqtaccess.h"

#include "script/qluaslot.h"
#include "script/qscript.h"

#include <QVariant>

namespace {

const char* const senderKey = "luaSender";
const char* const signalKey = "luaSignal";

QLuaSlot* findSlot(QObject* slotParent, QObject* sender, const char* signal)
{
    if (!slotParent)
        return nullptr;
    for (QLuaSlot* slot : slotParent->findChildren<QLuaSlot*>(Qt::FindDirectChildrenOnly)) {
        if (slot->property(senderKey).value<QObject*>() == sender && slot->property(signalKey).toByteArray() == signal)
            return slot;
    }
    return nullptr;
}

} // namespace

namespace lq {

luabind::object connectedFunction(lua_State* state, QObject* sender, const char* signal)
{
    QScript* script = QScript::of(state);
    QLuaSlot* slot = findSlot(script ? script->slotParent() : nullptr, sender, signal);
    return slot ? slot->function() : luabind::object();
}

void connectFunction(QObject* sender, const char* signal, const luabind::object& function)
{
    QScript* script = QScript::of(function.interpreter());
    if (QLuaSlot* old = findSlot(script ? script->slotParent() : nullptr, sender, signal)) {
        // The old slot may be the one running now: it goes once it returns,
        // or with the state's other slots if the state closes first.
        QObject::disconnect(sender, nullptr, old, nullptr);
        old->setProperty(senderKey, QVariant());
        old->deleteLater();
    }
    if (luabind::type(function) == LUA_TNIL)
        return;
    QLuaSlot* slot = QLuaSlot::connect(sender, QString::fromLatin1(signal), function);
    slot->setProperty(senderKey, QVariant::fromValue(sender));
    slot->setProperty(signalKey, QByteArray(signal));
    QObject::connect(sender, &QObject::destroyed, slot, &QObject::deleteLater);
}

} // namespace lq
