// TableWidget, its items and its selection ranges: a grid of texts with
// headers (hHeader, vHeader) a script fills and reads back.
#include "qluaitemhandle.h"
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgettableinit.h"

#include <luabind/operator.hpp>

#include <QTableWidget>

using LTableWidgetItem = LItemHandle<QTableWidgetItem, QTableWidget>;

template<>
bool LTableWidgetItem::contains(QTableWidget* view, const QTableWidgetItem* item)
{
    for (int row = 0; row < view->rowCount(); ++row) {
        for (int column = 0; column < view->columnCount(); ++column) {
            if (view->item(row, column) == item)
                return true;
        }
    }
    return false;
}

template<>
bool LTableWidgetItem::isChild(QTableWidgetItem*, const QTableWidgetItem*)
{
    return false;
}

namespace {

QTableWidget* table(const LObject& self) { return lq::as<QTableWidget>(self); }

void initSized(const luabind::argument& self, int rows, int columns)
{
    lq::make<LTableWidget>(self, rows, columns);
}

luabind::object headers(lua_State* state, QTableWidget* view, Qt::Orientation orientation)
{
    luabind::object labels = luabind::newtable(state);
    const int count = orientation == Qt::Horizontal ? view->columnCount() : view->rowCount();
    for (int i = 0; i < count; ++i) {
        const QTableWidgetItem* item = orientation == Qt::Horizontal ? view->horizontalHeaderItem(i) : view->verticalHeaderItem(i);
        labels[i + 1] = item ? lua::std(item->text()) : std::string();
    }
    return labels;
}

luabind::object hHeader(const LObject& self, lua_State* state) { return headers(state, table(self), Qt::Horizontal); }
luabind::object vHeader(const LObject& self, lua_State* state) { return headers(state, table(self), Qt::Vertical); }
void setHHeader(const LObject& self, const luabind::table<>& labels) { table(self)->setHorizontalHeaderLabels(lq::strings(labels)); }
void setVHeader(const LObject& self, const luabind::table<>& labels) { table(self)->setVerticalHeaderLabels(lq::strings(labels)); }

void setItem(const LObject& self, int row, int column, const LTableWidgetItem& item)
{
    table(self)->setItem(row, column, item.handTo(table(self)));
}

luabind::object item(const LObject& self, int row, int column, lua_State* state)
{
    QTableWidgetItem* found = table(self)->item(row, column);
    return found ? luabind::object(state, LTableWidgetItem::inView(found, table(self))) : luabind::object();
}

luabind::object takeItem(const LObject& self, int row, int column, lua_State* state)
{
    QTableWidgetItem* taken = table(self)->takeItem(row, column);
    return taken ? luabind::object(state, LTableWidgetItem(taken)) : luabind::object();
}

// The text of a cell, empty where no item is; setting it makes the item.
std::string cellText(const LObject& self, int row, int column)
{
    const QTableWidgetItem* found = table(self)->item(row, column);
    return found ? lua::std(found->text()) : std::string();
}

void setCellText(const LObject& self, int row, int column, const std::string& text)
{
    if (QTableWidgetItem* found = table(self)->item(row, column))
        found->setText(lua::str(text));
    else
        table(self)->setItem(row, column, new QTableWidgetItem(lua::str(text)));
}

void setCurrentCell(const LObject& self, int row, int column) { table(self)->setCurrentCell(row, column); }

luabind::object selectedRanges(const LObject& self, lua_State* state)
{
    luabind::object ranges = luabind::newtable(state);
    int n = 1;
    for (const QTableWidgetSelectionRange& range : table(self)->selectedRanges())
        ranges[n++] = range;
    return ranges;
}

void setRangeSelected(const LObject& self, const QTableWidgetSelectionRange& range, bool select)
{
    table(self)->setRangeSelected(range, select);
}

// Items.
int row(const LTableWidgetItem& item) { return item.item()->row(); }
int column(const LTableWidgetItem& item) { return item.item()->column(); }
int textAlignment(const LTableWidgetItem& item) { return item.item()->textAlignment(); }
void setTextAlignment(const LTableWidgetItem& item, int alignment) { item.item()->setTextAlignment(alignment); }

constexpr char cellChanged[] = "cellChanged(int,int)";
constexpr char cellClicked[] = "cellClicked(int,int)";
constexpr char cellDoubleClicked[] = "cellDoubleClicked(int,int)";
constexpr char currentCellChanged[] = "currentCellChanged(int,int,int,int)";
constexpr char itemSelectionChanged[] = "itemSelectionChanged()";

} // namespace

luabind::scope lqtablewidget()
{
    using namespace luabind;
    return class_<LTableWidget, LAbstractScrollArea>("TableWidget")
        LQ_CONSTRUCTORS(LTableWidget)
        LQ_PARENT_CONSTRUCTOR(LTableWidget)
        .def("__init", &initSized)
        LQ_PROPERTY("rowCount", QTableWidget, rowCount, setRowCount)
        LQ_PROPERTY("columnCount", QTableWidget, columnCount, setColumnCount)
        LQ_PROPERTY("sortingEnabled", QTableWidget, isSortingEnabled, setSortingEnabled)
        LQ_PROPERTY("selectionMode", QTableWidget, selectionMode, setSelectionMode)
        LQ_PROPERTY("showGrid", QTableWidget, showGrid, setShowGrid)
        LQ_READ("currentRow", QTableWidget, currentRow)
        LQ_READ("currentColumn", QTableWidget, currentColumn)
        .property("hHeader", &hHeader, &setHHeader)
        .property("vHeader", &vHeader, &setVHeader)
        .property("selectedRanges", &selectedRanges)
        LQ_SIGNAL("cellChanged", cellChanged)
        LQ_SIGNAL("cellClicked", cellClicked)
        LQ_SIGNAL("cellDoubleClicked", cellDoubleClicked)
        LQ_SIGNAL("currentCellChanged", currentCellChanged)
        LQ_SIGNAL("itemSelectionChanged", itemSelectionChanged)
        .def("setHorizontalHeaderLabels", &setHHeader)
        .def("setVerticalHeaderLabels", &setVHeader)
        .def("setItem", &setItem)
        .def("item", &item)
        .def("takeItem", &takeItem)
        .def("text", &cellText)
        .def("setText", &setCellText)
        .def("setCurrentCell", &setCurrentCell)
        .def("setRangeSelected", &setRangeSelected)
        LQ_METHOD("insertRow", QTableWidget, insertRow)
        LQ_METHOD("removeRow", QTableWidget, removeRow)
        LQ_METHOD("insertColumn", QTableWidget, insertColumn)
        LQ_METHOD("removeColumn", QTableWidget, removeColumn)
        LQ_METHOD("clear", QTableWidget, clear)
        LQ_METHOD("clearContents", QTableWidget, clearContents);
}

luabind::scope lqtablewidgetitem()
{
    using namespace luabind;
    return class_<LTableWidgetItem>("TableWidgetItem")
        LQ_ITEM_PROPERTIES(LTableWidgetItem)
        .property("textAlignment", &textAlignment, &setTextAlignment)
        .property("row", &row)
        .property("column", &column)
        .def(const_self < const_self);
}

luabind::scope lqtablewidgetselectionrange()
{
    using namespace luabind;
    using Range = QTableWidgetSelectionRange;
    return class_<Range>("TableWidgetSelectionRange")
        .def(constructor<>())
        .def(constructor<int, int, int, int>())
        .property("topRow", &Range::topRow)
        .property("bottomRow", &Range::bottomRow)
        .property("leftColumn", &Range::leftColumn)
        .property("rightColumn", &Range::rightColumn)
        .property("rowCount", &Range::rowCount)
        .property("columnCount", &Range::columnCount);
}
