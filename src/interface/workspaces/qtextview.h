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
    /// Inserts a snippet's text at the start of the cursor's line, as one undo step.
    void insertSnippet(const QString& text);
    /// The kind of snippets (QSnippetManager) the shown text takes; empty offers none.
    void setSnippetKind(const QString& kind) { m_snippetKind = kind; }
    /// Tells what a place of the text links to (empty for nothing); Ctrl+click
    /// on such a place emits linkActivated(). Null turns links off.
    void setLinkFinder(std::function<QString(const QTextCursor&)> finder) { m_linkFinder = std::move(finder); }
    /// The link at a point of the viewport, as the finder tells it.
    QString linkAt(const QPoint& pos) const;

signals:
    void linkActivated(const QString& target);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QTextDocument* m_empty; ///< shown when an editor has no document
    QString m_snippetKind;
    std::function<QString(const QTextCursor&)> m_linkFinder;
};
