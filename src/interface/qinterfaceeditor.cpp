#include "qinterfaceeditor.h"

#include "qinterface.h"

#include <QLabel>
#include <QVBoxLayout>

QInterfaceEditor::QInterfaceEditor(QObject* parent)
    : QObject(parent)
{
}

void QInterfaceEditor::activate(bool switched)
{
    if (switched)
        m_active = true;
}

void QInterfaceEditor::switchToThisEditor()
{
    if (!m_active && intf)
        intf->switchEditor(id());
}

QLabel* QInterfaceEditor::addSummary(QWidget* page, const QString& objectName)
{
    auto* layout = new QVBoxLayout(page);
    auto* summary = new QLabel(page);
    summary->setObjectName(objectName);
    summary->setWordWrap(true);
    summary->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(summary, 1);
    return summary;
}
