#include "mugendlg.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

/// A line edit with a browse button beside it.
QWidget* withBrowse(QLineEdit* edit, const QString& filter, QWidget* parent)
{
    auto* row = new QWidget(parent);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit, 1);
    auto* browse = new QPushButton(QStringLiteral("..."), row);
    browse->setFixedWidth(32);
    layout->addWidget(browse);
    QObject::connect(browse, &QPushButton::clicked, edit, [edit, filter]() {
        const QString file = QFileDialog::getOpenFileName(edit->window(), QString(), edit->text(), filter);
        if (!file.isEmpty())
            edit->setText(file);
    });
    return row;
}

} // namespace

MugenDlg::MugenDlg(const QMugenInfo& info, QWidget* parent)
    : QDialog(parent)
    , m_name(new QLineEdit(info.name, this))
    , m_executable(new QLineEdit(info.executable, this))
    , m_parameters(new QLineEdit(info.parameters, this))
    , m_icon(new QLineEdit(info.icon, this))
{
    setObjectName(QStringLiteral("MugenDlg"));
    setWindowTitle(tr("Engine"));
    resize(460, 0);
    auto* form = new QFormLayout(this);
    form->addRow(tr("Name:"), m_name);
    form->addRow(tr("Executable:"), withBrowse(m_executable, tr("Programs (*.exe)"), this));
    form->addRow(tr("Parameters:"), m_parameters);
    form->addRow(tr("Icon:"), withBrowse(m_icon, tr("Images (*.png *.ico *.xpm)"), this));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QMugenInfo MugenDlg::info() const
{
    return {m_name->text().trimmed(), m_executable->text().trimmed(), m_parameters->text().trimmed(),
            m_icon->text().trimmed()};
}
