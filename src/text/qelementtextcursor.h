#pragma once

#include <QTextCursor>

class QElementTextEditor;

/**
 * The cursor through which all programmatic edits of an element document
 * go. Its insertText() and removeSelectedText() make the edit with the
 * document's own report switched off and then tell the editor directly,
 * so the chain follows even inside an edit block (where the document
 * reports only at the end) and in an editor not linked to the document.
 * Use it as an object of this class: the two calls hide, not override,
 * those of QTextCursor.
 */
class QElementTextCursor : public QTextCursor
{
public:
    QElementTextCursor(QElementTextEditor* editor, QTextDocument* document);

    void insertText(const QString& text);
    void removeSelectedText();

private:
    QElementTextEditor* m_editor;
};
