// Buttons: AbstractButton and its push, radio and check buttons, the
// ButtonGroup that makes radio buttons exclusive, and KeySequence for shortcuts.
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QKeySequence>
#include <QPushButton>
#include <QRadioButton>

namespace {

/// A key sequence is a value: scripts make one from its text ("Ctrl+R").
struct LKeySequence
{
    LKeySequence() = default;
    explicit LKeySequence(const std::string& text) : keys(lua::str(text)) {}
    explicit LKeySequence(const QKeySequence& keys) : keys(keys) {}

    QKeySequence keys;
};

std::string keysText(const LKeySequence& sequence) { return lua::std(sequence.keys.toString()); }
bool keysEmpty(const LKeySequence& sequence) { return sequence.keys.isEmpty(); }
int keysCount(const LKeySequence& sequence) { return sequence.keys.count(); }
bool keysEqual(const LKeySequence& a, const LKeySequence& b) { return a.keys == b.keys; }
int keysMatch(const LKeySequence& sequence, const LKeySequence& other) { return int(sequence.keys.matches(other.keys)); }

QAbstractButton* button(const LObject& self) { return lq::as<QAbstractButton>(self); }

LKeySequence shortcut(const LObject& self) { return LKeySequence(button(self)->shortcut()); }
void setShortcut(const LObject& self, const LKeySequence& keys) { button(self)->setShortcut(keys.keys); }
void setShortcutText(const LObject& self, const std::string& keys) { button(self)->setShortcut(QKeySequence(lua::str(keys))); }
void click(const LObject& self) { button(self)->click(); }
void animateClick(const LObject& self) { button(self)->animateClick(); }

// Button groups: the group only groups, the buttons stay where their layout put them.
QButtonGroup* group(const LObject& self) { return lq::as<QButtonGroup>(self); }

void initGroupOn(const luabind::argument& self, const LWidget& parent)
{
    lq::make<LButtonGroup>(self, static_cast<QObject*>(parent.get()));
}

void addButton(const LObject& self, const LAbstractButton& member) { group(self)->addButton(member.get()); }
void addButtonId(const LObject& self, const LAbstractButton& member, int id) { group(self)->addButton(member.get(), id); }
void removeButton(const LObject& self, const LAbstractButton& member) { group(self)->removeButton(member.get()); }
void setId(const LObject& self, const LAbstractButton& member, int id) { group(self)->setId(member.get(), id); }
int idOf(const LObject& self, const LAbstractButton& member) { return group(self)->id(member.get()); }
int buttonCount(const LObject& self) { return int(group(self)->buttons().size()); }

luabind::object buttonById(const LObject& self, int id, lua_State* state)
{
    return LQObject::wrap(state, group(self)->button(id));
}

luabind::object buttonAt(const LObject& self, int index, lua_State* state)
{
    const QList<QAbstractButton*> buttons = group(self)->buttons();
    if (index < 0 || index >= buttons.size())
        throw lua::fault(QStringLiteral("no button at %1 in a group of %2").arg(index).arg(buttons.size()));
    return LQObject::wrap(state, buttons.at(index));
}

luabind::object checkedButton(const LObject& self, lua_State* state)
{
    return LQObject::wrap(state, group(self)->checkedButton());
}

constexpr char clicked[] = "clicked(bool)";
constexpr char pressed[] = "pressed()";
constexpr char released[] = "released()";
constexpr char toggled[] = "toggled(bool)";
constexpr char stateChanged[] = "stateChanged(int)";
constexpr char idClicked[] = "idClicked(int)";
constexpr char idPressed[] = "idPressed(int)";
constexpr char idReleased[] = "idReleased(int)";
constexpr char idToggled[] = "idToggled(int,bool)";

luabind::scope lqabstractbutton()
{
    using namespace luabind;
    return class_<LAbstractButton, LWidget>("AbstractButton")
        LQ_PROPERTY("text", QAbstractButton, text, setText)
        LQ_PROPERTY("checkable", QAbstractButton, isCheckable, setCheckable)
        LQ_PROPERTY("checked", QAbstractButton, isChecked, setChecked)
        LQ_PROPERTY("autoRepeat", QAbstractButton, autoRepeat, setAutoRepeat)
        LQ_PROPERTY("autoExclusive", QAbstractButton, autoExclusive, setAutoExclusive)
        LQ_PROPERTY("down", QAbstractButton, isDown, setDown)
        .property("shortcut", &shortcut, &setShortcut)
        LQ_SIGNAL("clicked", clicked)
        LQ_SIGNAL("pressed", pressed)
        LQ_SIGNAL("released", released)
        LQ_SIGNAL("toggled", toggled)
        LQ_METHOD("setText", QAbstractButton, setText)
        LQ_METHOD("setChecked", QAbstractButton, setChecked)
        LQ_METHOD("toggle", QAbstractButton, toggle)
        .def("setShortcut", &setShortcut)
        .def("setShortcut", &setShortcutText)
        .def("click", &click)
        .def("animateClick", &animateClick);
}

luabind::scope lqpushbutton()
{
    using namespace luabind;
    return class_<LPushButton, LAbstractButton>("PushButton")
        LQ_CONSTRUCTORS(LPushButton)
        LQ_TEXT_CONSTRUCTOR(LPushButton)
        LQ_PARENT_CONSTRUCTOR(LPushButton)
        LQ_PROPERTY("autoDefault", QPushButton, autoDefault, setAutoDefault)
        LQ_PROPERTY("default", QPushButton, isDefault, setDefault)
        LQ_PROPERTY("flat", QPushButton, isFlat, setFlat);
}

luabind::scope lqradionbutton()
{
    using namespace luabind;
    return class_<LRadioButton, LAbstractButton>("RadioButton")
        LQ_CONSTRUCTORS(LRadioButton)
        LQ_TEXT_CONSTRUCTOR(LRadioButton)
        LQ_PARENT_CONSTRUCTOR(LRadioButton);
}

luabind::scope lqcheckbox()
{
    using namespace luabind;
    return class_<LCheckBox, LAbstractButton>("CheckBox")
        LQ_CONSTRUCTORS(LCheckBox)
        LQ_TEXT_CONSTRUCTOR(LCheckBox)
        LQ_PARENT_CONSTRUCTOR(LCheckBox)
        LQ_PROPERTY("tristate", QCheckBox, isTristate, setTristate)
        LQ_PROPERTY("checkState", QCheckBox, checkState, setCheckState)
        LQ_SIGNAL("stateChanged", stateChanged)
        .enum_("CheckState")[
            value("Unchecked", Qt::Unchecked), value("PartiallyChecked", Qt::PartiallyChecked),
            value("Checked", Qt::Checked)
        ];
}

luabind::scope lqbuttongroup()
{
    using namespace luabind;
    return class_<LButtonGroup, LQObject>("ButtonGroup")
        LQ_CONSTRUCTORS(LButtonGroup)
        .def("__init", &initGroupOn)
        LQ_PROPERTY("exclusive", QButtonGroup, exclusive, setExclusive)
        LQ_READ("checkedId", QButtonGroup, checkedId)
        .property("checkedButton", &checkedButton)
        .property("buttonCount", &buttonCount)
        // Qt gives the clicked button; scripts get its id, as the group's id signals do.
        LQ_SIGNAL("buttonClicked", idClicked)
        LQ_SIGNAL("idClicked", idClicked)
        LQ_SIGNAL("idPressed", idPressed)
        LQ_SIGNAL("idReleased", idReleased)
        LQ_SIGNAL("idToggled", idToggled)
        .def("addButton", &addButton)
        .def("addButton", &addButtonId)
        .def("removeButton", &removeButton)
        .def("setId", &setId)
        .def("id", &idOf)
        .def("button", &buttonById)
        .def("buttonAt", &buttonAt);
}

luabind::scope lqkeysequence()
{
    using namespace luabind;
    return class_<LKeySequence>("KeySequence")
        .def(constructor<>())
        .def(constructor<const std::string&>())
        .property("isEmpty", &keysEmpty)
        .property("count", &keysCount)
        .def("toString", &keysText)
        .def("matches", &keysMatch)
        .def("__tostring", &keysText)
        .def("__eq", &keysEqual)
        .enum_("SequenceMatch")[
            value("NoMatch", QKeySequence::NoMatch), value("PartialMatch", QKeySequence::PartialMatch),
            value("ExactMatch", QKeySequence::ExactMatch)
        ];
}

} // namespace

void registerLuaQButton(lua_State* state)
{
    lq::wraps<LAbstractButton>();
    lq::wraps<LPushButton>();
    lq::wraps<LRadioButton>();
    lq::wraps<LCheckBox>();
    lq::wraps<LButtonGroup>();
    luabind::module(state)[
        lqabstractbutton(), lqpushbutton(), lqradionbutton(), lqcheckbox(), lqbuttongroup(), lqkeysequence()
    ];
}
