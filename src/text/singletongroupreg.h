#pragma once

#include "qtextelementreg.h"

/**
 * Recognises `[First]`, or `[First Second]` when a second word is given
 * (both ignoring case), and makes a QSingletonParamGroup of its sub-type.
 * The words are not copied: pass string literals.
 */
class SingletonGroupReg : public QTextElementReg
{
public:
    SingletonGroupReg(const char* first, const char* second, QTextElementSubType subType);

    QTextElementType type() const override;
    QTextElementSubType subType() const override { return m_subType; }
    unsigned int beginsWith() const override { return 0x5B03; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;

private:
    const char* m_first;
    const char* m_second;
    QTextElementSubType m_subType;
};
