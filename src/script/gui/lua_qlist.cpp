// Choosing from lists: ComboBox, with its signals split by argument
// (activated gives the index, activatedString the text), and ListWidget
// with its items. Trees and tables are in lua_qtree.cpp and lua_qtable.cpp.
#include "qluaitemhandle.h"
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <luabind/operator.hpp>

#include <QComboBox>
#include <QListWidget>
#include <QTableWidget>
#include <QTreeWidget>

// The trees' and tables' classes, registered with this family.
luabind::scope lqtreewidget();
luabind::scope lqtreewidgetitem();
luabind::scope lqtablewidget();
luabind::scope lqtablewidgetitem();
luabind::scope lqtablewidgetselectionrange();

using LListWidgetItem = LItemHandle<QListWidgetItem, QListWidget>;

template<>
bool LListWidgetItem::contains(QListWidget* view, const QListWidgetItem* item)
{
    for (int row = 0; row < view->count(); ++row) {
        if (view->item(row) == item)
            return true;
    }
    return false;
}

template<>
bool LListWidgetItem::isChild(QListWidgetItem*, const QListWidgetItem*)
{
    return false;
}

namespace {

// Combo boxes.
QComboBox* combo(const LObject& self) { return lq::as<QComboBox>(self); }

void comboAddItem(const LObject& self, const std::string& text) { combo(self)->addItem(lua::str(text)); }
void comboAddItems(const LObject& self, const luabind::table<>& texts) { combo(self)->addItems(lq::strings(texts)); }
void comboInsertItem(const LObject& self, int index, const std::string& text) { combo(self)->insertItem(index, lua::str(text)); }
int comboFindText(const LObject& self, const std::string& text) { return combo(self)->findText(lua::str(text)); }
std::string comboItemText(const LObject& self, int index) { return lua::std(combo(self)->itemText(index)); }

luabind::object comboItems(const LObject& self, lua_State* state)
{
    luabind::object texts = luabind::newtable(state);
    for (int i = 0; i < combo(self)->count(); ++i)
        texts[i + 1] = lua::std(combo(self)->itemText(i));
    return texts;
}

// items = {...} replaces the entries, so a constructor table can fill the box.
void setComboItems(const LObject& self, const luabind::table<>& texts)
{
    combo(self)->clear();
    combo(self)->addItems(lq::strings(texts));
}

// List widgets.
QListWidget* list(const LObject& self) { return lq::as<QListWidget>(self); }

void listAddText(const LObject& self, const std::string& text) { list(self)->addItem(lua::str(text)); }
void listAddItem(const LObject& self, const LListWidgetItem& item) { list(self)->addItem(item.handTo(list(self))); }
void listAddItems(const LObject& self, const luabind::table<>& texts) { list(self)->addItems(lq::strings(texts)); }
void listInsertText(const LObject& self, int row, const std::string& text) { list(self)->insertItem(row, lua::str(text)); }

void listInsertItem(const LObject& self, int row, const LListWidgetItem& item)
{
    list(self)->insertItem(row, item.handTo(list(self)));
}

luabind::object listItem(const LObject& self, int row, lua_State* state)
{
    QListWidgetItem* item = list(self)->item(row);
    return item ? luabind::object(state, LListWidgetItem::inView(item, list(self))) : luabind::object();
}

luabind::object currentItem(const LObject& self, lua_State* state)
{
    QListWidgetItem* item = list(self)->currentItem();
    return item ? luabind::object(state, LListWidgetItem::inView(item, list(self))) : luabind::object();
}

void setCurrentItem(const LObject& self, const LListWidgetItem& item) { list(self)->setCurrentItem(item.item()); }

// takeItem(row): the item leaves the list and is the script's again.
luabind::object takeItem(const LObject& self, int row, lua_State* state)
{
    QListWidgetItem* item = list(self)->takeItem(row);
    return item ? luabind::object(state, LListWidgetItem(item)) : luabind::object();
}

int listRow(const LObject& self, const LListWidgetItem& item) { return list(self)->row(item.item()); }

luabind::object selectedRows(const LObject& self, lua_State* state)
{
    luabind::object rows = luabind::newtable(state);
    int n = 1;
    for (QListWidgetItem* item : list(self)->selectedItems())
        rows[n++] = list(self)->row(item);
    return rows;
}

void setCurrentRow(const LObject& self, int row) { list(self)->setCurrentRow(row); }
void sortItems(const LObject& self) { list(self)->sortItems(); }

// List items.
bool itemHidden(const LListWidgetItem& item) { return item.item()->isHidden(); }
void setItemHidden(const LListWidgetItem& item, bool hidden) { item.item()->setHidden(hidden); }

constexpr char activated[] = "activated(int)";
constexpr char textActivated[] = "textActivated(QString)";
constexpr char currentIndexChanged[] = "currentIndexChanged(int)";
constexpr char currentTextChanged[] = "currentTextChanged(QString)";
constexpr char highlighted[] = "highlighted(int)";
constexpr char textHighlighted[] = "textHighlighted(QString)";
constexpr char editTextChanged[] = "editTextChanged(QString)";
constexpr char currentRowChanged[] = "currentRowChanged(int)";
constexpr char itemSelectionChanged[] = "itemSelectionChanged()";

luabind::scope lqcombobox()
{
    using namespace luabind;
    return class_<LComboBox, LWidget>("ComboBox")
        LQ_CONSTRUCTORS(LComboBox)
        LQ_PARENT_CONSTRUCTOR(LComboBox)
        LQ_PROPERTY("currentIndex", QComboBox, currentIndex, setCurrentIndex)
        LQ_PROPERTY("currentText", QComboBox, currentText, setCurrentText)
        LQ_PROPERTY("editable", QComboBox, isEditable, setEditable)
        LQ_PROPERTY("maxVisibleItems", QComboBox, maxVisibleItems, setMaxVisibleItems)
        LQ_PROPERTY("maxCount", QComboBox, maxCount, setMaxCount)
        LQ_PROPERTY("duplicatesEnabled", QComboBox, duplicatesEnabled, setDuplicatesEnabled)
        LQ_PROPERTY("placeholderText", QComboBox, placeholderText, setPlaceholderText)
        LQ_PROPERTY("editText", QComboBox, currentText, setEditText)
        LQ_READ("count", QComboBox, count)
        .property("items", &comboItems, &setComboItems)
        LQ_SIGNAL("activated", activated)
        LQ_SIGNAL("activatedString", textActivated)
        LQ_SIGNAL("textActivated", textActivated)
        LQ_SIGNAL("currentIndexChanged", currentIndexChanged)
        LQ_SIGNAL("currentIndexChangedString", currentTextChanged)
        LQ_SIGNAL("currentTextChanged", currentTextChanged)
        LQ_SIGNAL("highlighted", highlighted)
        LQ_SIGNAL("highlightedString", textHighlighted)
        LQ_SIGNAL("textHighlighted", textHighlighted)
        LQ_SIGNAL("editTextChanged", editTextChanged)
        .def("addItem", &comboAddItem)
        .def("addItems", &comboAddItems)
        .def("insertItem", &comboInsertItem)
        .def("findText", &comboFindText)
        .def("itemText", &comboItemText)
        LQ_METHOD("setItemText", QComboBox, setItemText)
        LQ_METHOD("removeItem", QComboBox, removeItem)
        LQ_METHOD("setCurrentIndex", QComboBox, setCurrentIndex)
        LQ_METHOD("setCurrentText", QComboBox, setCurrentText)
        LQ_METHOD("clear", QComboBox, clear);
}

luabind::scope lqlistwidget()
{
    using namespace luabind;
    return class_<LListWidget, LAbstractScrollArea>("ListWidget")
        LQ_CONSTRUCTORS(LListWidget)
        LQ_PARENT_CONSTRUCTOR(LListWidget)
        .property("currentRow", &lq::Call<QListWidget, &QListWidget::currentRow>::call, &setCurrentRow)
        LQ_PROPERTY("sortingEnabled", QListWidget, isSortingEnabled, setSortingEnabled)
        LQ_PROPERTY("selectionMode", QListWidget, selectionMode, setSelectionMode)
        LQ_READ("count", QListWidget, count)
        .property("currentItem", &currentItem, &setCurrentItem)
        .property("selectedRows", &selectedRows)
        LQ_SIGNAL("currentRowChanged", currentRowChanged)
        LQ_SIGNAL("currentTextChanged", currentTextChanged)
        LQ_SIGNAL("itemSelectionChanged", itemSelectionChanged)
        .def("addItem", &listAddText)
        .def("addItem", &listAddItem)
        .def("addItems", &listAddItems)
        .def("insertItem", &listInsertText)
        .def("insertItem", &listInsertItem)
        .def("item", &listItem)
        .def("takeItem", &takeItem)
        .def("row", &listRow)
        .def("sortItems", &sortItems)
        .def("setCurrentRow", &setCurrentRow)
        LQ_METHOD("clear", QListWidget, clear)
        .enum_("SelectionMode")[
            value("NoSelection", QAbstractItemView::NoSelection),
            value("SingleSelection", QAbstractItemView::SingleSelection),
            value("MultiSelection", QAbstractItemView::MultiSelection),
            value("ExtendedSelection", QAbstractItemView::ExtendedSelection),
            value("ContiguousSelection", QAbstractItemView::ContiguousSelection)
        ];
}

luabind::scope lqlistwidgetitem()
{
    using namespace luabind;
    return class_<LListWidgetItem>("ListWidgetItem")
        LQ_ITEM_PROPERTIES(LListWidgetItem)
        .property("hidden", &itemHidden, &setItemHidden)
        .def(const_self < const_self)
        .enum_("ItemFlag")[
            value("NoItemFlags", Qt::NoItemFlags), value("ItemIsSelectable", Qt::ItemIsSelectable),
            value("ItemIsEditable", Qt::ItemIsEditable), value("ItemIsUserCheckable", Qt::ItemIsUserCheckable),
            value("ItemIsEnabled", Qt::ItemIsEnabled)
        ];
}

} // namespace

void registerLuaQList(lua_State* state)
{
    lq::wraps<LComboBox>();
    lq::wraps<LListWidget>();
    lq::wraps<LTreeWidget>();
    lq::wraps<LTableWidget>();
    luabind::module(state)[lqcombobox(), lqlistwidget(), lqlistwidgetitem(), lqtreewidget(), lqtreewidgetitem(),
                                 lqtablewidget(), lqtablewidgetitem(), lqtablewidgetselectionrange()];
}
