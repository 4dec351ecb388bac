#include "qanimationregs.h"

QRecycleAllocator<QAnimation> animAlloc;
QRecycleAllocator<QAnimationFrame> frmAlloc;
QRecycleAllocator<QCollisionBoxes> clsnDeclAlloc;
QRecycleAllocator<QCollisionBox> clsnAlloc;
QRecycleAllocator<QInterFrameElement> ifrmAlloc;

namespace {

bool isWord(const QTextToken& token, const char* word)
{
    return token.id == tokIdentifier && token.text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
}

} // namespace

bool AnimReg::matchToken(unsigned int index, const QTextToken& token) const
{
    switch (index) {
    case 0:
        return token.id == tokLeftBracket;
    case 1:
        return isWord(token, "begin");
    case 2:
        return isWord(token, "action");
    case 3:
        return token.id == tokInteger;
    case 4:
        return token.id == tokRightBracket;
    default:
        return true;
    }
}

QTextElement* AnimReg::create()
{
    return animAlloc.alloc();
}

bool FrameReg::matchToken(unsigned int index, const QTextToken& token) const
{
    if (index > 8)
        return true;
    return token.id == (index % 2 == 0 ? tokInteger : tokComma);
}

QTextElement* FrameReg::create()
{
    return frmAlloc.alloc();
}

bool InterFrameReg::matchToken(unsigned int index, const QTextToken& token) const
{
    if (index == 0) {
        m_interpolate = isWord(token, "interpolate");
        return m_interpolate || isWord(token, "loopstart");
    }
    if (index == 1 && m_interpolate)
        return isWord(token, "blend") || isWord(token, "angle") || isWord(token, "scale") || isWord(token, "offset");
    return token.id == tokEndOfLine;
}

QTextElement* InterFrameReg::create()
{
    return ifrmAlloc.alloc();
}

bool CLSNDeclReg::matchToken(unsigned int index, const QTextToken& token) const
{
    switch (index) {
    case 0:
        return isWord(token, "clsn1") || isWord(token, "clsn2") || isWord(token, "clsn1default")
               || isWord(token, "clsn2default");
    case 1:
        return token.id == tokColon;
    case 2:
        return token.id == tokInteger;
    default:
        return token.id == tokEndOfLine;
    }
}

QTextElement* CLSNDeclReg::create()
{
    return clsnDeclAlloc.alloc();
}

bool CLSNReg::matchToken(unsigned int index, const QTextToken& token) const
{
    switch (index) {
    case 0:
        return token.id == tokIdentifier && token.text.startsWith(QLatin1String("clsn"), Qt::CaseInsensitive);
    case 1:
        return token.id == tokLeftBracket;
    case 3:
        return token.id == tokRightBracket;
    case 4:
        return token.id == tokAssign;
    case 6:
    case 8:
    case 10:
        return token.id == tokComma;
    case 2:
    case 5:
    case 7:
    case 9:
    case 11:
        return token.id == tokInteger;
    default:
        return token.id == tokEndOfLine;
    }
}

QTextElement* CLSNReg::create()
{
    return clsnAlloc.alloc();
}
