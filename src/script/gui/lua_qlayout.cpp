// Layouts: boxes, grids, forms and stacks a script puts its widgets in, and
// spacer items. A layout not yet on a widget keeps the widgets added to it,
// which only get their parent when the layout is set on a widget.
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGridLayout>
#include <QPointer>
#include <QSpacerItem>
#include <QStackedLayout>
#include <QWidget>

namespace {

/// A spacer item: the script's until a layout takes it, the layout's after.
class LSpacerItem
{
public:
    LSpacerItem(int width, int height, int horizontal = QSizePolicy::Minimum, int vertical = QSizePolicy::Minimum)
        : m_state(std::make_shared<State>())
    {
        m_state->item = new QSpacerItem(width, height, QSizePolicy::Policy(horizontal), QSizePolicy::Policy(vertical));
    }

    QSpacerItem* item() const
    {
        if (m_state->layout.isNull() ? m_state->handed : m_state->layout->indexOf(m_state->item) < 0)
            throw deletedObject();
        return m_state->item;
    }

    /// The item for `layout` to take; a spacer goes in one layout only.
    QSpacerItem* handTo(QLayout* layout) const
    {
        if (m_state->handed)
            throw lua::fault(QStringLiteral("the spacer item is already in a layout"));
        m_state->handed = true;
        m_state->layout = layout;
        return m_state->item;
    }

private:
    struct State
    {
        ~State()
        {
            if (!handed)
                delete item;
        }
        QSpacerItem* item = nullptr;
        QPointer<QLayout> layout;
        bool handed = false;
    };
    std::shared_ptr<State> m_state;
};

QLayout* layout(const LObject& self)
{
    return lq::as<QLayout>(self);
}

// A layout on no widget yet holds what the script adds to it.
void adopt(const LObject& self, const LQObject& child)
{
    if (!layout(self)->parentWidget()) {
        if (const auto* owner = dynamic_cast<const LQObject*>(&self))
            owner->keep(child);
    }
}

void addWidget(const LObject& self, const LWidget& widget)
{
    layout(self)->addWidget(widget.get());
    adopt(self, widget);
}

void removeWidget(const LObject& self, const LWidget& widget) { layout(self)->removeWidget(widget.get()); }
int indexOf(const LObject& self, const LWidget& widget) { return layout(self)->indexOf(widget.get()); }

luabind::object widgetAt(const LObject& self, int index, lua_State* state)
{
    QLayoutItem* item = layout(self)->itemAt(index);
    return LQObject::wrap(state, item ? item->widget() : nullptr);
}

void setContentsMargins(const LObject& self, int left, int top, int right, int bottom)
{
    layout(self)->setContentsMargins(left, top, right, bottom);
}

void addItem(const LObject& self, const LSpacerItem& spacer)
{
    layout(self)->addItem(spacer.handTo(layout(self)));
}

void changeSize(const LSpacerItem& spacer, int width, int height)
{
    spacer.item()->changeSize(width, height);
}

void changeSizePolicies(const LSpacerItem& spacer, int width, int height, int horizontal, int vertical)
{
    spacer.item()->changeSize(width, height, QSizePolicy::Policy(horizontal), QSizePolicy::Policy(vertical));
}

// Boxes.
QBoxLayout* box(const LObject& self) { return lq::as<QBoxLayout>(self); }

void addWidgetStretch(const LObject& self, const LWidget& widget, int stretch)
{
    box(self)->addWidget(widget.get(), stretch);
    adopt(self, widget);
}

void addWidgetAligned(const LObject& self, const LWidget& widget, int stretch, int alignment)
{
    box(self)->addWidget(widget.get(), stretch, Qt::Alignment::fromInt(alignment));
    adopt(self, widget);
}

void addLayout(const LObject& self, const LLayout& child) { box(self)->addLayout(child.get()); }
void addLayoutStretch(const LObject& self, const LLayout& child, int stretch) { box(self)->addLayout(child.get(), stretch); }
void addStretch(const LObject& self) { box(self)->addStretch(); }
void addStretchBy(const LObject& self, int stretch) { box(self)->addStretch(stretch); }

void insertWidget(const LObject& self, int index, const LWidget& widget)
{
    box(self)->insertWidget(index, widget.get());
    adopt(self, widget);
}

void insertLayout(const LObject& self, int index, const LLayout& child) { box(self)->insertLayout(index, child.get()); }
void insertStretch(const LObject& self, int index, int stretch) { box(self)->insertStretch(index, stretch); }
void insertSpacing(const LObject& self, int index, int size) { box(self)->insertSpacing(index, size); }
void addSpacerItem(const LObject& self, const LSpacerItem& spacer) { box(self)->addSpacerItem(spacer.handTo(box(self))); }

// The stretch of a widget or a nested layout in the box.
void layoutStrech(const LObject& self, const LObject& item, int stretch)
{
    if (auto* widget = qobject_cast<QWidget*>(item.object()))
        box(self)->setStretchFactor(widget, stretch);
    else
        box(self)->setStretchFactor(lq::as<QLayout>(item), stretch);
}

template<class H>
void initDirection(const luabind::argument& self, int direction)
{
    lq::make<H>(self, QBoxLayout::Direction(direction));
}

// Grids.
QGridLayout* grid(const LObject& self) { return lq::as<QGridLayout>(self); }

void gridAddWidget(const LObject& self, const LWidget& widget, int row, int column)
{
    grid(self)->addWidget(widget.get(), row, column);
    adopt(self, widget);
}

void gridAddWidgetSpan(const LObject& self, const LWidget& widget, int row, int column, int rows, int columns)
{
    grid(self)->addWidget(widget.get(), row, column, rows, columns);
    adopt(self, widget);
}

void gridAddLayout(const LObject& self, const LLayout& child, int row, int column)
{
    grid(self)->addLayout(child.get(), row, column);
}

void gridAddLayoutSpan(const LObject& self, const LLayout& child, int row, int column, int rows, int columns)
{
    grid(self)->addLayout(child.get(), row, column, rows, columns);
}

// Forms: a row is a label text (or widget) and a field.
QFormLayout* form(const LObject& self) { return lq::as<QFormLayout>(self); }

void addRowText(const LObject& self, const std::string& label, const LWidget& field)
{
    form(self)->addRow(lua::str(label), field.get());
    adopt(self, field);
}

void addRowTextLayout(const LObject& self, const std::string& label, const LLayout& field)
{
    form(self)->addRow(lua::str(label), field.get());
}

void addRowWidgets(const LObject& self, const LWidget& label, const LWidget& field)
{
    form(self)->addRow(label.get(), field.get());
    adopt(self, label);
    adopt(self, field);
}

void addRowWidget(const LObject& self, const LWidget& widget)
{
    form(self)->addRow(widget.get());
    adopt(self, widget);
}

void addRowLayout(const LObject& self, const LLayout& child) { form(self)->addRow(child.get()); }

void insertRowText(const LObject& self, int row, const std::string& label, const LWidget& field)
{
    form(self)->insertRow(row, lua::str(label), field.get());
    adopt(self, field);
}

luabind::object labelForField(const LObject& self, const LWidget& field, lua_State* state)
{
    return LQObject::wrap(state, form(self)->labelForField(field.get()));
}

void removeRow(const LObject& self, int row) { form(self)->removeRow(row); }

// Stacks.
QStackedLayout* stack(const LObject& self) { return lq::as<QStackedLayout>(self); }

int stackAddWidget(const LObject& self, const LWidget& widget)
{
    const int index = stack(self)->addWidget(widget.get());
    adopt(self, widget);
    return index;
}

luabind::object currentWidget(const LObject& self, lua_State* state)
{
    return LQObject::wrap(state, stack(self)->currentWidget());
}

void setCurrentWidget(const LObject& self, const LWidget& widget) { stack(self)->setCurrentWidget(widget.get()); }

luabind::object stackWidget(const LObject& self, int index, lua_State* state)
{
    return LQObject::wrap(state, stack(self)->widget(index));
}

constexpr char currentChanged[] = "currentChanged(int)";

luabind::scope lqlayout()
{
    using namespace luabind;
    return class_<LLayout, LQObject>("Layout")
        LQ_PROPERTY("spacing", QLayout, spacing, setSpacing)
        LQ_PROPERTY("enabled", QLayout, isEnabled, setEnabled)
        LQ_PROPERTY("sizeConstraint", QLayout, sizeConstraint, setSizeConstraint)
        LQ_READ("count", QLayout, count)
        LQ_READ("isEmpty", QLayout, isEmpty)
        LQ_METHOD("setSpacing", QLayout, setSpacing)
        LQ_METHOD("activate", QLayout, activate)
        LQ_METHOD("update", QLayout, update)
        .def("addWidget", &addWidget)
        .def("removeWidget", &removeWidget)
        .def("indexOf", &indexOf)
        .def("widgetAt", &widgetAt)
        .def("addItem", &addItem)
        .def("setContentsMargins", &setContentsMargins)
        .enum_("SizeConstraint")[
            value("SetDefaultConstraint", QLayout::SetDefaultConstraint),
            value("SetFixedSize", QLayout::SetFixedSize),
            value("SetMinimumSize", QLayout::SetMinimumSize),
            value("SetMaximumSize", QLayout::SetMaximumSize)
        ];
}

luabind::scope lqboxlayout()
{
    using namespace luabind;
    return class_<LBoxLayout, LLayout>("BoxLayout")
        .def("__init", &initDirection<LBoxLayout>)
        LQ_PROPERTY("direction", QBoxLayout, direction, setDirection)
        // A class's overloads hide its base's of the same name: the plain form again.
        .def("addWidget", &addWidget)
        .def("addWidget", &addWidgetStretch)
        .def("addWidget", &addWidgetAligned)
        .def("addLayout", &addLayout)
        .def("addLayout", &addLayoutStretch)
        .def("addStretch", &addStretch)
        .def("addStretch", &addStretchBy)
        .def("addSpacerItem", &addSpacerItem)
        .def("insertWidget", &insertWidget)
        .def("insertLayout", &insertLayout)
        .def("insertStretch", &insertStretch)
        .def("insertSpacing", &insertSpacing)
        .def("layoutStrech", &layoutStrech)
        LQ_METHOD("addSpacing", QBoxLayout, addSpacing)
        LQ_METHOD("addStrut", QBoxLayout, addStrut)
        LQ_METHOD("setStretch", QBoxLayout, setStretch)
        LQ_METHOD("stretch", QBoxLayout, stretch)
        .enum_("Direction")[
            value("LeftToRight", QBoxLayout::LeftToRight),
            value("RightToLeft", QBoxLayout::RightToLeft),
            value("TopToBottom", QBoxLayout::TopToBottom),
            value("BottomToTop", QBoxLayout::BottomToTop)
        ];
}

luabind::scope lqvboxlayout()
{
    using namespace luabind;
    return class_<LVBoxLayout, LBoxLayout>("VBoxLayout")
        LQ_CONSTRUCTORS(LVBoxLayout)
        LQ_PARENT_CONSTRUCTOR(LVBoxLayout);
}

luabind::scope lqhboxlayout()
{
    using namespace luabind;
    return class_<LHBoxLayout, LBoxLayout>("HBoxLayout")
        LQ_CONSTRUCTORS(LHBoxLayout)
        LQ_PARENT_CONSTRUCTOR(LHBoxLayout);
}

luabind::scope lqstatckedlayout()
{
    using namespace luabind;
    return class_<LStackedLayout, LLayout>("StackedLayout")
        LQ_CONSTRUCTORS(LStackedLayout)
        LQ_PARENT_CONSTRUCTOR(LStackedLayout)
        LQ_PROPERTY("currentIndex", QStackedLayout, currentIndex, setCurrentIndex)
        LQ_PROPERTY("stackingMode", QStackedLayout, stackingMode, setStackingMode)
        .property("currentWidget", &currentWidget, &setCurrentWidget)
        LQ_SIGNAL("currentChanged", currentChanged)
        LQ_METHOD("setCurrentIndex", QStackedLayout, setCurrentIndex)
        .def("setCurrentWidget", &setCurrentWidget)
        .def("addWidget", &stackAddWidget)
        .def("widget", &stackWidget)
        .enum_("StackingMode")[value("StackOne", QStackedLayout::StackOne), value("StackAll", QStackedLayout::StackAll)];
}

luabind::scope lqgridlayout()
{
    using namespace luabind;
    return class_<LGridLayout, LLayout>("GridLayout")
        LQ_CONSTRUCTORS(LGridLayout)
        LQ_PARENT_CONSTRUCTOR(LGridLayout)
        LQ_PROPERTY("hSpacing", QGridLayout, horizontalSpacing, setHorizontalSpacing)
        LQ_PROPERTY("vSpacing", QGridLayout, verticalSpacing, setVerticalSpacing)
        LQ_READ("rowCount", QGridLayout, rowCount)
        LQ_READ("columnCount", QGridLayout, columnCount)
        .def("addWidget", &addWidget)
        .def("addWidget", &gridAddWidget)
        .def("addWidget", &gridAddWidgetSpan)
        .def("addLayout", &gridAddLayout)
        .def("addLayout", &gridAddLayoutSpan)
        LQ_METHOD("setRowStretch", QGridLayout, setRowStretch)
        LQ_METHOD("setColumnStretch", QGridLayout, setColumnStretch)
        LQ_METHOD("rowStretch", QGridLayout, rowStretch)
        LQ_METHOD("columnStretch", QGridLayout, columnStretch)
        LQ_METHOD("setRowMinimumHeight", QGridLayout, setRowMinimumHeight)
        LQ_METHOD("setColumnMinimumWidth", QGridLayout, setColumnMinimumWidth);
}

luabind::scope lqformlayout()
{
    using namespace luabind;
    return class_<LFormLayout, LLayout>("FormLayout")
        LQ_CONSTRUCTORS(LFormLayout)
        LQ_PARENT_CONSTRUCTOR(LFormLayout)
        LQ_PROPERTY("hSpacing", QFormLayout, horizontalSpacing, setHorizontalSpacing)
        LQ_PROPERTY("vSpacing", QFormLayout, verticalSpacing, setVerticalSpacing)
        LQ_PROPERTY("labelAlignment", QFormLayout, labelAlignment, setLabelAlignment)
        LQ_READ("rowCount", QFormLayout, rowCount)
        .def("addRow", &addRowText)
        .def("addRow", &addRowTextLayout)
        .def("addRow", &addRowWidgets)
        .def("addRow", &addRowWidget)
        .def("addRow", &addRowLayout)
        .def("insertRow", &insertRowText)
        .def("removeRow", &removeRow)
        .def("labelForField", &labelForField);
}

luabind::scope lqspaceritem()
{
    using namespace luabind;
    return class_<LSpacerItem>("SpacerItem")
        .def(constructor<int, int>())
        .def(constructor<int, int, int, int>())
        .def("changeSize", &changeSize)
        .def("changeSize", &changeSizePolicies)
        .enum_("Policy")[
            value("Fixed", QSizePolicy::Fixed),
            value("Minimum", QSizePolicy::Minimum),
            value("Maximum", QSizePolicy::Maximum),
            value("Preferred", QSizePolicy::Preferred),
            value("Expanding", QSizePolicy::Expanding),
            value("MinimumExpanding", QSizePolicy::MinimumExpanding),
            value("Ignored", QSizePolicy::Ignored)
        ];
}

} // namespace

void registerLuaQLayout(lua_State* state)
{
    lq::wraps<LLayout>();
    lq::wraps<LBoxLayout>();
    lq::wraps<LVBoxLayout>();
    lq::wraps<LHBoxLayout>();
    lq::wraps<LStackedLayout>();
    lq::wraps<LGridLayout>();
    lq::wraps<LFormLayout>();
    luabind::module(state)[
        lqlayout(), lqboxlayout(), lqvboxlayout(), lqhboxlayout(), lqstatckedlayout(), lqgridlayout(),
        lqformlayout(), lqspaceritem()
    ];
}
