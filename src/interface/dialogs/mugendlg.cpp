#include "mugendlg.h"

#include "managers/qmugenpresets.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

/// A field with its browse button beside it.
QWidget* withButton(QLineEdit* edit, QPushButton* button, QWidget* parent)
{
    auto* row = new QWidget(parent);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit, 1);
    layout->addWidget(button);
    return row;
}

QLineEdit* field(const char* name, const QString& text, QWidget* parent)
{
    auto* edit = new QLineEdit(text, parent);
    edit->setObjectName(QLatin1String(name));
    return edit;
}

} // namespace

MugenDlg::MugenDlg(QWidget* parent, const QMugenInfo* info)
    : QDialog(parent)
    , m_name(field("mugenName", info ? info->name : QString(), this))
    , m_executable(field("mugenExe", info ? info->executable : QString(), this))
    , m_icon(field("mugenIcon", QString(), this))
    , m_parameters(field("mugenParams", info ? info->parameters : defaultMugenParameters(), this))
    , m_presets(new QComboBox(this))
{
    setObjectName(QStringLiteral("MugenDlg"));
    setWindowTitle(tr("M.U.G.E.N."));
    resize(520, 0);
    m_executable->setPlaceholderText(tr("the engine's mugen.exe"));

    auto* exeButton = new QPushButton(QStringLiteral("..."), this);
    exeButton->setObjectName(QStringLiteral("pushButton"));
    auto* iconButton = new QPushButton(QStringLiteral("..."), this);
    iconButton->setObjectName(QStringLiteral("pushButton_2"));
    for (QPushButton* button : { exeButton, iconButton })
        button->setFixedWidth(32);
    connect(exeButton, &QPushButton::clicked, this, &MugenDlg::on_pushButton_clicked);
    connect(iconButton, &QPushButton::clicked, this, &MugenDlg::on_pushButton_2_clicked);

    m_presets->setObjectName(QStringLiteral("mugenPresets"));
    m_presets->setToolTip(tr("Ready-made parameters: %0 is the current project, %1 the project of the "
                             "first tab, %2 of the second..."));
    for (const QMugenPreset& preset : mugenPresets())
        m_presets->addItem(preset.label, preset.parameters);
    m_presets->setCurrentIndex(m_presets->findData(m_parameters->text()));
    m_presets->setPlaceholderText(tr("Ready-made parameters"));
    // activated, not currentIndexChanged: choosing the preset shown again also overwrites the field.
    connect(m_presets, &QComboBox::activated, this, &MugenDlg::choosePreset);
    connect(m_parameters, &QLineEdit::textEdited, this,
        [this](const QString& text) { m_presets->setCurrentIndex(m_presets->findData(text)); });

    auto* form = new QFormLayout(this);
    form->addRow(tr("Name:"), m_name);
    form->addRow(tr("Executable:"), withButton(m_executable, exeButton, this));
    form->addRow(tr("Icon:"), withButton(m_icon, iconButton, this));
    form->addRow(tr("Parameters:"), m_parameters);
    form->addRow(QString(), m_presets);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // An engine needs a name to be chosen by and a program to start.
    connect(m_name, &QLineEdit::textChanged, this, &MugenDlg::updateOk);
    connect(m_executable, &QLineEdit::textChanged, this, &MugenDlg::updateOk);
    updateOk();
}

QMugenInfo MugenDlg::getInfo() const
{
    return { m_name->text().trimmed(), m_executable->text().trimmed(), m_parameters->text().trimmed(),
        QString() };
}

void MugenDlg::on_pushButton_clicked()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("M.U.G.E.N. executable"), m_executable->text(), tr("M.U.G.E.N. executable (*.exe)"));
    if (!file.isEmpty())
        m_executable->setText(file);
}

void MugenDlg::on_pushButton_2_clicked()
{
    const QString file = QFileDialog::getOpenFileName(
        this, tr("M.U.G.E.N. icon"), m_icon->text(), tr("Portable Network Graphic (*.png)"));
    if (!file.isEmpty())
        m_icon->setText(file);
}

void MugenDlg::choosePreset(int index)
{
    if (index >= 0)
        m_parameters->setText(m_presets->itemData(index).toString());
}

void MugenDlg::updateOk()
{
    m_ok->setEnabled(!m_name->text().trimmed().isEmpty() && !m_executable->text().trimmed().isEmpty());
}
