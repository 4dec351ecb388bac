#include "qtexteditorlayout.h"

#include <QTextDocument>
#include <QTextLayout>

QTextEditorLayout::QTextEditorLayout(QTextDocument* document)
    : QPlainTextDocumentLayout(document)
{
}

void QTextEditorLayout::documentChanged(int from, int removed, int added)
{
    // Lines that came or went move every line below: the plain layout sees
    // to that. Else only the lines of the change are laid out and repainted,
    // each told to the plain layout as a change of its own.
    const int blocks = document()->blockCount();
    const bool sameLines = blocks == m_blockCount;
    m_blockCount = blocks;
    const QTextBlock first = document()->findBlock(from);
    const QTextBlock last = document()->findBlock(from + std::max(added, 1) - 1);
    bool separate = sameLines && first.isValid() && last.isValid()
        && last.blockNumber() - first.blockNumber() < separateLines;
    for (QTextBlock block = first; separate && block.isValid(); block = block.next()) {
        separate = block.isVisible(); // folded lines are the plain layout's business
        if (block == last)
            break;
    }
    if (!separate) {
        QPlainTextDocumentLayout::documentChanged(from, removed, added);
        return;
    }
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        QPlainTextDocumentLayout::documentChanged(block.position(), 0, block.length());
        if (block == last)
            break;
    }
}

QRectF QTextEditorLayout::blockBoundingRect(const QTextBlock& block) const
{
    // The plain layout shapes a line's text again on every repaint, each run
    // of one colour apart, so that a coloured screen costs many times a
    // plain one. The lines painted lately keep their shapes instead.
    QTextLayout* layout = block.isValid() ? block.layout() : nullptr;
    if (layout && !layout->cacheEnabled()) {
        layout->setCacheEnabled(true);
        m_shaped.push_back(block);
        if (m_shaped.size() > shapedLines) {
            const QTextBlock oldest = m_shaped.front();
            m_shaped.pop_front();
            if (oldest.isValid())
                oldest.layout()->setCacheEnabled(false);
        }
    }
    return QPlainTextDocumentLayout::blockBoundingRect(block);
}
