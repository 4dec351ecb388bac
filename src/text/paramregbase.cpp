#include "paramregbase.h"

#include "qgroupparam.h"

ParamRegBase::ParamRegBase(const QString& key, QGroupParamID id, QTextElementSubType subType)
    : m_key(key)
    , m_id(id)
    , m_subType(subType)
{
}

void ParamRegBase::setup(QGroupParam* param) const
{
    param->setup(m_key, m_id);
}

unsigned int ParamRegBase::beginsWith() const
{
    const QChar first = m_key.isEmpty() ? QChar() : m_key.at(0).toUpper();
    if (first.isDigit())
        return 2;
    const unsigned int code = first.unicode();
    return code < 256 ? 6 | (code << 8) : 6;
}

bool ParamRegBase::matchToken(unsigned int index, const QTextToken& token) const
{
    if (index == 0)
        return token.id == tokIdentifier && token.text.compare(m_key, Qt::CaseInsensitive) == 0;
    if (index == 1)
        return token.id == tokAssign;
    return matchValue(index, token.id);
}

bool ParamRegBase::matchValue(unsigned int index, QToken id) const
{
    const bool number = id == tokInteger || id == tokFloat;
    switch (m_subType) {
    case 1:
        return index == 2 ? id == tokString : id == tokEndOfLine;
    case 2:
        return index == 2 ? id == tokIdentifier : id == tokEndOfLine;
    case 3:
        return index == 2 ? id == tokInteger : id == tokEndOfLine;
    case 5:
        return index == 2 ? number : id == tokEndOfLine;
    case 4:
    case 6:
        if (index == 2)
            return id == tokInteger || (m_subType == 6 && id == tokFloat);
        if (id == tokEndOfLine)
            return true;
        return index % 2 ? id == tokComma : number;
    default:
        return true;
    }
}
