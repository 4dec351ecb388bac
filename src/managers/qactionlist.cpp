#include "qactionlist.h"

#include "qactionmanager.h"

#include <QAction>

QActionList::QActionList(QActionManager* actions, QObject* parent)
    : QAbstractListModel(parent)
    , m_actions(actions)
{
}

void QActionList::setFilter(int editor)
{
    beginResetModel();
    m_rows.clear();
    for (int i = 0; i < m_actions->count(); ++i) {
        QAction* action = m_actions->at(i);
        // Only what the editor offers: global actions already sit in the menus.
        if (editor < QActionManager::noEditor && m_actions->inScope(action, editor)
            && !m_actions->inScope(action, QActionManager::noEditor) && action->isVisible())
            m_rows.append(action);
    }
    endResetModel();
}

int QActionList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant QActionList::data(const QModelIndex& index, int role) const
{
    const QAction* action = at(index.row());
    if (!action)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return action->text().remove(QLatin1Char('&'));
    case Qt::ToolTipRole:
        return action->toolTip();
    case Qt::DecorationRole:
        return action->icon();
    default:
        return QVariant();
    }
}
