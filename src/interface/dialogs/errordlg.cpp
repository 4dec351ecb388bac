#include "errordlg.h"

#include "util/qmessages.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

ErrorDlg::ErrorDlg(QWidget* parent)
    : QDialog(parent)
    , m_view(new QListView(this))
    , m_totals(new QLabel(this))
    , m_empty(new QLabel(this))
{
    m_empty->setObjectName(QStringLiteral("noIssues"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setFrameShape(QFrame::StyledPanel);
    setObjectName(QStringLiteral("ErrorDlg"));
    resize(560, 320);
    m_view->setObjectName(QStringLiteral("errorList"));
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setAlternatingRowColors(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_empty, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(m_totals, 1);
    row->addWidget(buttons);
    layout->addLayout(row);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    connect(m_view, &QListView::doubleClicked, this, &ErrorDlg::activated);
    connect(m_view, &QListView::activated, this, &ErrorDlg::activated);
    retranslate();
}

void ErrorDlg::setMessages(QMessageList* messages)
{
    if (m_messages)
        disconnect(m_messages, &QMessageList::updated, this, &ErrorDlg::updateTotals);
    m_messages = messages;
    m_view->setModel(messages);
    if (messages)
        connect(messages, &QMessageList::updated, this, &ErrorDlg::updateTotals);
    updateTotals();
}

void ErrorDlg::retranslate()
{
    setWindowTitle(tr("Errors and warnings"));
    updateTotals();
}

void ErrorDlg::updateTotals()
{
    const int errors = m_messages ? m_messages->errors() : 0;
    const int warnings = m_messages ? m_messages->warnings() : 0;
    const bool none = !m_messages || m_messages->rowCount() == 0;
    m_view->setVisible(!none);
    m_empty->setVisible(none);
    m_empty->setText(QStringLiteral("<p style='font-size:large'>&#10003; %1</p><p>%2</p>")
                         .arg(tr("No issues found!"), tr("Faults of every file of the project show here.")));
    m_totals->setText(tr("%n error(s)", nullptr, errors) + QStringLiteral(", ")
                      + tr("%n warning(s)", nullptr, warnings) + QStringLiteral(" — ")
                      + tr("double-click a row to go there"));
}

void ErrorDlg::activated(const QModelIndex& index)
{
    if (!m_messages)
        return;
    int fileIndex = 0;
    if (const QMsg* msg = m_messages->messageAt(index.row(), fileIndex))
        emit navigateTo(msg->file, msg->fileIndex, msg->index, msg->line);
}
