#include "qtextelementreg.h"

QList<QTextElementReg*> regElems;

namespace {

unsigned int registryGeneration = 0;

bool isOneOf(unsigned int rule, QChar c, int count, bool withLower)
{
    const unsigned int code = c.unicode();
    for (int i = 1; i <= count; ++i) {
        const unsigned int wanted = (rule >> (8 * i)) & 0xFF;
        if (code == wanted || (withLower && code == wanted + 32))
            return true;
    }
    return false;
}

} // namespace

void QTextElementReg::registerElement(QTextElementReg* reg)
{
    regElems.append(reg);
    ++registryGeneration;
}

void QTextElementReg::release()
{
    qDeleteAll(regElems);
    regElems.clear();
    ++registryGeneration;
}

unsigned int QTextElementReg::generation()
{
    return registryGeneration;
}

bool validFirstChar(unsigned int rule, QChar c)
{
    switch (rule & 0xFF) {
    case 1:
        return true;
    case 2:
        return c.isDigit() || c == QLatin1Char('-');
    case 3:
    case 4:
    case 5:
        return isOneOf(rule, c, int(rule & 0xFF) - 2, false);
    case 6:
    case 7:
    case 8:
        return isOneOf(rule, c, int(rule & 0xFF) - 5, true);
    default:
        return false;
    }
}
