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

/// The longest copies that reach back from one position: one within the
/// short copies' 256 pixels, one within the long copies' 1024 (0 when none).
struct QLz5Matches
{
    quint16 shortOffset = 0;
    quint16 shortLength = 0;
    quint16 longOffset = 0;
    quint16 longLength = 0;
};

/**
 * Finds the back-references the LZ5 encoder can choose from at a position:
 * the longest match (at most 258 bytes) at offsets up to 256 and up to 1024,
 * ties going to the smaller offset.
 *
 * Only matches that contain a change of value are looked for: a copy of part
 * of one run never costs less than a run packet. Such a match starts with a
 * run exactly as long as the run at the cursor, followed by the same byte, so
 * positions are chained by that key and only those are tried instead of every
 * offset. Call find with positions that never go backwards.
 */
class QLz5Matcher
{
public:
    static constexpr qsizetype maxOffset = 1024;
    static constexpr qsizetype maxLength = 258;
    static constexpr qsizetype maxShortOffset = 256;
    static constexpr qsizetype maxShortLength = 64;

    QLz5Matcher(const uchar* pixels, qsizetype total);

    QLz5Matches find(qsizetype pos);
    /// Equal bytes from `pos` on, capped at 65535.
    qsizetype runAt(qsizetype pos) const { return m_runLength[size_t(pos)]; }

private:
    bool keyOf(qsizetype pos, quint32& key) const;
    void insertUpTo(qsizetype pos);

    const uchar* m_src;
    qsizetype m_total;
    std::vector<quint16> m_runLength; ///< equal bytes from each position on, capped
    std::vector<qint32> m_previous; ///< the position before, with the same key
    std::vector<qint32> m_head; ///< the latest position of each key hash
    qsizetype m_inserted = 0;
};
