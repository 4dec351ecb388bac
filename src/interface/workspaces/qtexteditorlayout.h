#pragma once

#include <QPlainTextDocumentLayout>
#include <QTextBlock>

#include <deque>

/**
 * The layout of a document shown in a QTextEditor: a plain text layout that
 * repaints only the line a keystroke changed.
 *
 * The checker recolours the edited line while the document reports the edit,
 * and the document merges that recolouring into the edit's report in a way
 * that makes the reported change reach past the line. The plain layout then
 * takes every keystroke for a change of several lines and repaints the whole
 * view. Where no line came or went, this layout lays out and repaints the
 * reported lines one by one instead. It also keeps the shaped text of the lines it painted lately, which
 * the plain layout shapes again, colour by colour, on every repaint.
 */
class QTextEditorLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    /// How many lines keep their shaped text between repaints: a screenful
    /// or two, whatever the file's length.
    static constexpr size_t shapedLines = 256;
    /// Changes of more lines than this are repainted whole.
    static constexpr int separateLines = 16;

    explicit QTextEditorLayout(QTextDocument* document);

    /// Also keeps the line's shaped text for the next repaint.
    QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
    void documentChanged(int from, int removed, int added) override;

private:
    int m_blockCount = -1; ///< at the last change, to tell whether lines came or went
    /// The lines that keep their shaped text, the oldest first.
    mutable std::deque<QTextBlock> m_shaped;
};
