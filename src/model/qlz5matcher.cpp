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

QLz5Matches QLz5Matcher::find(qsizetype pos)
{
    QLz5Matches found;
    if (pos < 2 || pos >= m_total)
        return found;
    insertUpTo(pos - 1);
    quint32 key;
    if (!keyOf(pos, key))
        return found;
    const qsizetype limit = std::min(maxLength, m_total - pos);
    const qsizetype run = m_runLength[size_t(pos)];
    const uchar* here = m_src + pos;
    // Nearest first, so a later candidate wins only by being longer.
    for (qint32 p = m_head[hashKey(key)]; p >= 0; p = m_previous[size_t(p)]) {
        const qsizetype offset = pos - p;
        if (offset > maxOffset)
            break;
        if (m_runLength[size_t(p)] != run || m_src[p] != here[0] || m_src[p + run] != here[run])
            continue;
        const qsizetype length = extend(m_src + p, here, run + 1, limit);
        if (offset <= maxShortOffset && length > found.shortLength) {
            found.shortOffset = quint16(offset);
            found.shortLength = quint16(length);
        }
        if (length > found.longLength) {
            found.longOffset = quint16(offset);
            found.longLength = quint16(length);
        }
        if (found.longLength == limit && (found.shortLength == limit || offset >= maxShortOffset))
            break;
    }
    return found;
}
