#pragma once

#include <QImage>
#include <QRgb>
#include <QVector>

struct QOctreeNode;

/**
 * Reduces a true-colour picture to at most `maxColors` colours with an
 * octree. The tree is folded straight after every pixel that pushes the
 * number of leaves above the maximum, so memory stays bounded and the result
 * depends on the order of the pixels (rows top to bottom, each left to right).
 * The program builds it as QColorQuantizer(256, 8).
 *
 * Feed one or more pictures with processImage(), then read the colours with
 * getColorTable(). No entry is set aside for transparency: the caller decides
 * where the sprite's transparent colour goes.
 */
class QColorQuantizer
{
public:
    QColorQuantizer(int maxColors, int depth);
    QColorQuantizer(const QColorQuantizer&) = delete;
    QColorQuantizer& operator=(const QColorQuantizer&) = delete;
    ~QColorQuantizer();

    /// Adds every pixel of `image`, read as opaque RGB (alpha has no say).
    bool processImage(const QImage& image);

    /**
     * Fills `table` with 256 entries: the leaves' mean colours in tree order,
     * then zeros. Only red, green and blue are written; alpha stays 0 so the
     * caller chooses it.
     */
    void getColorTable(QVector<QRgb>& table) const;

    int colorCount() const { return m_leafCount; }

    static void addColor(QOctreeNode*& node, unsigned char r, unsigned char g, unsigned char b, int depth,
                         int level, int& leafCount, QOctreeNode* (&reducible)[8]);
    static void reduceTree(int depth, int& leafCount, QOctreeNode* (&reducible)[8]);
    static void getPaletteColors(const QOctreeNode* node, QVector<QRgb>& table, int& index);

private:
    QOctreeNode* m_root = nullptr;
    int m_leafCount = 0;
    QOctreeNode* m_reducible[8] = {};
    int m_maxColors;
    int m_depth;
};
