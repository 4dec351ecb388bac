#pragma once

#include <QList>

class QAction;

/// The actions of one tool bar in order; a null entry is a separator.
class QToolBarItems
{
public:
    void addAction(QAction* action) { m_items.append(action); }
    void addSeparator() { m_items.append(nullptr); }
    bool contains(const QAction* action) const { return action && m_items.contains(action); }
    void clear() { m_items.clear(); }
    int count() const { return int(m_items.size()); }
    QAction* operator[](int index) const { return m_items.at(index); }

private:
    QList<QAction*> m_items;
};
