// Frames and dialogs: Frame, Dialog (opened modally with exec), GroupBox,
// Wizard and WizardPage.
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <QDialog>
#include <QFrame>
#include <QGroupBox>
#include <QWizard>
#include <QWizardPage>

namespace {

/// The pages scripts make, which may register their fields with the wizard.
class QLuaWizardPage : public QWizardPage
{
public:
    using QWizardPage::QWizardPage;
    using QWizardPage::registerField;
};

QWizardPage* makePage(const luabind::argument& self)
{
    auto* page = new QLuaWizardPage;
    auto handle = std::make_unique<LWizardPage>(page);
    handle->own();
    lq::place(self, std::move(handle));
    return page;
}

void initPage(const luabind::argument& self)
{
    makePage(self);
}

void initPageTable(const luabind::argument& self, const luabind::table<>& table)
{
    lq::applyTableTo<LWizardPage>(self.interpreter(), makePage(self), table);
}

QWizard* wizard(const LObject& self) { return lq::as<QWizard>(self); }

int addPage(const LObject& self, const LWizardPage& page) { return wizard(self)->addPage(page.get()); }
void setPage(const LObject& self, int id, const LWizardPage& page) { wizard(self)->setPage(id, page.get()); }

luabind::object page(const LObject& self, int id, lua_State* state)
{
    return LQObject::wrap(state, wizard(self)->page(id));
}

luabind::object currentPage(const LObject& self, lua_State* state)
{
    return LQObject::wrap(state, wizard(self)->currentPage());
}

luabind::object idList(lua_State* state, const QList<int>& ids)
{
    luabind::object list = luabind::newtable(state);
    for (int i = 0; i < ids.size(); ++i)
        list[i + 1] = ids.at(i);
    return list;
}

luabind::object pageIds(const LObject& self, lua_State* state) { return idList(state, wizard(self)->pageIds()); }
luabind::object visitedPages(const LObject& self, lua_State* state) { return idList(state, wizard(self)->visitedIds()); }

// Fields carry booleans, numbers and texts between Lua and the wizard.
luabind::object field(const LObject& self, const std::string& name, lua_State* state)
{
    const QVariant value = wizard(self)->field(lua::str(name));
    switch (value.typeId()) {
    case QMetaType::Bool:
        return luabind::object(state, value.toBool());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Double:
        return luabind::object(state, value.toDouble());
    case QMetaType::UnknownType:
        return luabind::object();
    default:
        return luabind::object(state, value.toString().toStdString());
    }
}

void setField(const LObject& self, const std::string& name, const luabind::object& value)
{
    QVariant variant;
    switch (luabind::type(value)) {
    case LUA_TBOOLEAN:
        variant = luabind::object_cast<bool>(value);
        break;
    case LUA_TNUMBER: {
        const double number = luabind::object_cast<double>(value);
        variant = number == int(number) ? QVariant(int(number)) : QVariant(number);
        break;
    }
    default:
        variant = lua::str(luabind::object_cast<std::string>(value));
    }
    wizard(self)->setField(lua::str(name), variant);
}

// registerField(name, widget): the widget's value becomes the wizard's field
// `name` ("name*" makes it mandatory).
void registerField(const LObject& self, const std::string& name, const LWidget& widget)
{
    auto* page = dynamic_cast<QLuaWizardPage*>(lq::as<QWizardPage>(self));
    if (!page)
        throw lua::fault(QStringLiteral("only pages a script made register fields"));
    page->registerField(lua::str(name), widget.get());
}

constexpr char accepted[] = "accepted()";
constexpr char rejected[] = "rejected()";
constexpr char finished[] = "finished(int)";
constexpr char clicked[] = "clicked(bool)";
constexpr char toggled[] = "toggled(bool)";
constexpr char currentIdChanged[] = "currentIdChanged(int)";
constexpr char pageAdded[] = "pageAdded(int)";
constexpr char pageRemoved[] = "pageRemoved(int)";
constexpr char completeChanged[] = "completeChanged()";

luabind::scope lqframe()
{
    using namespace luabind;
    return class_<LFrame, LWidget>("Frame")
        LQ_CONSTRUCTORS(LFrame)
        LQ_PARENT_CONSTRUCTOR(LFrame)
        LQ_PROPERTY("frameShape", QFrame, frameShape, setFrameShape)
        LQ_PROPERTY("frameShadow", QFrame, frameShadow, setFrameShadow)
        LQ_PROPERTY("frameStyle", QFrame, frameStyle, setFrameStyle)
        LQ_PROPERTY("lineWidth", QFrame, lineWidth, setLineWidth)
        LQ_PROPERTY("midLineWidth", QFrame, midLineWidth, setMidLineWidth)
        .enum_("Shape")[
            value("NoFrame", QFrame::NoFrame), value("Box", QFrame::Box), value("Panel", QFrame::Panel),
            value("StyledPanel", QFrame::StyledPanel), value("HLine", QFrame::HLine), value("VLine", QFrame::VLine),
            value("WinPanel", QFrame::WinPanel)
        ]
        .enum_("Shadow")[value("Plain", QFrame::Plain), value("Raised", QFrame::Raised), value("Sunken", QFrame::Sunken)];
}

luabind::scope lqdialog()
{
    using namespace luabind;
    return class_<LDialog, LWidget>("Dialog")
        LQ_WINDOW_CONSTRUCTORS(LDialog)
        LQ_PARENT_CONSTRUCTOR(LDialog)
        LQ_PROPERTY("modal", QDialog, isModal, setModal)
        LQ_PROPERTY("result", QDialog, result, setResult)
        LQ_PROPERTY("sizeGripEnabled", QDialog, isSizeGripEnabled, setSizeGripEnabled)
        LQ_SIGNAL("accepted", accepted)
        LQ_SIGNAL("rejected", rejected)
        LQ_SIGNAL("finished", finished)
        LQ_METHOD("exec", QDialog, exec)
        LQ_METHOD("open", QDialog, open)
        LQ_METHOD("accept", QDialog, accept)
        LQ_METHOD("reject", QDialog, reject)
        LQ_METHOD("done", QDialog, done)
        LQ_METHOD("setModal", QDialog, setModal)
        LQ_METHOD("setResult", QDialog, setResult)
        .enum_("DialogCode")[value("Rejected", QDialog::Rejected), value("Accepted", QDialog::Accepted)];
}

luabind::scope lqgroupbox()
{
    using namespace luabind;
    return class_<LGroupBox, LWidget>("GroupBox")
        LQ_CONSTRUCTORS(LGroupBox)
        LQ_TEXT_CONSTRUCTOR(LGroupBox)
        LQ_PARENT_CONSTRUCTOR(LGroupBox)
        LQ_PROPERTY("title", QGroupBox, title, setTitle)
        LQ_PROPERTY("flat", QGroupBox, isFlat, setFlat)
        LQ_PROPERTY("checkable", QGroupBox, isCheckable, setCheckable)
        LQ_PROPERTY("checked", QGroupBox, isChecked, setChecked)
        LQ_PROPERTY("alignment", QGroupBox, alignment, setAlignment)
        LQ_SIGNAL("clicked", clicked)
        LQ_SIGNAL("toggled", toggled)
        LQ_METHOD("setTitle", QGroupBox, setTitle)
        LQ_METHOD("setChecked", QGroupBox, setChecked);
}

luabind::scope lqwizard()
{
    using namespace luabind;
    return class_<LWizard, LDialog>("Wizard")
        LQ_WINDOW_CONSTRUCTORS(LWizard)
        LQ_PARENT_CONSTRUCTOR(LWizard)
        LQ_PROPERTY("startId", QWizard, startId, setStartId)
        LQ_PROPERTY("wizardStyle", QWizard, wizardStyle, setWizardStyle)
        LQ_PROPERTY("titleFormat", QWizard, titleFormat, setTitleFormat)
        LQ_PROPERTY("subTitleFormat", QWizard, subTitleFormat, setSubTitleFormat)
        LQ_READ("currentId", QWizard, currentId)
        .property("currentPage", &currentPage)
        .property("pageIds", &pageIds)
        .property("visitedPages", &visitedPages)
        LQ_SIGNAL("currentIdChanged", currentIdChanged)
        LQ_SIGNAL("pageAdded", pageAdded)
        LQ_SIGNAL("pageRemoved", pageRemoved)
        .def("addPage", &addPage)
        .def("setPage", &setPage)
        .def("page", &page)
        .def("field", &field)
        .def("setField", &setField)
        LQ_METHOD("removePage", QWizard, removePage)
        LQ_METHOD("hasVisitedPage", QWizard, hasVisitedPage)
        LQ_METHOD("nextId", QWizard, nextId)
        LQ_METHOD("restart", QWizard, restart)
        LQ_METHOD("back", QWizard, back)
        LQ_METHOD("next", QWizard, next)
        .enum_("WizardStyle")[
            value("ClassicStyle", QWizard::ClassicStyle), value("ModernStyle", QWizard::ModernStyle),
            value("MacStyle", QWizard::MacStyle), value("AeroStyle", QWizard::AeroStyle)
        ];
}

luabind::scope lqwizardpage()
{
    using namespace luabind;
    return class_<LWizardPage, LWidget>("WizardPage")
        .def("__init", &initPage)
        .def("__init", &initPageTable)
        LQ_PROPERTY("title", QWizardPage, title, setTitle)
        LQ_PROPERTY("subTitle", QWizardPage, subTitle, setSubTitle)
        LQ_PROPERTY("finalPage", QWizardPage, isFinalPage, setFinalPage)
        LQ_PROPERTY("commitPage", QWizardPage, isCommitPage, setCommitPage)
        LQ_READ("isComplete", QWizardPage, isComplete)
        LQ_SIGNAL("completeChanged", completeChanged)
        .def("registerField", &registerField);
}

} // namespace

void registerLuaQDialog(lua_State* state)
{
    lq::wraps<LFrame>();
    lq::wraps<LDialog>();
    lq::wraps<LGroupBox>();
    lq::wraps<LWizard>();
    lq::wraps<LWizardPage>();
    luabind::module(state)[lqframe(), lqdialog(), lqgroupbox(), lqwizard(), lqwizardpage()];
}
