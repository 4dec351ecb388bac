#pragma once

#include <QUndoStack>

class QTextDocument;

/**
 * The undo stack of one text document, for the window's undo group. A text
 * document keeps its own undo history; this stack mirrors each of its steps
 * with a command that undoes and redoes it there, so text files take part
 * in the window's Undo and Redo like every other document.
 */
class QTextUndoStack : public QUndoStack
{
    Q_OBJECT
public:
    explicit QTextUndoStack(QTextDocument* document, QObject* parent = nullptr);

    QTextDocument* document() const { return m_document; }

private:
    QTextDocument* m_document;
};
