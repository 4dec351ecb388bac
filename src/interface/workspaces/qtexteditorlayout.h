#pragma once

#include <QPlainTextDocumentLayout>

/**
 * The layout of a document shown in a QTextEditor: a plain text layout that
 * repaints only the line a keystroke changed.
 *
 * The checker recolours the edited line while the document reports the edit,
 * and the document merges that recolouring into the edit's report in a way
 * that makes the reported change reach past the line. The plain layout then
 * takes every keystroke for a change of several lines and repaints the whole
 * view. What changed in the document as it now stands is the `added`
 * characters at `from`; when those lie in one line, the layout is told just
 * that.
 */
class QTextEditorLayout : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    explicit QTextEditorLayout(QTextDocument* document);

protected:
    void documentChanged(int from, int removed, int added) override;
};
