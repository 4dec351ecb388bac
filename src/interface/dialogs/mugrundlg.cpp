#include "mugrundlg.h"

#include "managers/qconfigmanager.h"
#include "util/qprompt.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString lastMugenKey = QStringLiteral("last_mugen");

} // namespace

MugRunDlg::MugRunDlg(QWidget* parent, QMugenModel* mugens)
    : QDialog(parent)
    , m_mugens(mugens)
    , m_list(new QListView(this))
{
    setWindowTitle(tr("Run in M.U.G.E.N."));
    m_list->setObjectName(QStringLiteral("list"));
    m_list->setModel(mugens);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setIconSize(QSize(32, 32));

    auto* note = new QLabel(
        tr("M.U.G.E.N. will fail if you try to test a char created with a new format in an older "
           "version (default format is 1.1)."),
        this);
    note->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListView::doubleClicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Choose the target:"), this));
    layout->addWidget(m_list);
    layout->addWidget(note);
    layout->addWidget(buttons);

    const int last = configMan ? configMan->value(lastMugenKey).toInt() : 0;
    const int row = last >= 0 && last < mugens->rowCount() ? last : 0;
    m_list->setCurrentIndex(mugens->index(row));
    // Nothing to run without a choice.
    auto updateOk = [this, buttons] { buttons->button(QDialogButtonBox::Ok)->setEnabled(currentRow() >= 0); };
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, updateOk);
    updateOk();
}

int MugRunDlg::currentRow() const
{
    const QModelIndex index = m_list->currentIndex();
    return index.isValid() ? index.row() : -1;
}

QString MugRunDlg::getExe()
{
    const int row = currentRow();
    if (row < 0)
        return QString();
    if (configMan)
        (*configMan)[lastMugenKey] = row;
    return m_mugens->mugens().at(row).executable;
}

QString MugRunDlg::getParams() const
{
    const int row = currentRow();
    return row < 0 ? QString() : m_mugens->mugens().at(row).parameters;
}

bool MugRunDlg::chooseEngine(QWidget* parent, QMugenModel* mugens, QString& executable, QString& parameters)
{
    if (mugens->mugens().isEmpty()) {
        prompt().warning(tr("Warning!"),
            tr("Oops, you need to configure a M.U.G.E.N. first. Do it in the Tools / Options."));
        return false;
    }
    if (mugens->mugens().size() == 1) {
        executable = mugens->mugens().first().executable;
        parameters = mugens->mugens().first().parameters;
        return true;
    }
    MugRunDlg dialog(parent, mugens);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    executable = dialog.getExe();
    parameters = dialog.getParams();
    return !executable.isEmpty();
}
