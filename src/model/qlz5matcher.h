#pragma once

#include <QtGlobal>
#include <vector>

/// One packet of an LZ5 stream while it is being encoded.
struct QPack
{
    bool isLz = false;
    bool isShort = false;
    quint16 value = 0; ///< colour of a run packet, offset of an LZ packet
    quint16 length = 1; ///< pixels covered
};

/**
 * Finds the back-reference that the LZ5 encoder takes at a position.
 *
 * Its choice is fixed by tuned thresholds rather than by what the format
 * allows: a copy that a run packet would encode as cheaply is refused. Among
 * the candidates at offsets 2 to 1024 whose match (at most 258 bytes) passes
 * those thresholds, the longest wins, ties going to the smaller offset.
 *
 * Trying every offset would cost up to a thousand comparisons per position.
 * A candidate can only pass if its match contains a change of value, so it
 * must start with a run exactly as long as the run at the cursor, followed by
 * the same byte: positions are chained by that key, and only those are tried.
 * Call lzFind with positions that never go backwards.
 */
class QLz5Matcher
{
public:
    static constexpr qsizetype maxOffset = 1024;
    static constexpr qsizetype maxLength = 258;
    static constexpr qsizetype maxShortOffset = 256;
    static constexpr qsizetype maxShortLength = 64;

    QLz5Matcher(const uchar* pixels, qsizetype total);

    /// The match at `pos`; a pack with isLz false when none is taken.
    QPack lzFind(qsizetype pos);

private:
    bool keyOf(qsizetype pos, quint32& key) const;
    void insertUpTo(qsizetype pos);
    bool accepts(qsizetype pos, qsizetype offset, qsizetype length) const;

    const uchar* m_src;
    qsizetype m_total;
    std::vector<quint16> m_runLength; ///< equal bytes from each position on, capped
    std::vector<qint32> m_previous; ///< the position before, with the same key
    std::vector<qint32> m_head; ///< the latest position of each key hash
    qsizetype m_inserted = 0;
};
