#pragma once

#include "model/qpixelfill.h"
#include "model/qspritecodecs.h"

#include <algorithm>
#include <cstring>

/**
 * Writes a run-length stream into image rows: `rowBytes` bytes of pixels,
 * then `padding` bytes set to zero, again and again, never past the end of
 * the buffer. put() and fill() return false once the buffer is full, and
 * finish() zeroes whatever the stream left unwritten.
 */
class QPixelRowWriter
{
public:
    QPixelRowWriter(const QPixelBuffer& target, qsizetype rowBytes, qsizetype padding)
        : m_out(target.bits)
        , m_end(target.bits + target.size())
        , m_rowBytes(rowBytes)
        , m_padding(padding)
    {
        Q_ASSERT(rowBytes > 0);
        // Without padding the rows are one stream: no row ends to stop at.
        m_rowEnd = padding == 0 ? m_end : m_out + std::min(rowBytes, target.size());
    }

    bool isFull() const { return m_out == m_end; }

    bool put(uchar value)
    {
        *m_out++ = value;
        return m_out != m_rowEnd || nextRow();
    }

    bool fill(uchar value, qsizetype count)
    {
        for (;;) {
            const qsizetype room = m_rowEnd - m_out;
            if (count < room) {
                pixelFill::fill(m_out, m_end, value, count);
                m_out += count;
                return true;
            }
            std::memset(m_out, value, size_t(room));
            m_out = m_rowEnd;
            count -= room;
            if (!nextRow())
                return false;
            if (count == 0)
                return true;
        }
    }

    void finish() { std::memset(m_out, 0, size_t(m_end - m_out)); m_out = m_end; }

private:
    bool nextRow()
    {
        const qsizetype pad = std::min(m_padding, qsizetype(m_end - m_out));
        std::memset(m_out, 0, size_t(pad));
        m_out += pad;
        if (m_out == m_end)
            return false;
        m_rowEnd = m_out + std::min(m_rowBytes, qsizetype(m_end - m_out));
        return true;
    }

    uchar* m_out;
    uchar* m_rowEnd;
    uchar* const m_end;
    const qsizetype m_rowBytes;
    const qsizetype m_padding;
};
