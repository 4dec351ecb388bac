#pragma once

#include "qtextelement.h"
#include "qtextelementtypes.h"
#include "qtexttoken.h"

#include <QList>
#include <QString>
#include <QVariant>

class QParamGroup;

/**
 * A `key = value` line of an engine file: the base of the typed parameters.
 *
 * It holds the key as registered (not as typed), the parameter's ID, the
 * group it is a member of (null for a parameter outside any group and for a
 * later duplicate of a key, which the group ignores) and the value;
 * subclasses say how a value is read from the tokens of the line and how
 * their setters write it. A setter stores the value and hands the whole new
 * line, "key = value", to writeLine(), which replaces the line's text with
 * parsing switched off: the parameter already holds what it wrote.
 *
 * A parameter outside any document keeps what it last wrote instead,
 * readable through writtenLine().
 */
class QGroupParam : public QTextElement
{
public:
    static constexpr QTextElementType paramGroupType = 0x10;

    /// Gives the parameter its registered key and ID (done by the registry).
    void setup(const QString& key, QGroupParamID id);

    const QString& key() const { return m_key; }
    QGroupParamID id() const { return m_id; }
    QTextElementType groupType() const override { return paramGroupType; }
    QTextElementSubType subType() const override = 0;
    /// The group that counts this parameter as its own, or null.
    QParamGroup* group() const { return m_group; }

    /// The value in the form callers of the group read it (see each subclass).
    virtual QVariant getValue() const = 0;
    /// Reads the value from the tokens of the whole line (key and "=" included,
    /// so the value starts at index 2) and from the line's text.
    virtual void takeValue(const QList<QTextToken>& tokens, const QString& line) = 0;

    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    /// The line the last setter wrote, while the parameter is in no document.
    const QString& writtenLine() const { return m_writtenLine; }

protected:
    /// Writes "key = value" with the registered spelling of the key.
    void changeValue(const QString& value);
    /// Replaces the parameter's line by `line` without reading it back.
    virtual void writeLine(const QString& line);

    /// The number of tokens up to the last real one: an end-of-line token that
    /// carries a comment after the value is not part of it.
    static int valueTokenCount(const QList<QTextToken>& tokens);

private:
    friend class QParamGroup;

    QString m_key;
    QGroupParamID m_id = 0;
    QParamGroup* m_group = nullptr;
    QString m_writtenLine;
};
