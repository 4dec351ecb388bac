#include "qtextelement.h"

#include "qelementtexteditor.h"
#include "util/qrecycleallocator.h"
#include "qtexteditorblockdata.h"

#include <QTextDocument>

#include <algorithm>

namespace {

bool stops(QTextElementType type, unsigned int stop)
{
    const unsigned int bits = stop & ~QTextElement::stopAnyBit;
    if (bits == 0)
        return false;
    return (stop & QTextElement::stopAnyBit) ? (type & bits) != 0 : (type & bits) == bits;
}

} // namespace

QTextElement::~QTextElement()
{
    if (m_block.isValid()) {
        auto* data = static_cast<QTextEditorBlockData*>(m_block.userData());
        if (data && data->element() == this)
            data->setElement(nullptr);
    }
}

int QTextElement::firstLine() const
{
    return line();
}

int QTextElement::lastLine() const
{
    return line();
}

void QTextElement::remove(bool reparse)
{
    if (!m_editor)
        return;
    QTextDocument* document = m_editor->document();
    int start = startPosition();
    int end = endPosition();
    const int last = document->characterCount() - 1;
    if (end >= last) {
        // The last line has no line feed of its own: take the one before it.
        end = last;
        start = std::max(0, start - 1);
    }
    QElementTextCursor& cursor = m_editor->cursor();
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    if (!reparse)
        m_editor->raiseSuppress();
    cursor.removeSelectedText();
    if (!reparse)
        m_editor->lowerSuppress();
}

void QTextElement::clean()
{
    if (m_pool)
        m_pool->recycle(this);
}

QTextElement* QTextElement::previousValid() const
{
    QTextElement* element = m_previous;
    while (element && !element->m_valid)
        element = element->m_previous;
    return element;
}

QTextElement* QTextElement::nextValid() const
{
    QTextElement* element = m_next;
    while (element && !element->m_valid)
        element = element->m_next;
    return element;
}

QTextElement* QTextElement::previous(unsigned int want, unsigned int stop) const
{
    for (QTextElement* element = previousValid(); element; element = element->previousValid()) {
        const QTextElementType type = element->type();
        if ((type & want) == want)
            return element;
        if (stops(type, stop))
            return nullptr;
    }
    return nullptr;
}

QTextElement* QTextElement::next(unsigned int want, unsigned int stop) const
{
    for (QTextElement* element = nextValid(); element; element = element->nextValid()) {
        const QTextElementType type = element->type();
        if ((type & want) == want)
            return element;
        if (stops(type, stop))
            return nullptr;
    }
    return nullptr;
}

QTextElement* QTextElement::previousOfKind(QTextElementType groupType, QTextElementSubType subType) const
{
    QTextElement* element = previousValid();
    while (element && (element->groupType() != groupType || element->subType() != subType))
        element = element->previousValid();
    return element;
}

QTextElement* QTextElement::nextOfKind(QTextElementType groupType, QTextElementSubType subType) const
{
    QTextElement* element = nextValid();
    while (element && (element->groupType() != groupType || element->subType() != subType))
        element = element->nextValid();
    return element;
}

int QTextElement::startPosition() const
{
    if (!m_editor)
        return 0;
    const QTextBlock block = m_editor->document()->findBlockByNumber(firstLine());
    return block.isValid() ? block.position() : 0;
}

int QTextElement::endPosition() const
{
    if (!m_editor)
        return 0;
    const QTextDocument* document = m_editor->document();
    const QTextBlock block = document->findBlockByNumber(lastLine());
    return block.isValid() ? block.position() + block.length() : document->characterCount() - 1;
}

QTextCursor QTextElement::select() const
{
    if (!m_editor)
        return QTextCursor();
    QTextCursor cursor(m_editor->document());
    cursor.setPosition(startPosition());
    cursor.setPosition(
        std::min(endPosition(), m_editor->document()->characterCount() - 1), QTextCursor::KeepAnchor);
    return cursor;
}

void QTextElement::changeText(const QString& text, bool reparse)
{
    if (!m_editor || !m_block.isValid())
        return;
    QElementTextCursor& cursor = m_editor->cursor();
    cursor.setPosition(m_block.position());
    cursor.setPosition(m_block.position() + m_block.length() - 1, QTextCursor::KeepAnchor);
    if (!reparse)
        m_editor->raiseSuppress();
    cursor.insertText(text);
    if (!reparse)
        m_editor->lowerSuppress();
}

void QTextElement::release()
{
    if (m_editor)
        m_editor->unlink(this);
    if (m_block.isValid()) {
        auto* data = static_cast<QTextEditorBlockData*>(m_block.userData());
        if (data && data->element() == this)
            data->setElement(nullptr);
    }
    m_editor = nullptr;
    m_previous = nullptr;
    m_next = nullptr;
    m_block = QTextBlock();
    m_valid = false;
    m_reg = nullptr;
    clean();
}

void QTextElement::lineDeleted()
{
    m_block = QTextBlock();
    if (m_editor)
        m_editor->lineDeleted(this);
}
