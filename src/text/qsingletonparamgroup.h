#pragma once

#include "qparamgroup.h"

/**
 * A parameter group that a file has once, as `[Info]`, `[Files]` or
 * `[Select Info]`; its sub-type, taken from the registry entry, says which.
 */
class QSingletonParamGroup : public QParamGroup
{
public:
    static constexpr QTextElementType singletonGroupType = 0x40;

    QTextElementType groupType() const override { return singletonGroupType; }
    QTextElementSubType subType() const override { return m_subType; }
    /// Set by the registry entry that makes the group.
    void setSubType(QTextElementSubType subType) { m_subType = subType; }
    void update(const QList<QTextToken>&) override { }

private:
    QTextElementSubType m_subType = 0;
};
