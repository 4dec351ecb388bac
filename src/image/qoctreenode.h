#pragma once

#include <QtGlobal>

/**
 * One cell of the colour quantizer's octree. A leaf sums the pixels that
 * fell into it; a branch splits its cube of colours into eight by one bit of
 * each channel. Branches of one level are chained through `next` so that the
 * quantizer can find the newest one to fold. A node owns its children.
 */
struct QOctreeNode
{
    QOctreeNode() = default;
    QOctreeNode(const QOctreeNode&) = delete;
    QOctreeNode& operator=(const QOctreeNode&) = delete;
    ~QOctreeNode();

    bool leaf = false;
    int pixelCount = 0;
    // 64-bit so that a large picture of light colours cannot overflow a leaf.
    qint64 redSum = 0;
    qint64 greenSum = 0;
    qint64 blueSum = 0;
    QOctreeNode* next = nullptr;
    QOctreeNode* children[8] = {};
};
