#pragma once

#include "qgroupparam.h"

/**
 * A parameter holding a list of numbers (`offset = 0.5, -1`), read in single
 * precision. It holds ten but reads at most four from a line (the walk stops
 * at token 10), as the engine's files expect. getValue() is a double for one
 * value, a QPointF for two, a QVector3D for three, else a list of doubles.
 *
 * setValue(index, v) stores v and makes the count the larger of the old count
 * and `index`, not index + 1: a value stored at the index equal to the count
 * is kept but not written. Keep this.
 */
class QFloatNParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 6;
    static constexpr int maxCount = 10;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override;
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    int count() const { return m_count; }
    double value(int index) const { return index >= 0 && index < maxCount ? m_values[index] : 0; }
    /// Stores `value` at `index` (ignored beyond the ten held) and rewrites the line.
    void setValue(unsigned char index, double value);

private:
    unsigned char m_count = 0;
    double m_values[maxCount] = {};
};
