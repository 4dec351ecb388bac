#pragma once

#include "qgroupheader.h"

/**
 * A `[...]` line that no other entry claimed. It holds nothing, but as a
 * header it ends the group above it, so the parameters below it belong to
 * no group.
 */
class QUnknownGroup : public QGroupHeader
{
public:
    static constexpr QTextElementType unknownGroupType = 0x20;

    QTextElementType groupType() const override { return unknownGroupType; }
    void update(const QList<QTextToken>&) override { }
};
