#pragma once

#include "qgroupparam.h"

/// A parameter whose value is one bare word (`type = S`), written as it is.
class QValueParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 2;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override { return m_value; }
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    const QString& value() const { return m_value; }
    void setValue(const QString& text);

private:
    QString m_value;
};
