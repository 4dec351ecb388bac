#pragma once

#include "qnumberlistparam.h"

/**
 * A parameter holding a list of up to ten integers (`size.ground.back = 15, 20`).
 * getValue() is an int for one value, a QPoint for two, else a list of ints.
 */
class QIntNParam : public QNumberListParam<int>
{
public:
    static constexpr QTextElementSubType paramSubType = 4;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override;
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;
};
