#pragma once

#include "qcommandelement.h"
#include "qgroupparam.h"

#include <QList>

/**
 * The `command = ~D, DF, F, x` line of a command definition: the sequence
 * of steps, separated by commas. Tokens it does not know ("+" among them)
 * are ignored and unknown key names add nothing, so the list is never empty.
 * getValue() is toString(), which writes the time of "~" behind "/" and so
 * loses it for "~30D": the files' established spelling, kept.
 */
class QCommandParam : public QGroupParam
{
public:
    static constexpr QTextElementSubType paramSubType = 7;

    QTextElementSubType subType() const override { return paramSubType; }
    QVariant getValue() const override { return toString(); }
    void takeValue(const QList<QTextToken>& tokens, const QString& line) override;

    const QList<QCommandElement>& elements() const { return m_elements; }
    QString toString() const;
    /// The number of steps the engine counts: 3 for a ">" step, 1 for others.
    int length() const;

private:
    QList<QCommandElement> m_elements;
};
