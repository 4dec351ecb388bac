#pragma once

#include "qtexteditor.h"

/**
 * The view of the text workspace: the text editor showing whichever document
 * the current text editor gives it. Undo and Redo are left to the window, so
 * that they go through the window's undo group like those of every other
 * document.
 */
class QTextView : public QTextEditor
{
    Q_OBJECT
public:
    explicit QTextView(QWidget* parent = nullptr);

    /// Shows the document, giving it the layout a view needs; null shows an empty page.
    void showDocument(QTextDocument* document, bool readOnly);
    /// Inserts a new controller of that name (from sctrlsMan's templates) before the cursor's line.
    void insertController(const QString& name);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QTextDocument* m_empty; ///< shown when an editor has no document
};
