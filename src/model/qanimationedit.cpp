#include "qanimationedit.h"

#include "text/qelementtexteditor.h"

#include <QTextBlock>
#include <QTextDocument>

void insertLineAbove(QElementTextEditor* editor, int line, const QString& text)
{
    QTextDocument* document = editor->document();
    const QTextBlock block = document->findBlockByNumber(line);
    QElementTextCursor& cursor = editor->cursor();
    if (!block.isValid()) {
        // Past the end: into the empty last line if the text ends with a line
        // feed, else on a line of its own, so the document keeps its ending.
        const QTextBlock last = document->lastBlock();
        cursor.setPosition(last.position() + last.length() - 1);
        cursor.insertText(last.length() <= 1 ? QString(text + QLatin1Char('\n')) : QString(QLatin1Char('\n') + text));
        return;
    }
    if (line == 0) {
        // Above the first line there is no line feed to insert behind.
        cursor.setPosition(0);
        cursor.insertText(text + QLatin1Char('\n'));
        return;
    }
    // Behind the line above, so that the lines below keep their elements.
    cursor.setPosition(block.position() - 1);
    cursor.insertText(QLatin1Char('\n') + text);
}

QAnimationEdit::QAnimationEdit(QElementTextEditor* editor, bool joinPrevious)
    : m_editor(editor)
    , m_joinPrevious(joinPrevious && editor)
{
    if (!m_editor)
        return;
    if (m_joinPrevious)
        m_editor->cursor().joinPreviousEditBlock();
    m_editor->beginChange();
}

QAnimationEdit::~QAnimationEdit()
{
    if (!m_editor)
        return;
    m_editor->endChange();
    if (!m_joinPrevious)
        return;
    // The document reports the joined block when it closes; the lines were followed already.
    m_editor->raiseSuppress();
    m_editor->cursor().endEditBlock();
    m_editor->lowerSuppress();
}
