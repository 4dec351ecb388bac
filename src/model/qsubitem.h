#pragma once

#include <QHashFunctions>
#include <QtGlobal>

/**
 * A group and an index: the address by which the engine names sprites,
 * palettes and sounds. Plain value; the pair says nothing about whether such
 * an item exists.
 */
struct QSubItem
{
    qint32 group = 0;
    qint32 index = 0;

    QSubItem() = default;
    QSubItem(qint32 itemGroup, qint32 itemIndex) : group(itemGroup), index(itemIndex) {}

    bool operator==(const QSubItem& other) const { return group == other.group && index == other.index; }
    bool operator!=(const QSubItem& other) const { return !(*this == other); }
    bool operator<(const QSubItem& other) const
    {
        return group != other.group ? group < other.group : index < other.index;
    }
};

inline size_t qHash(const QSubItem& item, size_t seed = 0)
{
    return qHashMulti(seed, item.group, item.index);
}
