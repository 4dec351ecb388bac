#include "qtextview.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextDocumentLayout>

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
    menu->exec(event->globalPos());
    delete menu;
}
