#pragma once

// Items of the item widgets (list, tree and table entries) are not QObjects:
// a script's handle on one says who owns it and finds it again at each use.
// An item the script made is the script's until a view or a parent item
// takes it; an item of a view is looked up in that view, so a handle kept
// after the view deleted the item raises "deleted object" instead of
// touching freed memory.

#include "qluawidgettableinit.h"
#include "script/qluaobject.h"

#include <QPointer>
#include <QString>

#include <string>

#include <memory>

template<class Item, class View>
class LItemHandle
{
public:
    using ItemType = Item;

    /// A new item of the script's own.
    explicit LItemHandle(Item* item) : m_state(std::make_shared<State>())
    {
        m_state->item = item;
        m_state->owned = true;
    }

    /// An item that `view` holds.
    static LItemHandle inView(Item* item, View* view)
    {
        LItemHandle handle(item);
        handle.m_state->owned = false;
        handle.m_state->view = view;
        return handle;
    }

    /// An item that the item of `parent` holds.
    static LItemHandle inParent(Item* item, const LItemHandle& parent)
    {
        LItemHandle handle(item);
        handle.m_state->owned = false;
        handle.m_state->parent = parent.m_state;
        return handle;
    }

    Item* item() const
    {
        if (!m_state->valid())
            throw deletedObject();
        return m_state->item;
    }

    /// The item for `view` to take; it is the view's from now on.
    Item* handTo(View* view) const
    {
        Item* taken = owned();
        m_state->owned = false;
        m_state->view = view;
        return taken;
    }

    /// The item for the item of `parent` to take as a child.
    Item* handToParent(const LItemHandle& parent) const
    {
        Item* taken = owned();
        m_state->owned = false;
        m_state->parent = parent.m_state;
        return taken;
    }

    /// The script owns the item again (taken out of its view).
    void reclaim() const
    {
        m_state->owned = true;
        m_state->view = nullptr;
        m_state->parent.reset();
    }

    bool operator<(const LItemHandle& other) const { return *item() < *other.item(); }

private:
    struct State
    {
        ~State()
        {
            if (owned)
                delete item;
        }
        bool valid() const
        {
            if (owned)
                return true;
            if (parent)
                return parent->valid() && isChild(parent->item, item);
            return view && contains(view, item);
        }
        Item* item = nullptr;
        bool owned = false;
        QPointer<View> view;
        std::shared_ptr<State> parent;
    };

    Item* owned() const
    {
        if (!m_state->owned)
            throw lua::fault(QStringLiteral("the item already belongs to a view"));
        return m_state->item;
    }

    /// Whether `view` holds `item`; defined for each view beside its bindings.
    static bool contains(View* view, const Item* item);
    /// Whether `item` is a child of `parent` (tree items only have children).
    static bool isChild(Item* parent, const Item* item);

    std::shared_ptr<State> m_state;
};

namespace lq {

// Constructors of items: `ListWidgetItem()`, `ListWidgetItem("text")`, `ListWidgetItem{text = "a"}`.
template<class H>
void initItem(const luabind::argument& self)
{
    place(self, std::make_unique<H>(new typename H::ItemType));
}

template<class H>
void initItemText(const luabind::argument& self, const std::string& text)
{
    place(self, std::make_unique<H>(new typename H::ItemType(QString::fromStdString(text))));
}

template<class H>
void initItemTable(const luabind::argument& self, const luabind::table<>& table)
{
    auto handle = std::make_unique<H>(new typename H::ItemType);
    const H target = *handle;
    place(self, std::move(handle));
    lua::applyTable(luabind::object(self.interpreter(), target), table);
}

// What list and table items share, for their handles H.
template<class H> std::string itemText(const H& h) { return h.item()->text().toStdString(); }
template<class H> void setItemText(const H& h, const std::string& text) { h.item()->setText(QString::fromStdString(text)); }
template<class H> std::string itemToolTip(const H& h) { return h.item()->toolTip().toStdString(); }
template<class H> void setItemToolTip(const H& h, const std::string& text) { h.item()->setToolTip(QString::fromStdString(text)); }
template<class H> int itemCheckState(const H& h) { return int(h.item()->checkState()); }
template<class H> void setItemCheckState(const H& h, int state) { h.item()->setCheckState(Qt::CheckState(state)); }
template<class H> int itemFlags(const H& h) { return int(h.item()->flags().toInt()); }
template<class H> void setItemFlags(const H& h, int flags) { h.item()->setFlags(Qt::ItemFlags::fromInt(flags)); }
template<class H> bool itemSelected(const H& h) { return h.item()->isSelected(); }
template<class H> void setItemSelected(const H& h, bool selected) { h.item()->setSelected(selected); }

} // namespace lq

/// The constructors and properties list and table items share.
#define LQ_ITEM_PROPERTIES(H)                                                                       \
    .def("__init", &lq::initItem<H>)                                                                \
        .def("__init", &lq::initItemText<H>)                                                        \
        .def("__init", &lq::initItemTable<H>)                                                       \
        .property("text", &lq::itemText<H>, &lq::setItemText<H>)                                        \
        .property("toolTip", &lq::itemToolTip<H>, &lq::setItemToolTip<H>)                           \
        .property("checkState", &lq::itemCheckState<H>, &lq::setItemCheckState<H>)                  \
        .property("flags", &lq::itemFlags<H>, &lq::setItemFlags<H>)                                 \
        .property("selected", &lq::itemSelected<H>, &lq::setItemSelected<H>)                        \
        .def("setText", &lq::setItemText<H>)                                                        \
        .def("setCheckState", &lq::setItemCheckState<H>)
