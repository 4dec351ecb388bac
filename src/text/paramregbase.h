#pragma once

#include "qgroupparam.h"
#include "qtextelementreg.h"
#include "qtextelementtypes.h"
#include "qtexttoken.h"

#include <QString>

/**
 * Recognises the `key = value` lines of one key and value shape, offered one
 * token at a time: index 0 must be an identifier equal to the key ignoring
 * case, index 1 "=", and the rest must fit the sub-type (see matchToken()).
 * It holds no state between tokens, so one entry serves every line.
 */
class ParamRegBase : public QTextElementReg
{
public:
    static constexpr QTextElementType paramType = 0x10;

    ParamRegBase(const QString& key, QGroupParamID id, QTextElementSubType subType);

    QTextElementType type() const override { return paramType; }
    QTextElementSubType subType() const override { return m_subType; }
    const QString& key() const { return m_key; }
    QGroupParamID id() const { return m_id; }

    /// The first-character filter of the key: rule 2 (digit or "-") for a key
    /// starting with a digit, else rule 6 with the upper-cased first letter in
    /// the second byte (0 when it is beyond Latin-1).
    unsigned int beginsWith() const override;
    /// Whether a line whose token at `index` is `token` can still be this
    /// parameter. The last token offered is an end of line.
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    /// A parameter of the registered class, set up with key and ID.
    QGroupParam* create() override = 0;

protected:
    void setup(QGroupParam* param) const;

private:
    bool matchValue(unsigned int index, QToken id) const;

    QString m_key;
    QGroupParamID m_id;
    QTextElementSubType m_subType;
};
