#include "projdlg.h"

#include "script/qscriptmanager.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

ProjDlg::ProjDlg(QWidget* parent, const QStringList& templates)
    : QDialog(parent)
    , m_list(new QListWidget(this))
{
    setWindowTitle(tr("Project template"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Start the new project from:"), this));
    for (const QString& name : templates) {
        auto* item = new QListWidgetItem(QScriptManager::trText(name, QStringLiteral("project/") + name), m_list);
        item->setData(Qt::UserRole, name);
    }
    if (m_list->count() > 0)
        m_list->setCurrentRow(0);
    layout->addWidget(m_list);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
}

QString ProjDlg::selected() const
{
    const QListWidgetItem* item = m_list->currentItem();
    return item ? item->data(Qt::UserRole).toString() : QString();
}
