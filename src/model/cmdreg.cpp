#include "cmdreg.h"

#include "model/qcommand.h"
#include "util/qrecycleallocator.h"

namespace {

QRecycleAllocator<QCommand> commandAlloc;

} // namespace

QTextElementType CmdReg::type() const
{
    return QCommand::commandGroupType;
}

bool CmdReg::matchToken(unsigned int index, const QTextToken& token) const
{
    switch (index) {
    case 0:
        return token.id == tokLeftBracket;
    case 1:
        return token.id == tokIdentifier
            && token.text.compare(QLatin1String("command"), Qt::CaseInsensitive) == 0;
    case 2:
        return token.id == tokRightBracket;
    default:
        return true;
    }
}

QTextElement* CmdReg::create()
{
    return commandAlloc.alloc();
}
