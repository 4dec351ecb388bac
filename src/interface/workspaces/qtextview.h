#pragma once

#include <QPlainTextEdit>

/**
 * The view of the text workspace. Undo and Redo are left to the window, so
 * that they go through the window's undo group like those of every other
 * document; the line with the cursor is highlighted in the colour set's
 * "line" colour.
 */
class QTextView : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit QTextView(QWidget* parent = nullptr);

    /// Shows the document, giving it the layout a view needs; null shows an empty page.
    void showDocument(QTextDocument* document, bool readOnly);
    void setLineColor(const QColor& color);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void highlightLine();

    QColor m_lineColor;
    QTextDocument* m_empty; ///< shown when an editor has no document
};
