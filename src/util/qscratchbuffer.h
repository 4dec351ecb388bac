#pragma once

#include <QtGlobal>
#include <cstddef>
#include <vector>

/**
 * Memory for one piece of work at a time, kept from one to the next so that
 * a file of many pictures is decoded into memory that is already in the
 * cache, without an allocation or fresh pages for each. Memory grown past a
 * few megabytes for one huge picture is given back at the next smaller
 * request instead of being held for the rest of the process.
 */
class QScratchBuffer
{
public:
    /// At least `size` bytes, contents undefined, valid until the next call.
    uchar* reserve(std::size_t size)
    {
        if (m_bytes.size() > keptSize && size <= keptSize)
            std::vector<uchar>().swap(m_bytes);
        if (m_bytes.size() < size)
            m_bytes.resize(size);
        return m_bytes.data();
    }

private:
    static constexpr std::size_t keptSize = 16 * 1024 * 1024;
    std::vector<uchar> m_bytes;
};
