#pragma once

#include "qtextelementtypes.h"
#include "qtexttoken.h"

#include <QList>
#include <QObject>
#include <QTextBlock>
#include <QTextCursor>

class QElementTextEditor;
template<typename Base>
class QRecyclePool;
class QTextElementReg;

/**
 * One meaningful line of an element document, as a link of the chain that
 * the document's QElementTextEditor keeps beside its text, in document order.
 *
 * Elements are pooled and made only by the editor: a caller never creates or
 * deletes one. An element is valid from the moment it is added until it is
 * reported removed; a removed element stays readable (and linked) while the
 * removal is reported, and returns to its pool right after. type() is the
 * class's groupType() with class bits: bit 1 for a plain line, bit 2
 * (headerBit) for a group header, bit 4 (paramGroupBit) for a group holding
 * parameters.
 *
 * Writing goes through changeText(): with `reparse` false the line changes
 * but the element is left as it is, which is how a model writes a value that
 * it already holds.
 */
class QTextElement : public QObject
{
    Q_OBJECT

public:
    /// Elements go back to their pools through this base.
    using RecycleBase = QTextElement;

    static constexpr QTextElementType lineBit = 1;
    static constexpr QTextElementType headerBit = 2;
    static constexpr QTextElementType paramGroupBit = 4;
    /// In the stop mask of previous()/next(): any common bit stops the walk,
    /// instead of all bits of the mask.
    static constexpr unsigned int stopAnyBit = 0x80000000u;

    QTextElement() = default;
    ~QTextElement() override;

    virtual QTextElementType type() const { return groupType() | lineBit; }
    virtual QTextElementType groupType() const = 0;
    virtual QTextElementSubType subType() const { return 0; }
    /// Block number of the first line the element occupies.
    virtual int firstLine() const;
    /// Block number of the last line the element occupies.
    virtual int lastLine() const;
    /// Deletes the element's lines from the document, line feeds included.
    /// Without `reparse` the element stays in the chain until the next
    /// change, which then reports it removed.
    virtual void remove(bool reparse);
    /// Forgets what the element knew of others and returns it to its pool.
    virtual void clean();
    /// Takes the tokens of the line (a trailing end-of-line token may carry a
    /// comment that stands behind the line).
    virtual void update(const QList<QTextToken>& tokens) = 0;

    QElementTextEditor* editor() const { return m_editor; }
    QTextBlock block() const { return m_block; }
    bool isValid() const { return m_valid; }
    /// The element's own line, -1 once its line is gone.
    int line() const { return m_block.isValid() ? m_block.blockNumber() : -1; }

    /// The raw neighbours in the chain, valid or not.
    QTextElement* chainPrevious() const { return m_previous; }
    QTextElement* chainNext() const { return m_next; }
    QTextElement* previousValid() const;
    QTextElement* nextValid() const;

    /// The nearest valid element before this one whose type() has all bits of
    /// `want`, or null if the walk first meets one that matches `stop` (all
    /// its bits, or any with stopAnyBit set; 0 never stops). The want test
    /// comes first.
    QTextElement* previous(unsigned int want, unsigned int stop = 0) const;
    QTextElement* next(unsigned int want, unsigned int stop = 0) const;
    /// The nearest valid element with exactly this groupType() and subType().
    QTextElement* previousOfKind(QTextElementType groupType, QTextElementSubType subType) const;
    QTextElement* nextOfKind(QTextElementType groupType, QTextElementSubType subType) const;

    /// Position of the first line's start.
    int startPosition() const;
    /// Position after the last line's line feed; characterCount() - 1 when
    /// that line doesn't exist.
    int endPosition() const;
    /// A cursor over the element's lines (kept inside the document).
    QTextCursor select() const;
    QTextCursor selectAll() const { return select(); }

    /// Replaces the text of the element's own line.
    void changeText(const QString& text, bool reparse);
    /// Takes the element out of the chain and returns it to its pool.
    void release();

    /// Set once by the pool that made the element.
    void setPool(QRecyclePool<QTextElement>* pool) { m_pool = pool; }
    /// Called by the line's user data when the document deletes the line.
    void lineDeleted();

private:
    friend class QElementTextEditor;

    QElementTextEditor* m_editor = nullptr;
    QTextElement* m_previous = nullptr;
    QTextElement* m_next = nullptr;
    QTextBlock m_block;
    bool m_valid = false;
    /// The registry entry that recognised the line: a line that another entry
    /// claims later is a different element.
    const QTextElementReg* m_reg = nullptr;
    QRecyclePool<QTextElement>* m_pool = nullptr;
};
