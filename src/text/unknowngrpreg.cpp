#include "unknowngrpreg.h"

#include "qcommonelements.h"
#include "qunknowngroup.h"

QTextElementType UnknownGrpReg::type() const
{
    return QUnknownGroup::unknownGroupType;
}

bool UnknownGrpReg::matchToken(unsigned int index, const QTextToken& token) const
{
    return index > 0 || token.id == tokLeftBracket;
}

QTextElement* UnknownGrpReg::create()
{
    return ugrpAlloc.alloc();
}
