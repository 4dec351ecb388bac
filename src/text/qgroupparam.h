#pragma once

#include "qtextelementtypes.h"
#include "qtexttoken.h"

#include <QList>
#include <QString>
#include <QVariant>

/**
 * A `key = value` line of an engine file: the base of the typed parameters.
 *
 * It holds the key as registered (not as typed), the parameter's ID and the
 * value; subclasses say how a value is read from the tokens of the line and
 * how their setters write it. A setter stores the value and hands the whole
 * new line, "key = value", to writeLine() without reading it back.
 *
 * The parameter knows nothing of the document it stands in. The text element
 * that represents the line in a document overrides writeLine() to replace the
 * line's text with parsing switched off, and calls takeValue() with the line's
 * tokens and text. A parameter outside any document keeps what it last wrote,
 * readable through writtenLine().
 */
class QGroupParam
{
public:
    static constexpr QTextElementType paramGroupType = 0x10;

    QGroupParam() = default;
    QGroupParam(const QGroupParam&) = delete;
    QGroupParam& operator=(const QGroupParam&) = delete;
    virtual ~QGroupParam() = default;

    /// Gives the parameter its registered key and ID (done by the registry).
    void setup(const QString& key, QGroupParamID id);

    const QString& key() const { return m_key; }
    QGroupParamID id() const { return m_id; }
    QTextElementType groupType() const { return paramGroupType; }
    virtual QTextElementSubType subType() const = 0;

    /// The value in the form callers of the group read it (see each subclass).
    virtual QVariant getValue() const = 0;
    /// Reads the value from the tokens of the whole line (key and "=" included,
    /// so the value starts at index 2) and from the line's text.
    virtual void takeValue(const QList<QTextToken>& tokens, const QString& line) = 0;

    /// The line the last setter wrote, while the parameter is in no document.
    const QString& writtenLine() const { return m_writtenLine; }

protected:
    /// Writes "key = value" with the registered spelling of the key.
    void changeValue(const QString& value);
    /// Replaces the parameter's line by `line`, which the parameter already
    /// holds the value of: nothing may read it back.
    virtual void writeLine(const QString& line);

    /// The number of tokens up to the last real one: an end-of-line token that
    /// carries a comment after the value is not part of it.
    static int valueTokenCount(const QList<QTextToken>& tokens);

private:
    QString m_key;
    QGroupParamID m_id = 0;
    QString m_writtenLine;
};
