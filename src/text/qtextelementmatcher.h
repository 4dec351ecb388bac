#pragma once

#include "qtextelementtypes.h"
#include "qtexttoken.h"

#include <QList>
#include <QMap>

class QTextBlock;
class QTextElementReg;
class QTokenizer;

/**
 * Finds the registry entry that claims a line, among the entries an editor
 * enables. It keeps the enabled entries in priority order and rebuilds that
 * list only when the registry or the enable counts change, since a line is
 * matched on every keystroke.
 */
class QTextElementMatcher
{
public:
    using EnableCounts = QMap<unsigned long long, int>;

    static unsigned long long enableKey(QTextElementType type, QTextElementSubType subType)
    {
        return (static_cast<unsigned long long>(type) << 32) | subType;
    }

    /// The enable counts changed.
    void invalidate() { m_valid = false; }

    /**
     * The earliest enabled entry that accepts the line, or null. `first` is
     * the tokenizer's first token on the line; `tokens` receives the tokens
     * offered, with a trailing end-of-line token carrying the line's comment
     * when the next non-blank line opens a group.
     */
    QTextElementReg* regMatch(const QTextBlock& block, QTokenizer& tokenizer, QToken first,
        QList<QTextToken>& tokens, const EnableCounts& counts);

private:
    void refresh(const EnableCounts& counts);

    QList<QTextElementReg*> m_enabled;
    QList<QTextElementReg*> m_candidates;
    unsigned int m_generation = 0;
    bool m_valid = false;
};
