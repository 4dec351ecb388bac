#pragma once

#include "qgroupparam.h"

/**
 * The engine version a file is written for (`mugenversion = 1.0`), packed
 * as the engine versions are (1.0 is 0x01000000). Anything but a lone
 * "major.minor" number, the old dated form "04,14,2002" among it, is 0,
 * and 0 is written back in that dated form.
 */
class QVersionParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 8;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override { return m_version; }
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    unsigned int version() const { return m_version; }
    void setVersion(unsigned int version);

private:
    unsigned int m_version = 0;
};
