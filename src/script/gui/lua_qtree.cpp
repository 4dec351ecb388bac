// TreeWidget and its items: a tree of texts in columns a script fills.
#include "qluaitemhandle.h"
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgettableinit.h"

#include <luabind/operator.hpp>

#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

using LTreeWidgetItem = LItemHandle<QTreeWidgetItem, QTreeWidget>;

template<>
bool LTreeWidgetItem::contains(QTreeWidget* view, const QTreeWidgetItem* item)
{
    for (QTreeWidgetItemIterator it(view); *it; ++it) {
        if (*it == item)
            return true;
    }
    return false;
}

template<>
bool LTreeWidgetItem::isChild(QTreeWidgetItem* parent, const QTreeWidgetItem* item)
{
    return parent->indexOfChild(const_cast<QTreeWidgetItem*>(item)) >= 0;
}

namespace {

QTreeWidget* tree(const LObject& self) { return lq::as<QTreeWidget>(self); }

luabind::object inTree(lua_State* state, QTreeWidgetItem* item, QTreeWidget* view)
{
    return item ? luabind::object(state, LTreeWidgetItem::inView(item, view)) : luabind::object();
}

void setHeaderLabels(const LObject& self, const luabind::table<>& labels) { tree(self)->setHeaderLabels(lq::strings(labels)); }

luabind::object headerLabels(const LObject& self, lua_State* state)
{
    luabind::object labels = luabind::newtable(state);
    const QTreeWidgetItem* header = tree(self)->headerItem();
    for (int column = 0; column < header->columnCount(); ++column)
        labels[column + 1] = lua::std(header->text(column));
    return labels;
}

void addTopLevelItem(const LObject& self, const LTreeWidgetItem& item)
{
    tree(self)->addTopLevelItem(item.handTo(tree(self)));
}

void insertTopLevelItem(const LObject& self, int index, const LTreeWidgetItem& item)
{
    tree(self)->insertTopLevelItem(index, item.handTo(tree(self)));
}

luabind::object topLevelItem(const LObject& self, int index, lua_State* state)
{
    return inTree(state, tree(self)->topLevelItem(index), tree(self));
}

luabind::object takeTopLevelItem(const LObject& self, int index, lua_State* state)
{
    QTreeWidgetItem* item = tree(self)->takeTopLevelItem(index);
    return item ? luabind::object(state, LTreeWidgetItem(item)) : luabind::object();
}

luabind::object currentItem(const LObject& self, lua_State* state)
{
    return inTree(state, tree(self)->currentItem(), tree(self));
}

void setCurrentItem(const LObject& self, const LTreeWidgetItem& item) { tree(self)->setCurrentItem(item.item()); }
int indexOfTopLevelItem(const LObject& self, const LTreeWidgetItem& item) { return tree(self)->indexOfTopLevelItem(item.item()); }

// Items: `TreeWidgetItem{"name", "value"}` makes an item with those column texts.
void initItemTexts(const luabind::argument& self, const luabind::table<>& texts)
{
    lq::place(self, std::make_unique<LTreeWidgetItem>(new QTreeWidgetItem(lq::strings(texts))));
}

std::string text(const LTreeWidgetItem& item, int column) { return lua::std(item.item()->text(column)); }
void setText(const LTreeWidgetItem& item, int column, const std::string& text) { item.item()->setText(column, lua::str(text)); }
std::string toolTip(const LTreeWidgetItem& item, int column) { return lua::std(item.item()->toolTip(column)); }
void setToolTip(const LTreeWidgetItem& item, int column, const std::string& text) { item.item()->setToolTip(column, lua::str(text)); }
int checkState(const LTreeWidgetItem& item, int column) { return int(item.item()->checkState(column)); }
void setCheckState(const LTreeWidgetItem& item, int column, int state) { item.item()->setCheckState(column, Qt::CheckState(state)); }
int columnCount(const LTreeWidgetItem& item) { return item.item()->columnCount(); }
int childCount(const LTreeWidgetItem& item) { return item.item()->childCount(); }
bool expanded(const LTreeWidgetItem& item) { return item.item()->isExpanded(); }
void setExpanded(const LTreeWidgetItem& item, bool expanded) { item.item()->setExpanded(expanded); }
bool hidden(const LTreeWidgetItem& item) { return item.item()->isHidden(); }
void setHidden(const LTreeWidgetItem& item, bool hidden) { item.item()->setHidden(hidden); }
bool selected(const LTreeWidgetItem& item) { return item.item()->isSelected(); }
void setSelected(const LTreeWidgetItem& item, bool selected) { item.item()->setSelected(selected); }
int flags(const LTreeWidgetItem& item) { return int(item.item()->flags().toInt()); }
void setFlags(const LTreeWidgetItem& item, int flags) { item.item()->setFlags(Qt::ItemFlags::fromInt(flags)); }

void addChild(const LTreeWidgetItem& item, const LTreeWidgetItem& child)
{
    QTreeWidgetItem* parent = item.item();
    parent->addChild(child.handToParent(item));
}

luabind::object child(const LTreeWidgetItem& item, int index, lua_State* state)
{
    QTreeWidgetItem* found = item.item()->child(index);
    return found ? luabind::object(state, LTreeWidgetItem::inParent(found, item)) : luabind::object();
}

luabind::object takeChild(const LTreeWidgetItem& item, int index, lua_State* state)
{
    QTreeWidgetItem* taken = item.item()->takeChild(index);
    return taken ? luabind::object(state, LTreeWidgetItem(taken)) : luabind::object();
}

int indexOfChild(const LTreeWidgetItem& item, const LTreeWidgetItem& child)
{
    return item.item()->indexOfChild(child.item());
}

constexpr char itemSelectionChanged[] = "itemSelectionChanged()";
constexpr char currentItemChanged[] = "currentItemChanged(QTreeWidgetItem*,QTreeWidgetItem*)";
constexpr char itemChanged[] = "itemChanged(QTreeWidgetItem*,int)";

} // namespace

luabind::scope lqtreewidget()
{
    using namespace luabind;
    return class_<LTreeWidget, LAbstractScrollArea>("TreeWidget")
        LQ_CONSTRUCTORS(LTreeWidget)
        LQ_PARENT_CONSTRUCTOR(LTreeWidget)
        LQ_PROPERTY("columnCount", QTreeWidget, columnCount, setColumnCount)
        LQ_PROPERTY("headerHidden", QTreeWidget, isHeaderHidden, setHeaderHidden)
        LQ_PROPERTY("sortingEnabled", QTreeWidget, isSortingEnabled, setSortingEnabled)
        LQ_PROPERTY("rootIsDecorated", QTreeWidget, rootIsDecorated, setRootIsDecorated)
        LQ_PROPERTY("selectionMode", QTreeWidget, selectionMode, setSelectionMode)
        LQ_READ("topLevelItemCount", QTreeWidget, topLevelItemCount)
        .property("headerLabels", &headerLabels, &setHeaderLabels)
        .property("currentItem", &currentItem, &setCurrentItem)
        LQ_SIGNAL("itemSelectionChanged", itemSelectionChanged)
        // Qt gives the items; scripts read currentItem in the function.
        LQ_SIGNAL("currentItemChanged", currentItemChanged)
        LQ_SIGNAL("itemChanged", itemChanged)
        .def("setHeaderLabels", &setHeaderLabels)
        .def("addTopLevelItem", &addTopLevelItem)
        .def("insertTopLevelItem", &insertTopLevelItem)
        .def("topLevelItem", &topLevelItem)
        .def("takeTopLevelItem", &takeTopLevelItem)
        .def("indexOfTopLevelItem", &indexOfTopLevelItem)
        LQ_METHOD("sortItems", QTreeWidget, sortItems)
        LQ_METHOD("expandAll", QTreeWidget, expandAll)
        LQ_METHOD("collapseAll", QTreeWidget, collapseAll)
        LQ_METHOD("clear", QTreeWidget, clear);
}

luabind::scope lqtreewidgetitem()
{
    using namespace luabind;
    return class_<LTreeWidgetItem>("TreeWidgetItem")
        .def("__init", &lq::initItem<LTreeWidgetItem>)
        .def("__init", &initItemTexts)
        .property("columnCount", &columnCount)
        .property("childCount", &childCount)
        .property("expanded", &expanded, &setExpanded)
        .property("hidden", &hidden, &setHidden)
        .property("selected", &selected, &setSelected)
        .property("flags", &flags, &setFlags)
        .def("text", &text)
        .def("setText", &setText)
        .def("toolTip", &toolTip)
        .def("setToolTip", &setToolTip)
        .def("checkState", &checkState)
        .def("setCheckState", &setCheckState)
        .def("addChild", &addChild)
        .def("child", &child)
        .def("takeChild", &takeChild)
        .def("indexOfChild", &indexOfChild)
        .def(const_self < const_self);
}
