// Widget: QWidget for scripts, with Qt's names and the short forms scripts
// are written with (minW, maxH, hidden, focus, and the old spelling heigth).
#include "qluaeventhandlers.h"
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <QLayout>
#include <QWidget>

namespace {

QWidget* widget(const LObject& self)
{
    return lq::as<QWidget>(self);
}

luabind::object parent(const LObject& self, lua_State* state)
{
    return LQObject::wrap(state, widget(self)->parentWidget());
}

// setParent(widget) hands the widget to Qt; setParent(nil) gives it back to the script.
void setParent(const LObject& self, const luabind::object& parent)
{
    QWidget* child = widget(self);
    if (luabind::type(parent) == LUA_TNIL) {
        child->setParent(nullptr);
        return;
    }
    child->setParent(luabind::object_cast<LWidget*>(parent)->get());
}

luabind::object layout(const LObject& self, lua_State* state)
{
    return LQObject::wrap(state, widget(self)->layout());
}

void setLayout(const LObject& self, const LLayout& layout)
{
    widget(self)->setLayout(layout.get());
}

void setFocus(const LObject& self, bool focus)
{
    if (focus)
        widget(self)->setFocus();
    else
        widget(self)->clearFocus();
}

void focusWidget(const LObject& self)
{
    widget(self)->setFocus();
}

void resize(const LObject& self, int width, int height) { widget(self)->resize(width, height); }
void move(const LObject& self, int x, int y) { widget(self)->move(x, y); }
void setFixedSize(const LObject& self, int width, int height) { widget(self)->setFixedSize(width, height); }
void setMinimumSize(const LObject& self, int width, int height) { widget(self)->setMinimumSize(width, height); }
void setMaximumSize(const LObject& self, int width, int height) { widget(self)->setMaximumSize(width, height); }
void update(const LObject& self) { widget(self)->update(); }
void repaint(const LObject& self) { widget(self)->repaint(); }

luabind::object findChild(const LObject& self, const std::string& name, lua_State* state)
{
    return LQObject::wrap(state, widget(self)->findChild<QObject*>(lua::str(name)));
}

constexpr char windowTitleChanged[] = "windowTitleChanged(QString)";

} // namespace

void registerLuaQObject(lua_State* state)
{
    using namespace luabind;
    lq::wraps<LWidget>();
    module(state)[
        class_<LQObject, LObject>("QtObject"),
        class_<LWidget, LQObject>("Widget")
            LQ_CONSTRUCTORS(LWidget)
            LQ_PARENT_CONSTRUCTOR(LWidget)
            LQ_PROPERTY("windowTitle", QWidget, windowTitle, setWindowTitle)
            LQ_PROPERTY("toolTip", QWidget, toolTip, setToolTip)
            LQ_PROPERTY("statusTip", QWidget, statusTip, setStatusTip)
            LQ_PROPERTY("whatsThis", QWidget, whatsThis, setWhatsThis)
            LQ_PROPERTY("styleSheet", QWidget, styleSheet, setStyleSheet)
            LQ_PROPERTY("enabled", QWidget, isEnabled, setEnabled)
            LQ_PROPERTY("hidden", QWidget, isHidden, setHidden)
            LQ_PROPERTY("visible", QWidget, isVisible, setVisible)
            LQ_PROPERTY("minW", QWidget, minimumWidth, setMinimumWidth)
            LQ_PROPERTY("minWidth", QWidget, minimumWidth, setMinimumWidth)
            LQ_PROPERTY("minimumWidth", QWidget, minimumWidth, setMinimumWidth)
            LQ_PROPERTY("maxW", QWidget, maximumWidth, setMaximumWidth)
            LQ_PROPERTY("maxWidth", QWidget, maximumWidth, setMaximumWidth)
            LQ_PROPERTY("maximumWidth", QWidget, maximumWidth, setMaximumWidth)
            LQ_PROPERTY("minH", QWidget, minimumHeight, setMinimumHeight)
            LQ_PROPERTY("minHeight", QWidget, minimumHeight, setMinimumHeight)
            LQ_PROPERTY("minimumHeight", QWidget, minimumHeight, setMinimumHeight)
            LQ_PROPERTY("maxH", QWidget, maximumHeight, setMaximumHeight)
            LQ_PROPERTY("maxHeight", QWidget, maximumHeight, setMaximumHeight)
            LQ_PROPERTY("maximumHeight", QWidget, maximumHeight, setMaximumHeight)
            LQ_PROPERTY("fixedWidth", QWidget, width, setFixedWidth)
            LQ_PROPERTY("fixedHeight", QWidget, height, setFixedHeight)
            LQ_READ("width", QWidget, width)
            LQ_READ("height", QWidget, height)
            LQ_READ("heigth", QWidget, height)
            LQ_READ("x", QWidget, x)
            LQ_READ("y", QWidget, y)
            LQ_READ("isWindow", QWidget, isWindow)
            LQ_READ("isActiveWindow", QWidget, isActiveWindow)
            .property("focus", &lq::Call<QWidget, &QWidget::hasFocus>::call, &setFocus)
            .property("parent", &parent)
            .property("layout", &layout, &setLayout)
            LQ_SIGNAL("windowTitleChanged", windowTitleChanged)
            LQ_EVENT("paintEvent", Paint)
            LQ_EVENT("mousePressEvent", MouseButtonPress)
            LQ_EVENT("mouseReleaseEvent", MouseButtonRelease)
            LQ_EVENT("mouseDoubleClickEvent", MouseButtonDblClick)
            LQ_EVENT("mouseMoveEvent", MouseMove)
            LQ_EVENT("wheelEvent", Wheel)
            LQ_EVENT("keyPressEvent", KeyPress)
            LQ_EVENT("keyReleaseEvent", KeyRelease)
            LQ_EVENT("resizeEvent", Resize)
            LQ_EVENT("showEvent", Show)
            LQ_EVENT("hideEvent", Hide)
            LQ_EVENT("timerEvent", Timer)
            LQ_METHOD("show", QWidget, show)
            LQ_METHOD("hide", QWidget, hide)
            LQ_METHOD("close", QWidget, close)
            LQ_METHOD("raise", QWidget, raise)
            LQ_METHOD("lower", QWidget, lower)
            LQ_METHOD("activateWindow", QWidget, activateWindow)
            LQ_METHOD("adjustSize", QWidget, adjustSize)
            LQ_METHOD("showMaximized", QWidget, showMaximized)
            LQ_METHOD("showMinimized", QWidget, showMinimized)
            LQ_METHOD("showNormal", QWidget, showNormal)
            LQ_METHOD("isVisible", QWidget, isVisible)
            LQ_METHOD("isHidden", QWidget, isHidden)
            LQ_METHOD("isEnabled", QWidget, isEnabled)
            LQ_METHOD("hasFocus", QWidget, hasFocus)
            LQ_METHOD("setEnabled", QWidget, setEnabled)
            LQ_METHOD("setDisabled", QWidget, setDisabled)
            LQ_METHOD("setHidden", QWidget, setHidden)
            LQ_METHOD("setVisible", QWidget, setVisible)
            LQ_METHOD("setWindowTitle", QWidget, setWindowTitle)
            LQ_METHOD("setToolTip", QWidget, setToolTip)
            LQ_METHOD("setStyleSheet", QWidget, setStyleSheet)
            LQ_METHOD("setFixedWidth", QWidget, setFixedWidth)
            LQ_METHOD("setFixedHeight", QWidget, setFixedHeight)
            LQ_METHOD("setMinimumWidth", QWidget, setMinimumWidth)
            LQ_METHOD("setMaximumWidth", QWidget, setMaximumWidth)
            LQ_METHOD("setMinimumHeight", QWidget, setMinimumHeight)
            LQ_METHOD("setMaximumHeight", QWidget, setMaximumHeight)
            .def("setFocus", &focusWidget)
            .def("setParent", &setParent)
            .def("parentWidget", &parent)
            .def("setLayout", &setLayout)
            .def("resize", &resize)
            .def("move", &move)
            .def("setFixedSize", &setFixedSize)
            .def("setMinimumSize", &setMinimumSize)
            .def("setMaximumSize", &setMaximumSize)
            .def("update", &update)
            .def("repaint", &repaint)
            .def("findChild", &findChild)
            .enum_("Alignment")[
                value("AlignLeft", Qt::AlignLeft), value("AlignRight", Qt::AlignRight),
                value("AlignHCenter", Qt::AlignHCenter), value("AlignJustify", Qt::AlignJustify),
                value("AlignTop", Qt::AlignTop), value("AlignBottom", Qt::AlignBottom),
                value("AlignVCenter", Qt::AlignVCenter), value("AlignCenter", Qt::AlignCenter)
            ]
            .enum_("Orientation")[value("Horizontal", Qt::Horizontal), value("Vertical", Qt::Vertical)]
    ];
}
