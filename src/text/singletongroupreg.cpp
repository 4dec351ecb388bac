#include "singletongroupreg.h"

#include "qcommonelements.h"
#include "qsingletonparamgroup.h"

namespace {

bool isWord(const QTextToken& token, const char* word)
{
    return token.id == tokIdentifier && token.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
}

} // namespace

SingletonGroupReg::SingletonGroupReg(const char* first, const char* second, QTextElementSubType subType)
    : m_first(first)
    , m_second(second)
    , m_subType(subType)
{
}

QTextElementType SingletonGroupReg::type() const
{
    return QSingletonParamGroup::singletonGroupType;
}

bool SingletonGroupReg::matchToken(unsigned int index, const QTextToken& token) const
{
    switch (index) {
    case 0:
        return token.id == tokLeftBracket;
    case 1:
        return isWord(token, m_first);
    case 2:
        return m_second ? isWord(token, m_second) : token.id == tokRightBracket;
    case 3:
        return !m_second || token.id == tokRightBracket;
    default:
        return true;
    }
}

QTextElement* SingletonGroupReg::create()
{
    QSingletonParamGroup* group = sgrpAlloc.alloc();
    group->setSubType(m_subType);
    return group;
}
