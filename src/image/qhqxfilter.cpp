#include "qhqxfilter.h"

#include "qhqxrules.h"

#include <QtGlobal>

#include <array>
#include <cstdlib>
#include <vector>

namespace {

struct Yuv
{
    int y, u, v;
};

Yuv toYuv(quint32 colour)
{
    const int r = int(colour >> 16 & 0xff);
    const int g = int(colour >> 8 & 0xff);
    const int b = int(colour & 0xff);
    return {(r + g + b) >> 2, 128 + ((r - b) >> 2), 128 + ((2 * g - r - b) >> 3)};
}

bool differ(const Yuv& a, const Yuv& b)
{
    return std::abs(a.y - b.y) > 48 || std::abs(a.u - b.u) > 7 || std::abs(a.v - b.v) > 6;
}

// Neighbourhood seen after 0, 1, 2 and 3 quarter turns anticlockwise: entry i
// is the source neighbour that lands on position i. A turn brings the
// top-right corner of the enlarged pixel to the top-left, where the rules are.
constexpr int kTurn[4][10] = {
    {0, 1, 2, 3, 4, 5, 6, 7, 8, 9},
    {0, 3, 6, 9, 2, 5, 8, 1, 4, 7},
    {0, 9, 8, 7, 6, 5, 4, 3, 2, 1},
    {0, 7, 4, 1, 8, 5, 2, 9, 6, 3},
};
constexpr int kNeighbours[8] = {1, 2, 3, 4, 6, 7, 8, 9};
constexpr int kKeys = 1 << 12; // eight neighbour bits, four edge bits

/// The rules of one scale, spread into a table indexed by neighbourhood key.
class HqTable
{
public:
    explicit HqTable(int scale)
        : m_scale(scale)
    {
        int count = 0;
        const HqCell* cells = hqCells(scale, count);
        m_cells.assign(cells, cells + count);
        m_blends.resize(m_cells.size());
        for (std::size_t c = 0; c < m_cells.size(); ++c) {
            const HqCell& cell = m_cells[c];
            for (int key = 0; key < kKeys; ++key) {
                for (int r = 0; r < cell.count; ++r) {
                    if (matches(cell.rules[r], key)) {
                        m_blends[c][std::size_t(key)] = cell.rules[r].blend;
                        break;
                    }
                }
            }
        }
    }

    int scale() const { return m_scale; }
    std::size_t cellCount() const { return m_cells.size(); }
    const HqCell& cell(std::size_t c) const { return m_cells[c]; }
    const HqBlend& blend(std::size_t c, int key) const { return m_blends[c][std::size_t(key)]; }

private:
    static bool matches(const HqRule& rule, int key)
    {
        for (int i = 0; i < 12; ++i) {
            const char want = i < 8 ? rule.neighbours[i] : rule.edges[i - 8];
            if (want != '.' && (want == '1') != bool(key >> i & 1))
                return false;
        }
        return true;
    }

    int m_scale;
    std::vector<HqCell> m_cells;
    std::vector<std::array<HqBlend, kKeys>> m_blends;
};

/// Blends all four channels, two at a time in the halves of a 32-bit word.
quint32 mix(const quint32 (&w)[10], const HqBlend& blend, const int (&turn)[10])
{
    quint32 redBlue = 0;
    quint32 alphaGreen = 0;
    for (int j = 0; j < 3; ++j) {
        if (!blend.weight[j])
            continue;
        const quint32 colour = w[turn[blend.pixel[j]]];
        redBlue += (colour & 0x00ff00ffu) * blend.weight[j];
        alphaGreen += (colour >> 8 & 0x00ff00ffu) * blend.weight[j];
    }
    redBlue = redBlue >> blend.shift & 0x00ff00ffu;
    alphaGreen = alphaGreen >> blend.shift & 0x00ff00ffu;
    return redBlue | alphaGreen << 8;
}

void runHq(const HqTable& table, const unsigned char* source, unsigned char* target, unsigned width,
           unsigned height, unsigned targetPitch)
{
    const int scale = table.scale();
    const quint32* pixels = reinterpret_cast<const quint32*>(source);
    std::vector<Yuv> yuvs(std::size_t(width) * height);
    for (std::size_t i = 0; i < yuvs.size(); ++i)
        yuvs[i] = toYuv(pixels[i]);
    for (unsigned y = 0; y < height; ++y) {
        const std::size_t up = std::size_t(y > 0 ? y - 1 : y) * width;
        const std::size_t mid = std::size_t(y) * width;
        const std::size_t down = std::size_t(y + 1 < height ? y + 1 : y) * width;
        for (unsigned x = 0; x < width; ++x) {
            const unsigned left = x > 0 ? x - 1 : x;
            const unsigned right = x + 1 < width ? x + 1 : x;
            const std::size_t at[10] = {0,          up + left,    up + x,   up + right,   mid + left,
                                        mid + x,    mid + right,  down + left, down + x, down + right};
            quint32 w[10];
            Yuv yuv[10];
            for (int k = 1; k < 10; ++k) {
                w[k] = pixels[at[k]];
                yuv[k] = yuvs[at[k]];
            }
            bool apart[10] = {};
            for (int k : kNeighbours)
                apart[k] = w[k] != w[5] && differ(yuv[5], yuv[k]);
            const bool edges[4] = {differ(yuv[2], yuv[6]), differ(yuv[6], yuv[8]), differ(yuv[8], yuv[4]),
                                   differ(yuv[4], yuv[2])};

            for (int quarter = 0; quarter < 4; ++quarter) {
                const int(&turn)[10] = kTurn[quarter];
                int key = 0;
                for (int b = 0; b < 8; ++b)
                    key |= int(apart[turn[kNeighbours[b]]]) << b;
                for (int e = 0; e < 4; ++e)
                    key |= int(edges[(e + quarter) % 4]) << (8 + e);

                for (std::size_t c = 0; c < table.cellCount(); ++c) {
                    int row = table.cell(c).row;
                    int column = table.cell(c).column;
                    for (int q = 0; q < quarter; ++q) {
                        const int turned = column;
                        column = scale - 1 - row;
                        row = turned;
                    }
                    quint32* out = reinterpret_cast<quint32*>(target + (std::size_t(y) * scale + row) * targetPitch);
                    out[std::size_t(x) * scale + column] = mix(w, table.blend(c, key), turn);
                }
            }
        }
    }
}

} // namespace

void HQ2X_Filter(unsigned char* source, unsigned char* target, unsigned int width, unsigned int height,
                 unsigned int targetPitch)
{
    static const HqTable table(2);
    runHq(table, source, target, width, height, targetPitch);
}

void HQ3X_Filter(unsigned char* source, unsigned char* target, unsigned int width, unsigned int height,
                 unsigned int targetPitch)
{
    static const HqTable table(3);
    runHq(table, source, target, width, height, targetPitch);
}

void HQ4X_Filter(unsigned char* source, unsigned char* target, unsigned int width, unsigned int height,
                 unsigned int targetPitch)
{
    static const HqTable table(4);
    runHq(table, source, target, width, height, targetPitch);
}
