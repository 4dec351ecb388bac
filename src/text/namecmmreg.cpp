#include "namecmmreg.h"

#include "qcommonelements.h"
#include "qnamecomment.h"

QTextElementType NameCmmReg::type() const
{
    return QNameComment::commentGroupType;
}

bool NameCmmReg::matchToken(unsigned int index, const QTextToken& token) const
{
    return token.id == tokEndOfLine && (index > 0 || !token.text.isEmpty());
}

QTextElement* NameCmmReg::create()
{
    return cmmAlloc.alloc();
}
