#pragma once

#include "text/qtextelementreg.h"

/// Recognises a `[Command]` header (ignoring case; anything may follow the `]`)
/// and makes a QCommand.
class CmdReg : public QTextElementReg
{
public:
    QTextElementType type() const override;
    unsigned int beginsWith() const override { return 0x5B03; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;
};
