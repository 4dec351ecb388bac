#include "qtextview.h"

#include "managers/qsctrlmanager.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextDocumentLayout>
#include <QRegularExpression>
#include <QTextBlock>

namespace {

bool isUndoKey(QKeyEvent* event)
{
    return event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo);
}

} // namespace

QTextView::QTextView(QWidget* parent)
    : QTextEditor(parent)
    , m_empty(new QTextDocument(this))
{
    m_empty->setDocumentLayout(new QPlainTextDocumentLayout(m_empty));
    setObjectName(QStringLiteral("textView"));
    setLineWrapMode(QPlainTextEdit::NoWrap);
}

void QTextView::showDocument(QTextDocument* document, bool readOnly)
{
    if (!document)
        document = m_empty;
    setTextDocument(document);
    setReadOnly(readOnly || document == m_empty);
}

bool QTextView::event(QEvent* event)
{
    // Let the window's Undo and Redo shortcuts fire instead of the view's own.
    if (event->type() == QEvent::ShortcutOverride && isUndoKey(static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return QTextEditor::event(event);
}

void QTextView::keyPressEvent(QKeyEvent* event)
{
    if (isUndoKey(event)) {
        event->ignore();
        return;
    }
    QTextEditor::keyPressEvent(event);
}

void QTextView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu(event->pos());
    // The view's own Undo and Redo would pass by the window's undo group.
    const QList<QAction*> actions = menu->actions();
    for (int i = 0; i < 2 && i < actions.size(); ++i)
        menu->removeAction(actions.at(i));
    if (!isReadOnly() && sctrlsMan && !sctrlsMan->controllers().isEmpty()) {
        QMenu* insert = menu->addMenu(tr("Insert controller"));
        for (const QString& name : sctrlsMan->controllers()) {
            QAction* action = insert->addAction(name);
            action->setToolTip(sctrlsMan->description(name));
            connect(action, &QAction::triggered, this, [this, name] { insertController(name); });
        }
    }
    menu->exec(event->globalPos());
    delete menu;
}

void QTextView::insertController(const QString& name)
{
    // The new controller belongs to the state whose definition stands above the cursor.
    static const QRegularExpression statedef(QStringLiteral("^\\s*\\[\\s*statedef\\s+(-?\\d+)"),
                                             QRegularExpression::CaseInsensitiveOption);
    QString state = QStringLiteral("0");
    for (QTextBlock block = textCursor().block(); block.isValid(); block = block.previous()) {
        const QRegularExpressionMatch match = statedef.match(block.text());
        if (match.hasMatch()) {
            state = match.captured(1);
            break;
        }
    }
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.insertText(sctrlsMan->templateFor(name, state));
    setTextCursor(cursor);
}
