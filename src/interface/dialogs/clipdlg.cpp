#include "clipdlg.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

ClipDlg::ClipDlg(QWidget* parent)
    : QDialog(parent)
    , m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("ClipDlg"));
    setWindowTitle(tr("Clipboard"));
    resize(380, 300);
    m_list->setObjectName(QStringLiteral("clips"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* paste = buttons->addButton(tr("Paste"), QDialogButtonBox::ActionRole);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    connect(paste, &QPushButton::clicked, this, &ClipDlg::pasteCurrent);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &ClipDlg::pasteCurrent);
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &ClipDlg::clipboardChanged);
}

void ClipDlg::clipboardChanged()
{
    const QString text = QApplication::clipboard()->text();
    if (text.isEmpty())
        return;
    // A text copied again moves to the top instead of standing twice.
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->data(Qt::UserRole).toString() == text) {
            delete m_list->takeItem(row);
            break;
        }
    }
    QString shown = text.simplified();
    if (shown.size() > 80)
        shown = shown.left(79) + QChar(0x2026);
    auto* item = new QListWidgetItem(shown);
    item->setData(Qt::UserRole, text);
    item->setToolTip(text.left(1000));
    m_list->insertItem(0, item);
    while (m_list->count() > maxEntries)
        delete m_list->takeItem(m_list->count() - 1);
    m_list->setCurrentRow(0);
}

void ClipDlg::pasteCurrent()
{
    const QListWidgetItem* item = m_list->currentItem();
    if (!item)
        return;
    const QString text = item->data(Qt::UserRole).toString();
    if (QApplication::clipboard()->text() != text)
        QApplication::clipboard()->setText(text);
    emit execAction(QStringLiteral("edit_paste"));
}
