#pragma once

// Items of the item widgets (list, tree and table entries) are not QObjects:
// a script's handle on one says who owns it and finds it again at each use.
// An item the script made is the script's until a view or a parent item
// takes it; an item of a view is looked up in that view, so a handle kept
// after the view deleted the item raises "deleted object" instead of
// touching freed memory.

#include "script/qluaobject.h"

#include <QPointer>

#include <memory>

template<class Item, class View>
class LItemHandle
{
public:
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
