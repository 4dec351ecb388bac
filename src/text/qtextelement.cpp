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

/// One step over the valid elements, backwards or forwards.
using Step = QTextElement* (QTextElement::*)() const;

QTextElement* walk(const QTextElement* from, Step step, unsigned int want, unsigned int stop)
{
    for (QTextElement* element = (from->*step)(); element; element = (element->*step)()) {
        const QTextElementType type = element->type();
        if ((type & want) == want)
            return element;
        if (stops(type, stop))
            return nullptr;
    }
    return nullptr;
}

QTextElement* walkToKind(const QTextElement* from, Step step, QTextElementType groupType,
                         QTextElementSubType subType)
{
    QTextElement* element = (from->*step)();
    while (element && (element->groupType() != groupType || element->subType() != subType))
        element = (element->*step)();
    return element;
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
    return walk(this, &QTextElement::previousValid, want, stop);
}

QTextElement* QTextElement::next(unsigned int want, unsigned int stop) const
{
    return walk(this, &QTextElement::nextValid, want, stop);
}

QTextElement* QTextElement::previousOfKind(QTextElementType groupType, QTextElementSubType subType) const
{
    return walkToKind(this, &QTextElement::previousValid, groupType, subType);
}

QTextElement* QTextElement::nextOfKind(QTextElementType groupType, QTextElementSubType subType) const
{
    return walkToKind(this, &QTextElement::nextValid, groupType, subType);
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
