#include "qviewworkspace.h"

#include <QStackedWidget>

QViewWorkspace::QViewWorkspace(QObject* parent)
    : QInterfaceWorkspace(parent)
    , m_host(new QStackedWidget)
{
    m_host->setObjectName(QStringLiteral("viewWorkspace"));
}

QViewWorkspace::~QViewWorkspace()
{
    if (!m_host->parent())
        delete m_host;
}

QWidget* QViewWorkspace::widget() const
{
    return m_host;
}

void QViewWorkspace::showView(QWidget* view)
{
    if (m_host->indexOf(view) < 0)
        m_host->addWidget(view);
    m_host->setCurrentWidget(view);
}
