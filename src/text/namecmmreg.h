#pragma once

#include "qtextelementreg.h"

/**
 * Recognises a naming comment: a line of only a `;` comment whose next
 * non-blank line starts with `[`. Such a line reaches matchToken() as one
 * end-of-line token carrying the comment.
 */
class NameCmmReg : public QTextElementReg
{
public:
    QTextElementType type() const override;
    unsigned int beginsWith() const override { return 1; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;
};
