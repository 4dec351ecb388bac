#pragma once

#include "qgroupparam.h"

/// A parameter holding one integer (`life = 1000`); a bad number reads as 0.
class QIntParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 3;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override { return m_value; }
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    int value() const { return m_value; }
    void setValue(int value);

private:
    int m_value = 0;
};
