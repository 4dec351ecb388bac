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
{
    setObjectName(QStringLiteral("ErrorDlg"));
    resize(560, 320);
    m_view->setObjectName(QStringLiteral("errorList"));
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setAlternatingRowColors(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_view, 1);
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
