#pragma once

#include "qnumberlistparam.h"

/**
 * A parameter holding a list of numbers (`offset = 0.5, -1`), read in single
 * precision. It holds ten but reads at most four from a line, as the engine's
 * files expect. getValue() is a double for one value, a QPointF for two, a
 * QVector3D for three, else a list of doubles.
 */
class QFloatNParam : public QNumberListParam<double>
{
public:
    static constexpr QTextElementSubType paramSubType = 6;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override;
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;
};
