#include "bakdlg.h"

#include "model/qbakmanager.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

BakDlg::BakDlg(QWidget* parent, const QString& defFile)
    : QDialog(parent)
    , m_backups(new QBakManager(defFile, this))
    , m_list(new QListView(this))
{
    setWindowTitle(tr("Load backup"));
    m_list->setObjectName(QStringLiteral("list"));
    m_list->setModel(m_backups);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListView::doubleClicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    auto* note = new QLabel(m_backups->rowCount() > 0
            ? tr("Choose the backup to load (newest first). Saving afterwards writes the "
                 "project's own files.")
            : tr("This project has no backups yet."),
        this);
    note->setWordWrap(true);
    layout->addWidget(note);
    layout->addWidget(m_list);
    layout->addWidget(buttons);

    if (m_backups->rowCount() > 0)
        m_list->setCurrentIndex(m_backups->index(0));
    auto updateOk
        = [this, buttons] { buttons->button(QDialogButtonBox::Ok)->setEnabled(!fileName().isEmpty()); };
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, updateOk);
    updateOk();
}

QString BakDlg::fileName() const
{
    return m_backups->getFileName(m_list->currentIndex());
}
