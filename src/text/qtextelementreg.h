#pragma once

#include "qtextelementtypes.h"
#include "qtexttoken.h"

#include <QChar>
#include <QList>

class QTextElement;

/**
 * A recogniser of one kind of line, entered once in the process-wide
 * registry `regElems`, whose order is priority: of all entries that accept a
 * line, the earliest registered makes its element.
 *
 * A line is offered one token at a time through matchToken(), with a final
 * end-of-line token; an entry that refuses a token drops out for that line.
 * beginsWith() is a filter on the line's first character, packed for
 * validFirstChar(). An entry takes part in an editor only while the editor
 * enables its (type(), subType()).
 */
class QTextElementReg
{
public:
    QTextElementReg() = default;
    QTextElementReg(const QTextElementReg&) = delete;
    QTextElementReg& operator=(const QTextElementReg&) = delete;
    virtual ~QTextElementReg() = default;

    /// The groupType() of the elements it makes.
    virtual QTextElementType type() const = 0;
    virtual QTextElementSubType subType() const { return 0; }
    virtual unsigned int beginsWith() const = 0;
    virtual bool matchToken(unsigned int index, const QTextToken& token) const = 0;
    /// A fresh element from the entry's pool.
    virtual QTextElement* create() = 0;

    /// Appends `reg` to the registry, which owns it from then on.
    static void registerElement(QTextElementReg* reg);
    /// Deletes every entry.
    static void release();
    /// Changes with every change of the registry, so users can cache it.
    static unsigned int generation();
};

/// The registry, in priority order.
extern QList<QTextElementReg*> regElems;

/**
 * The first-character filter: the low byte of `rule` is the rule, the bytes
 * above it the characters c1, c2, c3. Rules: 1 anything; 2 a digit or "-";
 * 3 c1; 4 c1 or c2; 5 c1, c2 or c3; 6, 7, 8 the same as 3, 4, 5 with the
 * lower-case letters (c + 32) as well. Any other rule fails.
 */
bool validFirstChar(unsigned int rule, QChar c);
