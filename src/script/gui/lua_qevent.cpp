// Events as scripts see them: read-only handles on Qt's event, valid while
// the script's handler runs (a kept one raises "the event is over"), and the
// filter that calls a widget's handlers.
#include "qluaeventhandlers.h"
#include "qluaqtaccess.h"
#include "qluawidgets.h"
#include "script/qscript.h"

#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QResizeEvent>
#include <QTimerEvent>
#include <QWheelEvent>

namespace {

class LEvent
{
public:
    LEvent(QEvent* event, const std::shared_ptr<bool>& alive) : m_event(event), m_alive(alive) {}
    QEvent* event() const
    {
        if (!*m_alive)
            throw lua::fault(QStringLiteral("the event is over"));
        return m_event;
    }
    template<class E>
    E* as() const
    {
        return static_cast<E*>(event());
    }

private:
    QEvent* m_event;
    std::shared_ptr<bool> m_alive;
};

// One handle class per bound event class, so that luabind's classes follow Qt's.
struct LPaintEvent : LEvent { using LEvent::LEvent; };
struct LTimerEvent : LEvent { using LEvent::LEvent; };
struct LResizeEvent : LEvent { using LEvent::LEvent; };
struct LShowEvent : LEvent { using LEvent::LEvent; };
struct LHideEvent : LEvent { using LEvent::LEvent; };
struct LInputEvent : LEvent { using LEvent::LEvent; };
struct LKeyEvent : LInputEvent { using LInputEvent::LInputEvent; };
struct LMouseEvent : LInputEvent { using LInputEvent::LInputEvent; };
struct LWheelEvent : LInputEvent { using LInputEvent::LInputEvent; };

luabind::object handleFor(lua_State* state, QEvent* event, const std::shared_ptr<bool>& alive)
{
    switch (event->type()) {
    case QEvent::Paint:
        return luabind::object(state, LPaintEvent(event, alive));
    case QEvent::Timer:
        return luabind::object(state, LTimerEvent(event, alive));
    case QEvent::Resize:
        return luabind::object(state, LResizeEvent(event, alive));
    case QEvent::Show:
        return luabind::object(state, LShowEvent(event, alive));
    case QEvent::Hide:
        return luabind::object(state, LHideEvent(event, alive));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return luabind::object(state, LKeyEvent(event, alive));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return luabind::object(state, LMouseEvent(event, alive));
    case QEvent::Wheel:
        return luabind::object(state, LWheelEvent(event, alive));
    default:
        return luabind::object(state, LEvent(event, alive));
    }
}

/// Calls the script's functions for the events of one widget. It lives
/// with the script's connections, so it goes before the Lua state does.
class QLuaEventFilter : public QObject
{
public:
    QLuaEventFilter(QObject* watched, QObject* parent) : QObject(parent), m_watched(watched)
    {
        watched->installEventFilter(this);
    }

    QPointer<QObject> m_watched;
    QHash<int, luabind::object> m_handlers;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto found = m_handlers.constFind(int(event->type()));
        if (watched != m_watched || found == m_handlers.constEnd())
            return false;
        const luabind::object function = *found;
        lua_State* state = function.interpreter();
        QScript* script = QScript::of(state);
        if (script)
            script->resetCount();
        const int top = lua_gettop(state);
        auto alive = std::make_shared<bool>(true);
        bool taken = false;
        try {
            const luabind::object result = luabind::call_function<luabind::object>(function, handleFor(state, event, alive));
            taken = luabind::type(result) == LUA_TBOOLEAN && luabind::object_cast<bool>(result);
        } catch (const luabind::error&) {
            QScript::report(QStringLiteral("Script error"), script ? script->errorMessage() : QString());
        } catch (const std::exception& error) {
            QScript::report(QStringLiteral("Script error"), QString::fromUtf8(error.what()));
        }
        *alive = false;
        lua_settop(state, top);
        return taken;
    }
};

QLuaEventFilter* filterOf(QObject* object, lua_State* state, bool create)
{
    QScript* script = QScript::of(state);
    QObject* parent = script ? script->slotParent() : nullptr;
    if (!parent)
        return nullptr;
    for (QObject* child : parent->children()) {
        auto* filter = dynamic_cast<QLuaEventFilter*>(child);
        if (filter && filter->m_watched == object)
            return filter;
    }
    return create ? new QLuaEventFilter(object, parent) : nullptr;
}

bool accepted(const LEvent& e) { return e.event()->isAccepted(); }
void setAccepted(const LEvent& e, bool accepted) { e.event()->setAccepted(accepted); }
void accept(const LEvent& e) { e.event()->accept(); }
void ignore(const LEvent& e) { e.event()->ignore(); }
int eventType(const LEvent& e) { return int(e.event()->type()); }
bool spontaneous(const LEvent& e) { return e.event()->spontaneous(); }

luabind::object rect(const LPaintEvent& e, lua_State* state)
{
    const QRect area = e.as<QPaintEvent>()->rect();
    luabind::object table = luabind::newtable(state);
    table["x"] = area.x();
    table["y"] = area.y();
    table["width"] = area.width();
    table["height"] = area.height();
    return table;
}

int timerId(const LTimerEvent& e) { return e.as<QTimerEvent>()->timerId(); }
int width(const LResizeEvent& e) { return e.as<QResizeEvent>()->size().width(); }
int height(const LResizeEvent& e) { return e.as<QResizeEvent>()->size().height(); }
int oldWidth(const LResizeEvent& e) { return e.as<QResizeEvent>()->oldSize().width(); }
int oldHeight(const LResizeEvent& e) { return e.as<QResizeEvent>()->oldSize().height(); }

int modifiers(const LInputEvent& e) { return int(e.as<QInputEvent>()->modifiers().toInt()); }
double timestamp(const LInputEvent& e) { return double(e.as<QInputEvent>()->timestamp()); }

int key(const LKeyEvent& e) { return e.as<QKeyEvent>()->key(); }
std::string text(const LKeyEvent& e) { return lua::std(e.as<QKeyEvent>()->text()); }
int count(const LKeyEvent& e) { return e.as<QKeyEvent>()->count(); }
bool autoRepeat(const LKeyEvent& e) { return e.as<QKeyEvent>()->isAutoRepeat(); }
bool matches(const LKeyEvent& e, int standardKey) { return e.as<QKeyEvent>()->matches(QKeySequence::StandardKey(standardKey)); }

QPointF position(const LInputEvent& e)
{
    if (e.event()->type() == QEvent::Wheel)
        return e.as<QWheelEvent>()->position();
    return e.as<QMouseEvent>()->position();
}

QPointF globalPosition(const LInputEvent& e)
{
    if (e.event()->type() == QEvent::Wheel)
        return e.as<QWheelEvent>()->globalPosition();
    return e.as<QMouseEvent>()->globalPosition();
}

int x(const LInputEvent& e) { return qRound(position(e).x()); }
int y(const LInputEvent& e) { return qRound(position(e).y()); }
int globalX(const LInputEvent& e) { return qRound(globalPosition(e).x()); }
int globalY(const LInputEvent& e) { return qRound(globalPosition(e).y()); }
int button(const LMouseEvent& e) { return int(e.as<QMouseEvent>()->button()); }
int mouseButtons(const LMouseEvent& e) { return int(e.as<QMouseEvent>()->buttons().toInt()); }
int wheelButtons(const LWheelEvent& e) { return int(e.as<QWheelEvent>()->buttons().toInt()); }
int delta(const LWheelEvent& e)
{
    const QPoint angle = e.as<QWheelEvent>()->angleDelta();
    return angle.y() != 0 ? angle.y() : angle.x();
}
int orientation(const LWheelEvent& e)
{
    return int(e.as<QWheelEvent>()->angleDelta().y() != 0 ? Qt::Vertical : Qt::Horizontal);
}

} // namespace

namespace lq {

luabind::object eventHandler(QObject* object, lua_State* state, QEvent::Type type)
{
    QLuaEventFilter* filter = filterOf(object, state, false);
    return filter ? filter->m_handlers.value(int(type)) : luabind::object();
}

void setEventHandler(QObject* object, QEvent::Type type, const luabind::object& function)
{
    if (luabind::type(function) != LUA_TNIL && luabind::type(function) != LUA_TFUNCTION)
        throw lua::fault(QStringLiteral("an event handler is a function"));
    QLuaEventFilter* filter = filterOf(object, function.interpreter(), luabind::type(function) != LUA_TNIL);
    if (!filter)
        return;
    if (luabind::type(function) == LUA_TNIL)
        filter->m_handlers.remove(int(type));
    else
        filter->m_handlers.insert(int(type), function);
}

} // namespace lq

void registerLuaQEvent(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LEvent>("Event")
            .property("accepted", &accepted, &setAccepted)
            .property("type", &eventType)
            .property("spontaneous", &spontaneous)
            .def("accept", &accept)
            .def("ignore", &ignore)
            .enum_("Type")[
                value("Paint", QEvent::Paint), value("Timer", QEvent::Timer), value("Resize", QEvent::Resize),
                value("Show", QEvent::Show), value("Hide", QEvent::Hide), value("KeyPress", QEvent::KeyPress),
                value("KeyRelease", QEvent::KeyRelease), value("MouseButtonPress", QEvent::MouseButtonPress),
                value("MouseButtonRelease", QEvent::MouseButtonRelease),
                value("MouseButtonDblClick", QEvent::MouseButtonDblClick), value("MouseMove", QEvent::MouseMove),
                value("Wheel", QEvent::Wheel)
            ],
        class_<LPaintEvent, LEvent>("PaintEvent").property("rect", &rect),
        class_<LTimerEvent, LEvent>("TimerEvent").property("timerId", &timerId),
        class_<LResizeEvent, LEvent>("ResizeEvent")
            .property("width", &width)
            .property("height", &height)
            .property("oldWidth", &oldWidth)
            .property("oldHeight", &oldHeight),
        class_<LShowEvent, LEvent>("ShowEvent"),
        class_<LHideEvent, LEvent>("HideEvent"),
        class_<LInputEvent, LEvent>("InputEvent")
            .property("modifiers", &modifiers)
            .property("timestamp", &timestamp)
            .enum_("Modifier")[
                value("NoModifier", Qt::NoModifier), value("ShiftModifier", Qt::ShiftModifier),
                value("ControlModifier", Qt::ControlModifier), value("AltModifier", Qt::AltModifier),
                value("MetaModifier", Qt::MetaModifier)
            ],
        class_<LKeyEvent, LInputEvent>("KeyEvent")
            .property("key", &key)
            .property("text", &text)
            .property("count", &count)
            .property("autoRepeat", &autoRepeat)
            .def("matches", &matches),
        class_<LMouseEvent, LInputEvent>("MouseEvent")
            .property("x", &x)
            .property("y", &y)
            .property("globalX", &globalX)
            .property("globalY", &globalY)
            .property("button", &button)
            .property("buttons", &mouseButtons)
            .enum_("Button")[
                value("NoButton", Qt::NoButton), value("LeftButton", Qt::LeftButton),
                value("RightButton", Qt::RightButton), value("MiddleButton", Qt::MiddleButton)
            ],
        class_<LWheelEvent, LInputEvent>("WheelEvent")
            .property("x", &x)
            .property("y", &y)
            .property("globalX", &globalX)
            .property("globalY", &globalY)
            .property("delta", &delta)
            .property("buttons", &wheelButtons)
            .property("orientation", &orientation)
    ];
}
