#pragma once

#include "qgroupparam.h"

/**
 * A parameter naming a file (`sprite = kfm.sff`). The path is the line's raw
 * text from the first value token to the end of the last one, so spaces and
 * characters the tokenizer splits survive; a comment behind it is not part
 * of it.
 */
class QFileParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 9;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override { return m_fileName; }
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    /// The path as the author typed it.
    const QString& fileName() const { return m_fileName; }

private:
    QString m_fileName;
};
