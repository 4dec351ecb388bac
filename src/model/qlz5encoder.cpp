#include "model/qlz5matcher.h"
#include "model/qspritecodecs.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr qsizetype maxShortRun = 7;
constexpr qsizetype maxRun = 263;

/// First pass: the image as a list of run and copy packets.
std::vector<QPack> tokenize(const uchar* src, qsizetype total, bool useLz)
{
    std::vector<QPack> packs;
    packs.reserve(size_t(total / 4 + 16));
    QLz5Matcher matcher(src, useLz ? total : 0);
    for (qsizetype pos = 0; pos < total;) {
        if (useLz && pos >= 1) {
            const QPack match = matcher.lzFind(pos);
            if (match.isLz) {
                packs.push_back(match);
                pos += match.length;
                continue;
            }
        }
        QPack run;
        run.value = src[pos++];
        while (pos < total && src[pos] == run.value && run.length < maxShortRun) {
            ++run.length;
            ++pos;
        }
        // A run of seven with a copy ready behind it stays short.
        if (useLz && run.length == maxShortRun) {
            const QPack match = matcher.lzFind(pos);
            if (match.isLz) {
                run.isShort = true;
                packs.push_back(run);
                packs.push_back(match);
                pos += match.length;
                continue;
            }
        }
        while (pos < total && src[pos] == run.value && run.length < maxRun) {
            ++run.length;
            ++pos;
        }
        run.isShort = run.length <= maxShortRun;
        packs.push_back(run);
    }
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
