#include "model/qlz5matcher.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

constexpr int hashBits = 14;

inline quint32 hashKey(quint32 key)
{
    return (key * 2654435761u) >> (32 - hashBits);
}

/// Bytes that agree from `length` on, up to `limit`, a word at a time.
inline qsizetype extend(const uchar* a, const uchar* b, qsizetype length, qsizetype limit)
{
    while (limit - length >= 8) {
        quint64 x, y;
        std::memcpy(&x, a + length, 8);
        std::memcpy(&y, b + length, 8);
        if (x != y)
            return length + (__builtin_ctzll(qFromLittleEndian(x) ^ qFromLittleEndian(y)) >> 3);
        length += 8;
    }
    while (length < limit && a[length] == b[length])
        ++length;
    return length;
}

} // namespace

QLz5Matcher::QLz5Matcher(const uchar* pixels, qsizetype total)
    : m_src(pixels)
    , m_total(total)
    , m_runLength(size_t(total))
    , m_previous(size_t(total), -1)
    , m_head(size_t(1) << hashBits, -1)
{
    quint32 run = 0;
    for (qsizetype i = total - 1; i >= 0; --i) {
        run = (i + 1 < total && pixels[i] == pixels[i + 1]) ? run + 1 : 1;
        m_runLength[size_t(i)] = quint16(std::min<quint32>(run, 0xFFFF));
    }
}

/// Value, run length and the byte after the run; false when the run reaches
/// the end of the image or is too long for any match to have a change.
bool QLz5Matcher::keyOf(qsizetype pos, quint32& key) const
{
    const qsizetype run = m_runLength[size_t(pos)];
    if (run >= maxLength || pos + run >= m_total)
        return false;
    key = (quint32(m_src[pos]) << 24) | (quint32(run) << 8) | m_src[pos + run];
    return true;
}

void QLz5Matcher::insertUpTo(qsizetype pos)
{
    for (; m_inserted < pos; ++m_inserted) {
        quint32 key;
        if (!keyOf(m_inserted, key))
            continue;
        qint32& head = m_head[hashKey(key)];
        m_previous[size_t(m_inserted)] = head;
        head = qint32(m_inserted);
    }
}

bool QLz5Matcher::accepts(qsizetype pos, qsizetype offset, qsizetype length) const
{
    // The match is runs of equal bytes; its first run ends at `first`, and
    // `changes` counts where a byte differs from the one before (up to 3).
    const qsizetype end = pos + length;
    const qsizetype first = pos + m_runLength[size_t(pos)];
    const qsizetype second = first + m_runLength[size_t(first)];
    const qsizetype third = second < m_total ? second + m_runLength[size_t(second)] : second;
    const int changes = 1 + (second < end) + (second < end && third < end);

    if (length <= maxShortLength && offset <= maxShortOffset) {
        // A short copy whose last run goes on past it is better left to a run packet.
        return changes >= 2 || end == m_total || m_src[end] != m_src[end - 1];
    }
    if (changes == 2) {
        const bool longRun = first - pos >= 8 || second - first >= 8 || end - second >= 8;
        return longRun;
    }
    return changes > 2 && length > 3;
}

QPack QLz5Matcher::lzFind(qsizetype pos)
{
    QPack best;
    if (pos < 2 || pos >= m_total)
        return best;
    insertUpTo(pos - 1);
    quint32 key;
    if (!keyOf(pos, key))
        return best;
    const qsizetype limit = std::min(maxLength, m_total - pos);
    const qsizetype run = m_runLength[size_t(pos)];
    const uchar* here = m_src + pos;
    qsizetype bestLength = 1;
    for (qint32 p = m_head[hashKey(key)]; p >= 0; p = m_previous[size_t(p)]) {
        const qsizetype offset = pos - p;
        if (offset > maxOffset)
            break;
        if (m_runLength[size_t(p)] != run || m_src[p] != here[0] || m_src[p + run] != here[run])
            continue;
        const qsizetype length = extend(m_src + p, here, run + 1, limit);
        if (length <= bestLength || !accepts(pos, offset, length))
            continue;
        bestLength = length;
        best.isLz = true;
        best.isShort = length <= maxShortLength && offset <= maxShortOffset;
        best.value = quint16(offset);
        best.length = quint16(length);
        if (length == limit)
            break;
    }
    return best;
}
