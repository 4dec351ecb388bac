#include "qtexteditorlayout.h"

#include <QTextBlock>
#include <QTextDocument>

QTextEditorLayout::QTextEditorLayout(QTextDocument* document)
    : QPlainTextDocumentLayout(document)
{
}

void QTextEditorLayout::documentChanged(int from, int removed, int added)
{
    // A change of the number of lines is still seen: the plain layout counts
    // them itself and repaints the view when the count moved.
    if (added > 0 && document()->findBlock(from) == document()->findBlock(from + added - 1))
        removed = 0;
    QPlainTextDocumentLayout::documentChanged(from, removed, added);
}
