#pragma once

#include "qtextelementreg.h"

class QNamedParamGroup;

/**
 * Recognises `[Keyword ...]` (the keyword ignoring case), closed by a `]`
 * on the same line. A model derives from it to give the group's type() and
 * to make its group in create(), passing it through setup(). The keyword is
 * not copied: pass a string literal.
 */
class NamedParamGrpReg : public QTextElementReg
{
public:
    explicit NamedParamGrpReg(const char* keyword);

    unsigned int beginsWith() const override { return 0x5B03; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;

    const char* keyword() const { return m_keyword; }

protected:
    /// Gives a fresh group the entry's keyword; returns it.
    QNamedParamGroup* setup(QNamedParamGroup* group) const;

private:
    const char* m_keyword;
    /// Whether the `]` has passed on the line being matched.
    mutable bool m_closed = false;
};
