#include "model/qlz5matcher.h"
#include "model/qspritecodecs.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr qsizetype maxShortRun = 7;
constexpr qsizetype maxRun = 263;
constexpr qsizetype minLongCopy = 3;

// What each packet costs, in eighths of a byte: its bytes and its flag bit.
// The fourth short copy of each group of four carries no offset byte.
constexpr quint32 shortRunCost = 8 + 1;
constexpr quint32 longRunCost = 16 + 1;
constexpr quint32 shortCopyCost = 16 + 1;
constexpr quint32 longCopyCost = 24 + 1;

/// Calls `take` with the shortest and the longest length of from..to, if any.
template<typename Take>
void offerLengths(qsizetype from, qsizetype to, Take take)
{
    if (from <= to)
        take(from);
    if (from < to)
        take(to);
}

/// How far back the nearest run as long as the one at `pos` (up to a short
/// copy's length) and of its colour starts, within a short copy's reach; 0 if none.
qsizetype nearestRun(const uchar* src, const QLz5Matcher& matcher, qsizetype pos)
{
    const qsizetype wanted = std::min(matcher.runAt(pos), QLz5Matcher::maxShortLength);
    for (qsizetype p = pos - 1; p >= 0 && pos - p <= QLz5Matcher::maxShortOffset; --p)
        if (src[p] == src[pos] && matcher.runAt(p) >= wanted)
            return pos - p;
    return 0;
}

/**
 * First pass: the image as the list of run and copy packets that costs the
 * fewest bytes, found by a shortest path over the pixel positions. From each
 * position the path may take a run (any length up to seven, or the whole run
 * when it is longer), a short copy of a nearby run, or a copy of the longest
 * matches near and far the matcher finds, at its shortest or its whole
 * length. Cutting a long run or a copy anywhere else never paid off on the
 * engine's own sprites (trying the first and last four lengths of each gave
 * kfm's sprites byte for byte the same size), and every length tried costs
 * time at every pixel.
 */
std::vector<QPack> tokenize(const uchar* src, qsizetype total, bool useLz)
{
    // A short copy's cost depends on its place in its group of four, so each
    // position is reached in four states: how many short copies before it, modulo 4.
    struct Step
    {
        QPack pack; ///< the packet that reaches this position and state cheapest
        int from = 0; ///< the state it starts from
    };
    std::vector<quint32> price(4 * (size_t(total) + 1), ~0u);
    std::vector<Step> last(4 * (size_t(total) + 1));
    price[0] = 0;
    auto offer = [&](qsizetype pos, const QPack& pack, quint32 cost) {
        const size_t to = 4 * size_t(pos + pack.length);
        const bool shortCopy = pack.isLz && pack.isShort;
        for (int state = 0; state < 4; ++state) {
            const quint32 here = price[4 * size_t(pos) + size_t(state)];
            if (here == ~0u)
                continue;
            const int next = shortCopy ? (state + 1) & 3 : state;
            const quint32 reached = here + (shortCopy && state == 3 ? shortCopyCost - 8 : cost);
            if (reached < price[to + size_t(next)]) {
                price[to + size_t(next)] = reached;
                last[to + size_t(next)] = Step { pack, state };
            }
        }
    };
    QLz5Matcher matcher(src, total);
    for (qsizetype pos = 0; pos < total; ++pos) {
        const qsizetype run = std::min(matcher.runAt(pos), maxRun);
        QPack pack;
        pack.value = src[pos];
        pack.isShort = true;
        for (qsizetype length = 1; length <= std::min(run, maxShortRun); ++length) {
            pack.length = quint16(length);
            offer(pos, pack, shortRunCost);
        }
        if (run > maxShortRun) {
            pack.isShort = false;
            pack.length = quint16(run);
            offer(pos, pack, longRunCost);
        }
        if (!useLz)
            continue;
        // A long run that repeats one near enough is a short copy, a quarter
        // of a byte cheaper: inside a run, the pixel before repeats.
        pack.isLz = true;
        pack.isShort = true;
        pack.value = quint16(run > maxShortRun ? nearestRun(src, matcher, pos) : 0);
        if (pack.value)
            offerLengths(maxShortRun + 1, std::min(run, QLz5Matcher::maxShortLength), [&](qsizetype length) {
                pack.length = quint16(length);
                offer(pos, pack, shortCopyCost);
            });
        const QLz5Matches matches = matcher.find(pos);
        pack.isLz = true;
        pack.isShort = true;
        pack.value = matches.shortOffset;
        const qsizetype shortLength = std::min<qsizetype>(matches.shortLength, QLz5Matcher::maxShortLength);
        offerLengths(2, shortLength, [&](qsizetype length) {
            pack.length = quint16(length);
            offer(pos, pack, shortCopyCost);
        });
        pack.isShort = false;
        pack.value = matches.longOffset;
        // Where the far match is also near, its short lengths went as short copies.
        const qsizetype from = matches.longOffset <= QLz5Matcher::maxShortOffset ? shortLength + 1 : minLongCopy;
        offerLengths(from, matches.longLength, [&](qsizetype length) {
            pack.length = quint16(length);
            offer(pos, pack, longCopyCost);
        });
    }
    std::vector<QPack> packs;
    const quint32* end = &price[4 * size_t(total)];
    int state = int(std::min_element(end, end + 4) - end);
    for (qsizetype pos = total; pos > 0;) {
        const Step& step = last[4 * size_t(pos) + size_t(state)];
        packs.push_back(step.pack);
        state = step.from;
        pos -= step.pack.length;
    }
    std::reverse(packs.begin(), packs.end());
    return packs;
}

/**
 * The bytes of each short copy: its length byte (length - 1 in the low six
 * bits) and its offset byte, absent for the fourth of a group of four, whose
 * offset - 1 is spread over the top two bits of the group's length bytes.
 * A group that the list does not complete keeps clear top bits and offsets.
 */
struct ShortCopyBytes
{
    uchar lengthByte;
    bool hasOffset;
};

std::vector<ShortCopyBytes> shortCopyBytes(const std::vector<QPack>& packs)
{
    std::vector<size_t> shorts;
    for (size_t i = 0; i < packs.size(); ++i)
        if (packs[i].isLz && packs[i].isShort)
            shorts.push_back(i);
    std::vector<ShortCopyBytes> bytes(packs.size());
    for (size_t s = 0; s < shorts.size(); ++s) {
        const QPack& pack = packs[shorts[s]];
        bytes[shorts[s]] = ShortCopyBytes { uchar(pack.length - 1), true };
    }
    for (size_t s = 0; s + 4 <= shorts.size(); s += 4) {
        const unsigned fourthOffset = unsigned(packs[shorts[s + 3]].value - 1) & 0xFF;
        for (int k = 0; k < 4; ++k)
            bytes[shorts[s + k]].lengthByte |= uchar(((fourthOffset >> (6 - 2 * k)) & 3) << 6);
        bytes[shorts[s + 3]].hasOffset = false;
    }
    return bytes;
}

qsizetype packSize(const QPack& pack, const ShortCopyBytes& shortBytes)
{
    if (!pack.isLz)
        return pack.isShort ? 1 : 2;
    if (!pack.isShort)
        return 3;
    return shortBytes.hasOffset ? 2 : 1;
}

/// Second pass: a flag byte before each eight packets, then the packets.
QByteArray write(const std::vector<QPack>& packs)
{
    const std::vector<ShortCopyBytes> shortBytes = shortCopyBytes(packs);
    qsizetype size = qsizetype((packs.size() + 7) / 8);
    for (size_t i = 0; i < packs.size(); ++i)
        size += packSize(packs[i], shortBytes[i]);

    QByteArray out(size, Qt::Uninitialized);
    uchar* o = reinterpret_cast<uchar*>(out.data());
    for (size_t group = 0; group < packs.size(); group += 8) {
        const size_t groupEnd = std::min(group + 8, packs.size());
        uchar flags = 0;
        for (size_t i = group; i < groupEnd; ++i)
            flags |= uchar(packs[i].isLz ? 1u << (i - group) : 0u);
        *o++ = flags;
        for (size_t i = group; i < groupEnd; ++i) {
            const QPack& pack = packs[i];
            if (!pack.isLz && pack.isShort) {
                *o++ = uchar((pack.length << 5) | (pack.value & 0x1F));
            } else if (!pack.isLz) {
                *o++ = uchar(pack.value & 0x1F);
                *o++ = uchar(pack.length - 8);
            } else if (!pack.isShort) {
                const unsigned offset = pack.value - 1u;
                *o++ = uchar((offset >> 2) & 0xC0);
                *o++ = uchar(offset & 0xFF);
                *o++ = uchar(pack.length - 3);
            } else {
                *o++ = shortBytes[i].lengthByte;
                if (shortBytes[i].hasOffset)
                    *o++ = uchar((pack.value - 1) & 0xFF);
            }
        }
    }
    Q_ASSERT(o == reinterpret_cast<uchar*>(out.data()) + size);
    return out;
}

} // namespace

QByteArray saveLZ5(const QImage& image, bool useLz)
{
    if (image.isNull() || image.depth() != 8)
        return QByteArray();
    const qsizetype width = image.width();
    const qsizetype total = width * image.height();
    const uchar* src = image.constBits();
    std::vector<uchar> tight;
    if (image.bytesPerLine() > width) {
        tight.resize(size_t(total));
        for (int y = 0; y < image.height(); ++y)
            std::memcpy(tight.data() + y * width, image.constScanLine(y), size_t(width));
        src = tight.data();
    }
    return write(tokenize(src, total, useLz));
}
