#pragma once

#include <QPlainTextEdit>

#include <functional>

class QCompleter;
class QTextCompletions;
class QTextEditorGutter;

/**
 * The text widget of every engine text file. Beside plain editing it shows
 * line numbers and the checker's findings in a margin, highlights the line
 * with the cursor and the bracket matching the one at the cursor, folds the
 * "[...]" sections, shows a finding's message (or a word's description)
 * under the mouse, completes from the vocabulary, zooms, and has the
 * keyboard habits of code editors: Ctrl+/ toggles comments, Tab and
 * Shift+Tab indent a selection, Ctrl+D duplicates a line, Alt+Up/Down move
 * lines. Each of those keys is one undo step.
 *
 * Underlines come from the checker's own character formats; the widget reads
 * the findings from each line's QTextEditorBlockData and never checks text
 * itself.
 */
class QTextEditor : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit QTextEditor(QWidget* parent = nullptr);
    ~QTextEditor() override;

    /// The colours of the current line, of a matched bracket and of its range.
    void setColors(const QColor& line, const QColor& paren, const QColor& parenRange);
    /// Shows the document, giving it the layout a plain text view needs.
    void setTextDocument(QTextDocument* document);
    /// Gives a one-line description of a word under the mouse; empty for none.
    void setDescriber(std::function<QString(const QString&)> describer) { m_describer = std::move(describer); }

    /// Whether the line opens a section ("[...]") and so can fold.
    static bool isSectionHeader(const QTextBlock& block);
    /// Hides (or shows again) the lines of the section the header opens.
    void setFolded(int headerLine, bool folded);
    bool isFolded(int headerLine) const;
    void unfoldAll();

    void zoomBy(int steps);
    void zoomReset();
    int zoomSteps() const { return m_zoom; }

    /// Shows the completion list for the word at the cursor, when the line has any.
    void complete();
    QCompleter* completer() const { return m_completer; }

    // Editing commands behind the keys, public for menus and scripts.
    void toggleComment();
    void indentSelection(bool outdent);
    void duplicateLine();
    void moveLines(bool up);

    /// Width the margin needs for the line numbers and marks.
    int gutterWidth() const;
    void paintGutter(QPaintEvent* event);
    void gutterClicked(const QPoint& pos);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void updateGutterWidth();
    void updateGutter(const QRect& rect, int dy);
    void updateSelections();
    bool handleEditorKey(QKeyEvent* event);
    void insertCompletion(const QString& completion);

    QTextEditorGutter* m_gutter;
    QCompleter* m_completer;
    QTextCompletions* m_completions;
    std::function<QString(const QString&)> m_describer;
    QColor m_lineColor;
    QColor m_parenColor;
    QColor m_parenRangeColor;
    int m_zoom = 0;
    int m_cursorLine = 0; ///< whose number the margin shows in bold
};
