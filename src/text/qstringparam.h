#pragma once

#include "qgroupparam.h"

/// A parameter whose value is a quoted string (`name = "Kung Fu Man"`); the
/// value is held without its quotes and written back inside quotes.
class QStringParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 1;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override { return m_string; }
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    const QString& string() const { return m_string; }
    void setString(const QString& text);

private:
    QString m_string;
};
