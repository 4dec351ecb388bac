#pragma once

#include "qgroupparam.h"

/**
 * A parameter holding a list of up to ten integers (`size.ground.back = 15, 20`).
 * getValue() is an int for one value, a QPoint for two, else a list of ints.
 *
 * setValue(index, v) stores v and makes the count the larger of the old count
 * and `index`, not index + 1: a value stored at the index equal to the count
 * is kept but not written. Files and scripts rely on this; keep it.
 */
class QIntNParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 4;
    static constexpr int maxCount = 10;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override;
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    int count() const { return m_count; }
    int value(int index) const { return index >= 0 && index < maxCount ? m_values[index] : 0; }
    /// Stores `value` at `index` (ignored beyond the ten held) and rewrites the line.
    void setValue(unsigned char index, int value);

private:
    unsigned char m_count = 0;
    int m_values[maxCount] = {};
};
