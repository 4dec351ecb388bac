#include "namedparamgrpreg.h"

#include "qnamedparamgroup.h"

NamedParamGrpReg::NamedParamGrpReg(const char* keyword)
    : m_keyword(keyword)
{
}

bool NamedParamGrpReg::matchToken(unsigned int index, const QTextToken& token) const
{
    if (index == 0) {
        m_closed = false;
        return token.id == tokLeftBracket;
    }
    if (index == 1)
        return token.id == tokIdentifier
            && token.text.compare(QLatin1String(m_keyword), Qt::CaseInsensitive) == 0;
    if (m_closed)
        return true;
    if (token.id == tokRightBracket) {
        m_closed = true;
        return true;
    }
    return token.id != tokEndOfLine;
}

QNamedParamGroup* NamedParamGrpReg::setup(QNamedParamGroup* group) const
{
    group->setKeyword(m_keyword);
    return group;
}
