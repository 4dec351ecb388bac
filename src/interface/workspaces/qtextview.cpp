#include "qtextview.h"

#include "managers/qsctrlmanager.h"
#include "managers/qsnippetmanager.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
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
    if (!isReadOnly() && snipMan && !m_snippetKind.isEmpty()) {
        QMenu* insert = menu->addMenu(tr("Insert snippet"));
        insert->setToolTipsVisible(true);
        for (const QSnippetManager::Snippet& snippet : snipMan->snippetsFor(m_snippetKind)) {
            QAction* action = insert->addAction(snippet.title);
            action->setToolTip(snippet.description);
            const QString text = snippet.text;
            connect(action, &QAction::triggered, this, [this, text] { insertSnippet(text); });
        }
    }
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

QString QTextView::linkAt(const QPoint& pos) const
{
    return m_linkFinder ? m_linkFinder(cursorForPosition(pos)) : QString();
}

void QTextView::mouseMoveEvent(QMouseEvent* event)
{
    QTextEditor::mouseMoveEvent(event);
    // With Ctrl held, a link shows the hand, as in a browser.
    const bool link = (event->modifiers() & Qt::ControlModifier) && !linkAt(event->position().toPoint()).isEmpty();
    viewport()->setCursor(link ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void QTextView::mouseReleaseEvent(QMouseEvent* event)
{
    QTextEditor::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !(event->modifiers() & Qt::ControlModifier) || textCursor().hasSelection())
        return;
    const QString target = linkAt(event->position().toPoint());
    if (!target.isEmpty())
        emit linkActivated(target);
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
    insertSnippet(sctrlsMan->templateFor(name, state));
}

void QTextView::insertSnippet(const QString& text)
{
    // Whole lines go in above the cursor's line, so a section is never split.
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.beginEditBlock();
    cursor.insertText(text);
    cursor.endEditBlock();
    setTextCursor(cursor);
}
