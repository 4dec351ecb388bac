#include "qelementtexteditor.h"

#include "qtextdoclayout.h"
#include "qtextelement.h"
#include "qtexteditorblockdata.h"
#include "qtextelementreg.h"
#include "qtokenizer.h"

#include <QTextDocument>

#include <algorithm>

namespace {

QTextEditorBlockData* blockData(const QTextBlock& block)
{
    return static_cast<QTextEditorBlockData*>(block.userData());
}

/// The closest line above `block` whose element may depend on the lines
/// below it: a comment line names a group only if a group follows it.
QTextBlock lookaheadStart(const QTextBlock& block)
{
    QTextBlock above = block.previous();
    while (above.isValid() && above.length() <= 1)
        above = above.previous();
    if (!above.isValid())
        return block;
    const QString text = above.text();
    const auto first = std::find_if(text.cbegin(), text.cend(), [](QChar c) { return !c.isSpace(); });
    return first != text.cend() && *first == QLatin1Char(';') ? above : block;
}

} // namespace

QElementTextEditor::QElementTextEditor(bool linkDocument, QObject* parent)
    : QObject(parent)
    , m_document(new QTextDocument)
    , m_cursor(this, m_document)
{
    m_document->setDocumentLayout(new QTextDocLayout(m_document));
    if (linkDocument)
        connect(m_document, &QTextDocument::contentsChange, this, &QElementTextEditor::contentsChanged);
    m_suppress = 0;
}

QElementTextEditor::~QElementTextEditor()
{
    while (m_head)
        m_head->release();
    m_deletedLines.clear();
    delete m_document;
}

QTextElement* QElementTextEditor::elementAt(int line) const
{
    return elementOf(m_document->findBlockByNumber(line));
}

QTextElement* QElementTextEditor::elementOf(const QTextBlock& block)
{
    QTextEditorBlockData* data = block.isValid() ? blockData(block) : nullptr;
    return data ? data->element() : nullptr;
}

void QElementTextEditor::enableElement(bool on, QTextElementType type, QTextElementSubType subType)
{
    m_enableCounts[QTextElementMatcher::enableKey(type, subType)] += on ? 1 : -1;
    m_matcher.invalidate();
}

void QElementTextEditor::beginChange()
{
    ++m_changeDepth;
    m_pendingStructure = false;
    m_cursor.beginEditBlock();
}

void QElementTextEditor::endChange()
{
    raiseSuppress();
    m_cursor.endEditBlock();
    lowerSuppress();
    if (--m_changeDepth == 0)
        emit updated(m_pendingStructure);
}

void QElementTextEditor::updateAllElements()
{
    QList<QTextElementChange> changes;
    Preceding previous { QTextBlock(), nullptr, true };
    int result = takeDeletedLines(changes);
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next())
        result |= processBlock(block, previous, changes);
    finishChange(result, changes);
}

void QElementTextEditor::contentsChanged(int position, int removed, int added)
{
    if (m_suppress != 0)
        return;
    QTextBlock first = m_document->findBlock(position);
    if (!first.isValid())
        return;
    QTextBlock stop = m_document->findBlock(position + added + (removed > 0 ? 1 : 0));
    if (stop.isValid())
        stop = stop.next();
    first = lookaheadStart(first);

    Preceding previous { first.previous(), nullptr, false };
    QList<QTextElementChange> changes;
    int result = takeDeletedLines(changes);
    for (QTextBlock block = first; block.isValid() && block != stop; block = block.next())
        result |= processBlock(block, previous, changes);
    finishChange(result, changes);
}

int QElementTextEditor::takeDeletedLines(QList<QTextElementChange>& changes)
{
    if (m_deletedLines.isEmpty())
        return 0;
    for (QTextElement* element : std::as_const(m_deletedLines)) {
        element->m_valid = false;
        changes.append(QTextElementChange { QTextElementChange::Removed, element });
    }
    m_deletedLines.clear();
    return 1;
}

QTextElement* QElementTextEditor::precedingElement(Preceding& preceding)
{
    for (; !preceding.known && preceding.above.isValid(); preceding.above = preceding.above.previous()) {
        preceding.element = elementOf(preceding.above);
        preceding.known = preceding.element != nullptr;
    }
    preceding.known = true;
    return preceding.element;
}

int QElementTextEditor::processBlock(
    const QTextBlock& block, Preceding& previous, QList<QTextElementChange>& changes)
{
    QTextEditorBlockData* data = blockData(block);
    if (!data) {
        data = new QTextEditorBlockData;
        QTextBlock(block).setUserData(data);
    }
    QTextElement* element = data->element();

    const QString text = block.text();
    QTokenizer tokenizer(text);
    const QToken first = tokenizer.getToken();
    if (first == tokEnd && !tokenizer.hasComment()) {
        if (!element)
            return 0;
        removeElement(element, changes);
        previous = { QTextBlock(), element, true };
        return 1;
    }

    QList<QTextToken> tokens;
    QTextElementReg* match = m_matcher.regMatch(block, tokenizer, first, tokens, m_enableCounts);
    int result = 0;
    if (element && element->m_reg != match) {
        removeElement(element, changes);
        previous = { QTextBlock(), element, true };
        element = nullptr;
        result |= 1;
    }
    if (match && !element) {
        element = match->create();
        element->m_editor = this;
        element->m_block = block;
        element->m_valid = true;
        element->m_reg = match;
        link(element, precedingElement(previous));
        data->setElement(element);
        element->update(tokens);
        changes.append(QTextElementChange { QTextElementChange::Added, element });
        result |= 1;
    } else if (match) {
        element->update(tokens);
        changes.append(QTextElementChange { QTextElementChange::Updated, element });
        result |= 2;
    }
    if (element)
        previous = { QTextBlock(), element, true };
    return result;
}

void QElementTextEditor::removeElement(QTextElement* element, QList<QTextElementChange>& changes)
{
    element->m_valid = false;
    if (QTextEditorBlockData* data = blockData(element->m_block))
        data->setElement(nullptr);
    changes.append(QTextElementChange { QTextElementChange::Removed, element });
}

void QElementTextEditor::finishChange(int result, QList<QTextElementChange>& changes)
{
    if (result == 0)
        return;
    updateInternal(changes);
    for (const QTextElementChange& change : std::as_const(changes))
        if (change.kind == QTextElementChange::Removed)
            change.element->release();
    const bool structure = result & 1;
    if (m_changeDepth < 1)
        emit updated(structure);
    else
        m_pendingStructure = m_pendingStructure || structure;
}

void QElementTextEditor::updateInternal(QList<QTextElementChange>& changes)
{
    emit update(this, changes);
}

void QElementTextEditor::link(QTextElement* element, QTextElement* previous)
{
    QTextElement* next = previous ? previous->m_next : m_head;
    element->m_previous = previous;
    element->m_next = next;
    if (previous)
        previous->m_next = element;
    else
        m_head = element;
    if (next)
        next->m_previous = element;
}

void QElementTextEditor::unlink(QTextElement* element)
{
    if (element->m_previous)
        element->m_previous->m_next = element->m_next;
    else if (m_head == element)
        m_head = element->m_next;
    if (element->m_next)
        element->m_next->m_previous = element->m_previous;
    element->m_previous = nullptr;
    element->m_next = nullptr;
}

void QElementTextEditor::lineDeleted(QTextElement* element)
{
    if (element->m_valid)
        m_deletedLines.append(element);
}

void QElementTextEditor::insertBefore(QTextElement* element, const QString& text, bool useBlock)
{
    const int line = useBlock ? element->line() : element->firstLine();
    const QTextBlock block = m_document->findBlockByNumber(line);
    insertLineAt(std::max(0, (block.isValid() ? block.position() : 0) - 1), text);
}

void QElementTextEditor::insertAfter(QTextElement* element, const QString& text, bool useBlock)
{
    const int end = m_document->characterCount() - 1;
    if (!element) {
        insertLineAt(end, text);
        return;
    }
    int position;
    if (useBlock) {
        const QTextBlock block = element->block();
        position = block.position() + block.length() - 1;
    } else {
        position = std::min(element->endPosition(), m_document->characterCount()) - 1;
        // Never split a line: a group that ends the document has no line
        // feed of its own to land on.
        const QTextBlock block = m_document->findBlock(position);
        position = block.position() + block.length() - 1;
    }
    insertLineAt(std::clamp(position, 0, end), text);
}

void QElementTextEditor::insert(const QString& text)
{
    insertLineAt(m_document->characterCount() - 1, text);
}

void QElementTextEditor::insertLineAt(int position, const QString& text)
{
    m_cursor.setPosition(position);
    m_cursor.insertText(QLatin1Char('\n') + text);
}
