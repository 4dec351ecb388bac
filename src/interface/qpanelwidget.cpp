#include "qpanelwidget.h"

#include <QLabel>
#include <QStackedLayout>
#include <QVBoxLayout>

QPanelWidget::QPanelWidget(QWidget* parent)
    : QFrame(parent)
    , m_title(new QLabel(this))
{
    setObjectName(QStringLiteral("panel"));
    m_title->setObjectName(QStringLiteral("panelTitle"));
    m_title->setIndent(6);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_title);
    auto* pages = new QWidget(this);
    m_stack = new QStackedLayout(pages);
    layout->addWidget(pages, 1);
}

QWidget* QPanelWidget::addPage(const QString& name)
{
    auto* page = new QWidget;
    page->setObjectName(name);
    m_stack->addWidget(page);
    return page;
}

void QPanelWidget::setTitle(const QString& title)
{
    m_title->setText(title);
}

QString QPanelWidget::title() const
{
    return m_title->text();
}

void QPanelWidget::setTitleMetric(int height)
{
    m_title->setFixedHeight(height);
}
