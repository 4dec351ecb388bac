#include "qcolorquantizer.h"

#include "qoctreenode.h"

#include <algorithm>

namespace {

unsigned char channelMean(qint64 sum, int count)
{
    return static_cast<unsigned char>(std::clamp<qint64>(sum / count, 0, 255));
}

} // namespace

QColorQuantizer::QColorQuantizer(int maxColors, int depth)
    : m_maxColors(maxColors)
    , m_depth(std::clamp(depth, 1, 8))
{
}

QColorQuantizer::~QColorQuantizer()
{
    delete m_root;
}

bool QColorQuantizer::processImage(const QImage& image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < rgb.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x) {
            const QRgb pixel = line[x];
            addColor(m_root, qRed(pixel), qGreen(pixel), qBlue(pixel), m_depth, 0, m_leafCount, m_reducible);
            while (m_leafCount > m_maxColors)
                reduceTree(m_depth, m_leafCount, m_reducible);
        }
    }
    return true;
}

void QColorQuantizer::addColor(QOctreeNode*& node, unsigned char r, unsigned char g, unsigned char b, int depth,
                               int level, int& leafCount, QOctreeNode* (&reducible)[8])
{
    if (!node) {
        node = new QOctreeNode;
        if (level == depth) {
            node->leaf = true;
            ++leafCount;
        } else {
            node->next = reducible[level];
            reducible[level] = node;
        }
    }
    if (node->leaf) {
        ++node->pixelCount;
        node->redSum += r;
        node->greenSum += g;
        node->blueSum += b;
        return;
    }
    const int mask = 0x80 >> level;
    const int shift = 7 - level;
    const int child = ((r & mask) >> shift) << 2 | ((g & mask) >> shift) << 1 | ((b & mask) >> shift);
    addColor(node->children[child], r, g, b, depth, level + 1, leafCount, reducible);
}

void QColorQuantizer::reduceTree(int depth, int& leafCount, QOctreeNode* (&reducible)[8])
{
    int level = depth - 1;
    while (level > 0 && !reducible[level])
        --level;
    QOctreeNode* node = reducible[level];
    if (!node)
        return;
    reducible[level] = node->next;
    node->next = nullptr;

    int removed = 0;
    for (QOctreeNode*& child : node->children) {
        if (!child)
            continue;
        node->pixelCount += child->pixelCount;
        node->redSum += child->redSum;
        node->greenSum += child->greenSum;
        node->blueSum += child->blueSum;
        delete child;
        child = nullptr;
        ++removed;
    }
    node->leaf = true;
    leafCount += 1 - removed;
}

void QColorQuantizer::getColorTable(QVector<QRgb>& table) const
{
    table.fill(0, 256);
    int index = 0;
    getPaletteColors(m_root, table, index);
}

void QColorQuantizer::getPaletteColors(const QOctreeNode* node, QVector<QRgb>& table, int& index)
{
    if (!node)
        return;
    if (node->leaf) {
        if (index >= table.size())
            return;
        QRgb colour = 0;
        if (node->pixelCount > 0) {
            colour = qRgba(channelMean(node->redSum, node->pixelCount), channelMean(node->greenSum, node->pixelCount),
                           channelMean(node->blueSum, node->pixelCount), 0);
        }
        table[index++] = colour;
        return;
    }
    for (const QOctreeNode* child : node->children)
        getPaletteColors(child, table, index);
}
