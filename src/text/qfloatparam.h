#pragma once

#include "qgroupparam.h"

/// A parameter holding one number (`xscale = 1.0`), read in single precision
/// as the engine reads it, written with six significant digits.
class QFloatParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 5;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override { return m_value; }
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    double value() const { return m_value; }
    void setValue(double value);

private:
    double m_value = 0;
};
