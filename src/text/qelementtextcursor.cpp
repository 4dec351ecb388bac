#include "qelementtextcursor.h"

#include "qelementtexteditor.h"

QElementTextCursor::QElementTextCursor(QElementTextEditor* editor, QTextDocument* document)
    : QTextCursor(document)
    , m_editor(editor)
{
}

void QElementTextCursor::insertText(const QString& text)
{
    const int start = selectionStart();
    const int end = selectionEnd();
    m_editor->raiseSuppress();
    QTextCursor::insertText(text);
    m_editor->lowerSuppress();
    m_editor->contentsChanged(start, end + 1 - start, int(text.size()));
}

void QElementTextCursor::removeSelectedText()
{
    const int start = selectionStart();
    const int end = selectionEnd();
    m_editor->raiseSuppress();
    QTextCursor::removeSelectedText();
    m_editor->lowerSuppress();
    m_editor->contentsChanged(start, end + 1 - start, 0);
}
