#include "qgiflzw.h"

#include <cstring>

void QGIFLZW::compressInit()
{
    m_bits = 0;
    m_bitCount = 0;
    m_packetSize = 0;
    m_current = -1;
    resetTable();
    output(clearCode);
}

void QGIFLZW::resetTable()
{
    std::memset(m_key, 0, sizeof m_key);
    m_nextCode = endCode + 1;
    m_width = 9;
}

void QGIFLZW::compressByte(uchar value)
{
    if (m_current < 0) {
        m_current = value;
        return;
    }
    // Keys are the string's prefix code and the next byte, plus one so that 0 marks a free slot.
    const int key = ((m_current << 8) | value) + 1;
    int slot = (key * 2654435761u) >> 19 & (hashSize - 1);
    while (m_key[slot] != 0) {
        if (m_key[slot] == key) {
            m_current = m_code[slot];
            return;
        }
        slot = (slot + 1) & (hashSize - 1);
    }
    output(m_current);
    m_current = value;
    if (m_nextCode >= maxCode) {
        output(clearCode);
        resetTable();
    } else {
        m_key[slot] = key;
        m_code[slot] = short(m_nextCode++);
    }
}

void QGIFLZW::compressTerm()
{
    if (m_current >= 0)
        output(m_current);
    output(endCode);
    if (m_bitCount > 0) {
        m_packet[m_packetSize++] = uchar(m_bits);
        if (m_packetSize == int(sizeof m_packet))
            flushPacket();
    }
    flushPacket();
    m_stream << quint8(0);
}

void QGIFLZW::output(int code)
{
    m_bits |= quint32(code) << m_bitCount;
    m_bitCount += m_width;
    while (m_bitCount >= 8) {
        m_packet[m_packetSize++] = uchar(m_bits);
        m_bits >>= 8;
        m_bitCount -= 8;
        if (m_packetSize == int(sizeof m_packet))
            flushPacket();
    }
    // The decoder adds its table entry one code behind the encoder, so the width
    // grows when the next free code no longer fits, checked before this code's entry.
    if (m_nextCode >= (1 << m_width) && m_width < 12)
        ++m_width;
}

void QGIFLZW::flushPacket()
{
    if (m_packetSize == 0)
        return;
    m_stream << quint8(m_packetSize);
    m_stream.writeRawData(reinterpret_cast<const char*>(m_packet), m_packetSize);
    m_packetSize = 0;
}
