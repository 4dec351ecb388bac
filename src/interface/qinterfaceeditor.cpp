#include "qinterfaceeditor.h"

#include "qinterface.h"

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
