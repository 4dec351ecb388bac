#pragma once

#include <QByteArray>
#include <QDataStream>

/**
 * The variable-width LZW of GIF image data for a minimum code size of 8: codes
 * start 9 bits wide, grow to 12, and the table is cleared when it is full. The
 * codes go out in data sub-blocks of up to 255 bytes.
 *
 * Use compressInit, compressByte for every pixel in order, then compressTerm,
 * which writes the end code, the last sub-block and the block terminator.
 */
class QGIFLZW
{
public:
    explicit QGIFLZW(QDataStream& stream)
        : m_stream(stream)
    {
    }

    void compressInit();
    void compressByte(uchar value);
    void compressTerm();

private:
    void output(int code);
    void resetTable();
    void flushPacket();

    static constexpr int clearCode = 256;
    static constexpr int endCode = 257;
    static constexpr int maxCode = 4095;
    static constexpr int hashSize = 8192;

    QDataStream& m_stream;
    int m_key[hashSize];
    short m_code[hashSize];
    int m_nextCode = 0;
    int m_width = 9;
    int m_current = -1;
    quint32 m_bits = 0;
    int m_bitCount = 0;
    uchar m_packet[255];
    int m_packetSize = 0;
};
