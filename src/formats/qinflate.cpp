#include "qinflate.h"

#include "util/qadler32.h"
#include "util/qpixelfill.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

/*
 * A decoding table entry packs what one Huffman code stands for:
 *   bits 0-7    bits to consume: the code's length, or the root bits for a link
 *   bits 8-11   its kind
 *   bits 12-15  extra bits that follow the code (lengths and distances), or
 *               the index bits of the subtable a link points to
 *   bits 16-31  the literal, the base length or distance, or the subtable's start
 * Codes up to the root length are looked up in one step; longer ones through
 * a link to a subtable indexed by the bits after the root.
 */
enum Kind : uint32_t { Literal, Base, EndOfBlock, Link, Invalid };

constexpr uint32_t entry(uint32_t value, Kind kind, uint32_t extra, uint32_t bits)
{
    return value << 16 | extra << 12 | uint32_t(kind) << 8 | bits;
}
constexpr uint32_t invalidEntry = entry(0, Invalid, 0, 0);
inline Kind kindOf(uint32_t e) { return Kind((e >> 8) & 0xF); }
inline uint32_t bitsOf(uint32_t e) { return e & 0xFF; }
inline uint32_t extraOf(uint32_t e) { return (e >> 12) & 0xF; }
inline uint32_t valueOf(uint32_t e) { return e >> 16; }

constexpr int maxCodeLength = 15;
constexpr int literalRootBits = 10;
constexpr int distanceRootBits = 8;
constexpr int lengthCodeRootBits = 7;
// A subtable per root entry at most 2^(15 - root) long, one per code longer than the root.
constexpr int literalTableSize = (1 << literalRootBits) + 288 * (1 << (maxCodeLength - literalRootBits));
constexpr int distanceTableSize = (1 << distanceRootBits) + 32 * (1 << (maxCodeLength - distanceRootBits));

/// What each literal/length symbol decodes to, before its code is known.
uint32_t literalSymbol(int index)
{
    static const uint16_t lengthBase[29] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                            31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
    static const uint8_t lengthExtra[29] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                            2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
    if (index < 256)
        return entry(uint32_t(index), Literal, 0, 0);
    if (index == 256)
        return entry(0, EndOfBlock, 0, 0);
    if (index < 286)
        return entry(lengthBase[index - 257], Base, lengthExtra[index - 257], 0);
    return invalidEntry;
}

uint32_t distanceSymbol(int index)
{
    static const uint16_t distanceBase[30] = {1,   2,   3,   4,   5,   7,    9,    13,   17,   25,
                                              33,  49,  65,  97,  129, 193,  257,  385,  513,  769,
                                              1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
    if (index < 30)
        return entry(distanceBase[index], Base, uint32_t(index < 4 ? 0 : index / 2 - 1), 0);
    return invalidEntry;
}

uint32_t lengthCodeSymbol(int index)
{
    return entry(uint32_t(index), Literal, 0, 0);
}

/// The `length` low bits of `code` in reverse order: Huffman codes are packed from their first bit down.
uint32_t reverseBits(uint32_t code, int length)
{
    static const auto reversedBytes = [] {
        struct Table
        {
            uint8_t bytes[256];
        } table;
        for (int i = 0; i < 256; ++i) {
            int reversed = 0;
            for (int bit = 0; bit < 8; ++bit)
                reversed |= ((i >> bit) & 1) << (7 - bit);
            table.bytes[i] = uint8_t(reversed);
        }
        return table;
    }();
    const uint32_t reversed = uint32_t(reversedBytes.bytes[code & 0xFF]) << 8 | reversedBytes.bytes[(code >> 8) & 0xFF];
    return reversed >> (16 - length);
}

/**
 * Builds the decoding table of a canonical Huffman code from its code
 * lengths. Over-subscribed codes fail; incomplete ones fail too, except a
 * single code of one bit (allowed for literals and distances), and a code with
 * no symbols at all, whose every entry is invalid. Those are the rules zlib
 * applies, so that both accept the same streams.
 */
bool buildTable(const uint8_t* lengths, int count, uint32_t (*symbol)(int), int rootBits, bool allowSingle,
                uint32_t* table, int capacity)
{
    int perLength[maxCodeLength + 1] = {};
    for (int i = 0; i < count; ++i)
        ++perLength[lengths[i]];
    const int rootSize = 1 << rootBits;
    int used = 0;
    for (int length = 1; length <= maxCodeLength; ++length)
        used += perLength[length];
    if (used == 0) {
        std::fill(table, table + rootSize, invalidEntry);
        return allowSingle;
    }

    int left = 1;
    for (int length = 1; length <= maxCodeLength; ++length) {
        left = (left << 1) - perLength[length];
        if (left < 0)
            return false;
    }
    if (left > 0 && !(allowSingle && used == 1 && perLength[1] == 1))
        return false;

    // Symbols sorted by code length, then by symbol: the order of their canonical codes.
    int sorted[288];
    int offsets[maxCodeLength + 2] = {};
    for (int length = 1; length <= maxCodeLength; ++length)
        offsets[length + 1] = offsets[length] + perLength[length];
    for (int i = 0; i < count; ++i)
        if (lengths[i] != 0)
            sorted[offsets[lengths[i]]++] = i;

    // The root table grows a length at a time: doubling it repeats the codes
    // placed so far at every index their bits are a prefix of, and the codes
    // of the new length each take the one index left for them.
    uint32_t code = 0;
    int at = 0;
    table[0] = table[1] = invalidEntry;
    for (int length = 1; length <= rootBits; ++length) {
        if (length > 1)
            std::memcpy(table + (1 << (length - 1)), table, sizeof(uint32_t) << (length - 1));
        for (int n = 0; n < perLength[length]; ++n, ++code, ++at)
            table[reverseBits(code, length)] = symbol(sorted[at]) | uint32_t(length);
        code <<= 1;
    }

    // Longer codes go into subtables behind links in the root table, each as
    // long as the longest code that shares its root bits needs.
    const int longStart = at;
    uint32_t longCodes[288];
    uint8_t subtableBits[1 << literalRootBits];
    for (int length = rootBits + 1; length <= maxCodeLength; ++length) {
        for (int n = 0; n < perLength[length]; ++n, ++code, ++at) {
            longCodes[at] = reverseBits(code, length);
            subtableBits[longCodes[at] & uint32_t(rootSize - 1)] = uint8_t(length - rootBits);
        }
        code <<= 1;
    }
    int next = rootSize;
    for (int i = longStart; i < at; ++i) {
        const uint32_t root = longCodes[i] & uint32_t(rootSize - 1);
        if (kindOf(table[root]) != Link) {
            const int bits = subtableBits[root];
            if (next + (1 << bits) > capacity)
                return false;
            table[root] = entry(uint32_t(next), Link, uint32_t(bits), uint32_t(rootBits));
            std::fill(table + next, table + next + (1 << bits), invalidEntry);
            next += 1 << bits;
        }
        const uint32_t link = table[root];
        const int length = lengths[sorted[i]] - rootBits;
        const uint32_t value = symbol(sorted[i]) | uint32_t(length);
        for (uint32_t index = longCodes[i] >> rootBits; index < (1u << extraOf(link)); index += 1u << length)
            table[valueOf(link) + index] = value;
    }
    return true;
}

struct Tables
{
    uint32_t literals[literalTableSize];
    uint32_t distances[distanceTableSize];
};

const Tables& fixedTables()
{
    static const Tables fixed = [] {
        Tables tables;
        uint8_t lengths[288];
        std::fill(lengths, lengths + 144, 8);
        std::fill(lengths + 144, lengths + 256, 9);
        std::fill(lengths + 256, lengths + 280, 7);
        std::fill(lengths + 280, lengths + 288, 8);
        buildTable(lengths, 288, literalSymbol, literalRootBits, true, tables.literals, literalTableSize);
        std::fill(lengths, lengths + 32, 5);
        buildTable(lengths, 32, distanceSymbol, distanceRootBits, true, tables.distances, distanceTableSize);
        return tables;
    }();
    return fixed;
}

/**
 * Bits of the input, least significant first, in a 64-bit register. A refill
 * tops it up to at least 56 bits, enough for a whole length and distance pair;
 * past the end of the input it shifts in zero bytes and counts them, so reading
 * beyond the stream shows up as a negative count of real bits left.
 */
class BitReader
{
public:
    BitReader(const uint8_t* in, const uint8_t* end) : m_in(in), m_end(end) {}

    void refill()
    {
        if (m_end - m_in >= 8) {
            // The register may already hold the next bytes above its count;
            // ORing the same bytes in again leaves them as they are.
            uint64_t word;
            std::memcpy(&word, m_in, sizeof word);
            m_bits |= qFromLittleEndian(word) << m_count;
            m_in += (63 - m_count) >> 3;
            m_count |= 56;
            return;
        }
        while (m_count < 56) {
            if (m_in < m_end)
                m_bits |= uint64_t(*m_in++) << m_count;
            else
                ++m_padding;
            m_count += 8;
        }
    }

    uint32_t peek() const { return uint32_t(m_bits); }
    void consume(uint32_t n)
    {
        m_bits >>= n;
        m_count -= n;
    }
    uint32_t take(uint32_t n)
    {
        const uint32_t value = uint32_t(m_bits) & ((1u << n) - 1);
        consume(n);
        return value;
    }
    /// Looks up the next code in a table with the given root bits.
    uint32_t decode(const uint32_t* table, int rootBits)
    {
        uint32_t e = table[peek() & ((1u << rootBits) - 1)];
        if (kindOf(e) == Link) {
            consume(uint32_t(rootBits));
            e = table[valueOf(e) + (peek() & ((1u << extraOf(e)) - 1))];
        }
        consume(bitsOf(e));
        return e;
    }
    /// Whether no bit was taken from beyond the end of the input.
    bool withinInput() const { return int(m_count) >= 8 * m_padding; }

    /// Drops the bits up to the next byte and returns where the unread bytes start.
    const uint8_t* alignToByte()
    {
        consume(m_count & 7);
        return m_in - (m_count / 8 - uint32_t(m_padding));
    }
    /// Starts again at `in`, with nothing held.
    void restart(const uint8_t* in)
    {
        m_in = in;
        m_bits = 0;
        m_count = 0;
        m_padding = 0;
    }
    const uint8_t* end() const { return m_end; }

private:
    const uint8_t* m_in;
    const uint8_t* m_end;
    uint64_t m_bits = 0;
    uint32_t m_count = 0;
    int m_padding = 0;
};

class Inflater
{
public:
    Inflater(const uint8_t* in, size_t inLength, uint8_t* out, size_t outLength)
        : m_reader(in, in + inLength), m_start(out), m_out(out), m_end(out + outLength)
    {
    }

    bool run()
    {
        bool last = false;
        while (!last) {
            m_reader.refill();
            last = m_reader.take(1);
            const uint32_t type = m_reader.take(2);
            bool ok = false;
            if (type == 0)
                ok = storedBlock();
            else if (type == 1)
                ok = huffmanBlock(fixedTables());
            else if (type == 2)
                ok = dynamicBlock();
            if (!ok || !m_reader.withinInput())
                return false;
        }
        if (m_out != m_end)
            return false;
        const uint8_t* trailer = m_reader.alignToByte();
        return m_reader.end() - trailer >= 4
            && qFromBigEndian<quint32>(trailer) == adler32Of(m_start, size_t(m_end - m_start));
    }

private:
    bool storedBlock()
    {
        if (!m_reader.withinInput())
            return false;
        const uint8_t* at = m_reader.alignToByte();
        if (m_reader.end() - at < 4)
            return false;
        const uint32_t length = uint32_t(at[0]) | uint32_t(at[1]) << 8;
        const uint32_t complement = uint32_t(at[2]) | uint32_t(at[3]) << 8;
        at += 4;
        if ((length ^ 0xFFFF) != complement || length > size_t(m_reader.end() - at) || length > size_t(m_end - m_out))
            return false;
        std::memcpy(m_out, at, length);
        m_out += length;
        m_reader.restart(at + length);
        return true;
    }

    bool dynamicBlock()
    {
        static const uint8_t order[19] = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
        m_reader.refill();
        const int literalCount = int(m_reader.take(5)) + 257;
        const int distanceCount = int(m_reader.take(5)) + 1;
        const int lengthCodeCount = int(m_reader.take(4)) + 4;
        if (literalCount > 286 || distanceCount > 30)
            return false;
        uint8_t lengthCodeLengths[19] = {};
        for (int i = 0; i < lengthCodeCount; ++i) {
            m_reader.refill();
            lengthCodeLengths[order[i]] = uint8_t(m_reader.take(3));
        }
        uint32_t lengthCodes[1 << lengthCodeRootBits];
        if (!buildTable(lengthCodeLengths, 19, lengthCodeSymbol, lengthCodeRootBits, false, lengthCodes,
                        1 << lengthCodeRootBits))
            return false;

        uint8_t lengths[286 + 30];
        const int total = literalCount + distanceCount;
        for (int i = 0; i < total;) {
            m_reader.refill();
            const uint32_t e = m_reader.decode(lengthCodes, lengthCodeRootBits);
            if (kindOf(e) != Literal)
                return false;
            const uint32_t symbol = valueOf(e);
            if (symbol < 16) {
                lengths[i++] = uint8_t(symbol);
                continue;
            }
            uint8_t repeated = 0;
            int times;
            if (symbol == 16) {
                if (i == 0)
                    return false;
                repeated = lengths[i - 1];
                times = 3 + int(m_reader.take(2));
            } else if (symbol == 17) {
                times = 3 + int(m_reader.take(3));
            } else {
                times = 11 + int(m_reader.take(7));
            }
            if (i + times > total)
                return false;
            std::memset(lengths + i, repeated, size_t(times));
            i += times;
        }
        if (lengths[256] == 0)
            return false;
        if (!buildTable(lengths, literalCount, literalSymbol, literalRootBits, true, m_tables.literals,
                        literalTableSize)
            || !buildTable(lengths + literalCount, distanceCount, distanceSymbol, distanceRootBits, true,
                           m_tables.distances, distanceTableSize))
            return false;
        return huffmanBlock(m_tables);
    }

    bool huffmanBlock(const Tables& tables)
    {
        // Locals, not members: stores of output bytes may alias anything, and
        // would otherwise make the compiler reload the bit register after each.
        BitReader reader = m_reader;
        uint8_t* out = m_out;
        uint8_t* const start = m_start;
        uint8_t* const end = m_end;
        for (;;) {
            reader.refill();
            uint32_t e = reader.decode(tables.literals, literalRootBits);
            if (kindOf(e) == Literal) {
                if (out == end)
                    return false;
                *out++ = uint8_t(valueOf(e));
                // A refill leaves 56 bits: room for two codes of up to 15 bits,
                // or for a length code and a distance code with their extra bits.
                e = reader.decode(tables.literals, literalRootBits);
                if (kindOf(e) == Literal) {
                    if (out == end)
                        return false;
                    *out++ = uint8_t(valueOf(e));
                    continue;
                }
                reader.refill();
            }
            if (kindOf(e) == EndOfBlock)
                break;
            if (kindOf(e) != Base)
                return false;
            const uint32_t length = valueOf(e) + reader.take(extraOf(e));
            e = reader.decode(tables.distances, distanceRootBits);
            if (kindOf(e) != Base)
                return false;
            const uint32_t distance = valueOf(e) + reader.take(extraOf(e));
            if (distance > size_t(out - start) || length > size_t(end - out))
                return false;
            // The slack past the end lets runs and copies go in whole blocks.
            if (distance == 1)
                pixelFill::fill(out, end + inflateSlack, out[-1], length);
            else
                pixelFill::copyBack(out, end + inflateSlack, distance, length);
            out += length;
        }
        m_reader = reader;
        m_out = out;
        return true;
    }

    BitReader m_reader;
    uint8_t* const m_start;
    uint8_t* m_out;
    uint8_t* const m_end;
    Tables m_tables;
};

} // namespace

bool inflateZlib(const unsigned char* in, std::size_t inLength, unsigned char* out, std::size_t outLength)
{
    // The header: deflate with a window of at most 32 KiB, no preset
    // dictionary, and a check value making both bytes a multiple of 31.
    if (inLength < 2)
        return false;
    const uint32_t method = in[0], flags = in[1];
    if ((method & 0x0F) != 8 || (method >> 4) > 7 || (method << 8 | flags) % 31 != 0 || (flags & 0x20))
        return false;
    Inflater inflater(in + 2, inLength - 2, out, outLength);
    return inflater.run();
}
