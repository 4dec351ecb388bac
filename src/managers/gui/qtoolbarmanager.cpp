#include "qtoolbarmanager.h"

#include "qtoolbaritems.h"

#include <QToolBar>

void QToolBarManager::setItems(const QToolBarItems* items, bool append)
{
    if (!append)
        m_bar->clear();
    if (!items)
        return;
    for (int i = 0; i < items->count(); ++i) {
        if (QAction* action = (*items)[i])
            m_bar->addAction(action);
        else
            m_bar->addSeparator();
    }
}
