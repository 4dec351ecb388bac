#pragma once

#include "qtextelementreg.h"

/// Recognises any `[...]` line; registered last, it takes what no other header claims.
class UnknownGrpReg : public QTextElementReg
{
public:
    QTextElementType type() const override;
    unsigned int beginsWith() const override { return 0x5B03; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;
};
