#include "options.h"

#include "managers/qactionmanager.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qiconmanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qstylesheetmanager.h"
#include "mugendlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QKeySequenceEdit>
#include <QListView>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace {

/// A choice of a resource, with "(from the preset)" as the empty first entry where `allowEmpty`.
QComboBox* resourceBox(const QStringList& names, bool allowEmpty, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    if (allowEmpty)
        box->addItem(Options::tr("(from the preset)"), QString());
    for (const QString& name : names)
        box->addItem(name, name);
    return box;
}

void select(QComboBox* box, const QString& value)
{
    const int index = box->findData(value);
    box->setCurrentIndex(index >= 0 ? index : 0);
}

} // namespace

Options::Options(QActionManager* actions, QWidget* parent)
    : QDialog(parent)
    , m_actions(actions)
{
    setObjectName(QStringLiteral("Options"));
    setWindowTitle(tr("Options"));
    resize(620, 460);
    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("optionTabs"));
    tabs->addTab(generalPage(), tr("General"));
    tabs->addTab(shortcutsPage(), tr("Shortcuts"));
    tabs->addTab(enginesPage(), tr("Engines"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &Options::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    loadConfig();
}

QWidget* Options::generalPage()
{
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    m_language = new QComboBox(page);
    m_language->setObjectName(QStringLiteral("language"));
    for (const QLanguageManager::Info& language : langMan->languages())
        m_language->addItem(language.name, language.id);
    m_preset = resourceBox(presetMan->names(), false, page);
    m_iconset = resourceBox(iconMan->names(), true, page);
    m_style = resourceBox(styleMan->names(), true, page);
    m_colorset = resourceBox(colorMan->names(), true, page);
    m_confirmClose = new QCheckBox(tr("Ask before closing the program"), page);
    m_maxHistory = new QSpinBox(page);
    m_maxHistory->setRange(1, 99);
    form->addRow(tr("Language:"), m_language);
    form->addRow(tr("Preset:"), m_preset);
    form->addRow(tr("Icon set:"), m_iconset);
    form->addRow(tr("Style:"), m_style);
    form->addRow(tr("Colour set:"), m_colorset);
    form->addRow(tr("Recent projects:"), m_maxHistory);
    form->addRow(QString(), m_confirmClose);
    return page;
}

QWidget* Options::shortcutsPage()
{
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    m_shortcuts = new QTableView(page);
    m_shortcuts->setObjectName(QStringLiteral("shortcuts"));
    m_shortcuts->setModel(m_actions);
    m_shortcuts->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_shortcuts->setSelectionMode(QAbstractItemView::SingleSelection);
    m_shortcuts->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_shortcuts->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_shortcuts->verticalHeader()->hide();
    layout->addWidget(m_shortcuts, 1);
    auto* row = new QHBoxLayout;
    m_keys = new QKeySequenceEdit(page);
    m_keys->setObjectName(QStringLiteral("keys"));
    auto* assign = new QPushButton(tr("Assign"), page);
    assign->setObjectName(QStringLiteral("assign"));
    auto* clear = new QPushButton(tr("Remove"), page);
    row->addWidget(m_keys, 1);
    row->addWidget(assign);
    row->addWidget(clear);
    layout->addLayout(row);
    connect(assign, &QPushButton::clicked, this, &Options::assignKeys);
    connect(clear, &QPushButton::clicked, this, [this]() {
        if (QAction* action = m_actions->at(m_shortcuts->currentIndex().row()))
            m_actions->setShortcut(action, QKeySequence());
    });
    connect(m_shortcuts->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (const QAction* action = m_actions->at(current.row()))
                    m_keys->setKeySequence(m_actions->shortcut(action));
            });
    return page;
}

void Options::assignKeys()
{
    if (QAction* action = m_actions->at(m_shortcuts->currentIndex().row()))
        m_actions->setShortcut(action, m_keys->keySequence());
}

QWidget* Options::enginesPage()
{
    auto* page = new QWidget;
    auto* layout = new QHBoxLayout(page);
    m_mugens = new QListView(page);
    m_mugens->setObjectName(QStringLiteral("mugens"));
    m_mugens->setModel(configMan);
    layout->addWidget(m_mugens, 1);
    auto* column = new QVBoxLayout;
    const struct { const char* name; const char* text; void (Options::*slot)(); } buttons[] = {
        {"mugenAdd", QT_TR_NOOP("Add..."), &Options::on_mugenAdd_clicked},
        {"mugenEdit", QT_TR_NOOP("Edit..."), &Options::on_mugenEdit_clicked},
        {"mugenDel", QT_TR_NOOP("Remove"), &Options::on_mugenDel_clicked},
        {"mugenUp", QT_TR_NOOP("Move up"), &Options::on_mugenUp_clicked},
        {"mugenClear", QT_TR_NOOP("Clear"), &Options::on_mugenClear_clicked},
    };
    for (const auto& button : buttons) {
        auto* push = new QPushButton(tr(button.text), page);
        push->setObjectName(QLatin1String(button.name));
        connect(push, &QPushButton::clicked, this, button.slot);
        column->addWidget(push);
    }
    column->addStretch(1);
    layout->addLayout(column);
    return page;
}

void Options::loadConfig()
{
    QConfigManager& config = *configMan;
    select(m_language, config[QStringLiteral("language")].toString());
    select(m_preset, config[QStringLiteral("preset")].toString());
    select(m_iconset, config[QStringLiteral("iconset")].toString());
    select(m_style, config[QStringLiteral("stylesheet")].toString());
    select(m_colorset, config[QStringLiteral("colorset")].toString());
    m_confirmClose->setChecked(config[QStringLiteral("confirm_close")].toBool());
    m_maxHistory->setValue(config[QStringLiteral("max_history")].toInt());
}

void Options::accept()
{
    QConfigManager& config = *configMan;
    config[QStringLiteral("language")] = m_language->currentData().toString();
    config[QStringLiteral("preset")] = m_preset->currentData().toString();
    config[QStringLiteral("iconset")] = m_iconset->currentData().toString();
    config[QStringLiteral("stylesheet")] = m_style->currentData().toString();
    config[QStringLiteral("colorset")] = m_colorset->currentData().toString();
    config[QStringLiteral("confirm_close")] = m_confirmClose->isChecked();
    config[QStringLiteral("max_history")] = m_maxHistory->value();
    QDialog::accept();
}

void Options::on_mugenAdd_clicked()
{
    MugenDlg dialog(this, nullptr);
    if (dialog.exec() == QDialog::Accepted)
        configMan->addMugen(dialog.getInfo());
}

void Options::on_mugenEdit_clicked()
{
    const int row = m_mugens->currentIndex().row();
    if (row < 0)
        return;
    MugenDlg dialog(this, &configMan->mugens().at(row));
    if (dialog.exec() == QDialog::Accepted)
        configMan->setMugen(row, dialog.getInfo());
}

void Options::on_mugenDel_clicked()
{
    const int row = m_mugens->currentIndex().row();
    if (row >= 0)
        configMan->removeMugen(row);
}

void Options::on_mugenClear_clicked()
{
    configMan->clearMugens();
}

void Options::on_mugenUp_clicked()
{
    const int row = m_mugens->currentIndex().row();
    if (row > 0)
        configMan->moveMugenUp(row);
}
