#include "qtoolbarfit.h"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <QToolBar>
#include <QToolButton>

namespace {

// Marks the buttons that show their names when there is room.
const char* const namedProperty = "pfToolBarFitNamed";

} // namespace

void QToolBarFit::apply(QToolBar* bar)
{
    bar->installEventFilter(new QToolBarFit(bar));
}

QToolBarFit::QToolBarFit(QToolBar* bar)
    : QObject(bar)
    , m_bar(bar)
{
}

bool QToolBarFit::eventFilter(QObject* watched, QEvent* event)
{
    // A hidden bar has no width to fit; editors also set up their buttons' styles before it shows.
    if (watched == m_bar && !m_fitting && m_bar->orientation() == Qt::Horizontal && m_bar->isVisible()) {
        switch (event->type()) {
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::ActionAdded:
        case QEvent::ActionChanged:
        case QEvent::ActionRemoved:
        case QEvent::LanguageChange:
            fit();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

void QToolBarFit::fit()
{
    m_fitting = true;
    QList<QToolButton*> named;
    for (QAction* action : m_bar->actions()) {
        auto* button = qobject_cast<QToolButton*>(m_bar->widgetForAction(action));
        if (!button || !action->isVisible())
            continue;
        if (button->toolButtonStyle() == Qt::ToolButtonTextBesideIcon)
            button->setProperty(namedProperty, true);
        if (button->property(namedProperty).toBool()) {
            button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
            named.append(button);
        }
    }
    auto neededWidth = [this] {
        m_bar->layout()->invalidate();
        return m_bar->sizeHint().width();
    };
    while (!named.isEmpty() && neededWidth() > m_bar->width())
        named.takeLast()->setToolButtonStyle(Qt::ToolButtonIconOnly);
    m_fitting = false;
}
