#pragma once

#include "qparamgroup.h"

/**
 * A parameter group whose header is `[Keyword name words]`, as
 * `[Statedef 200]` or `[State 200, Hit]`: the keyword is fixed by the
 * registry entry, the name is the text between it and the `]`. Subclasses
 * give the groupType().
 */
class QNamedParamGroup : public QParamGroup
{
public:
    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    const char* keyword() const { return m_keyword; }
    /// Set by the registry entry that makes the group.
    void setKeyword(const char* keyword) { m_keyword = keyword; }
    const QString& name() const { return m_name; }
    /// Stores the name and rewrites the header line, unless it is unchanged.
    void setName(const QString& name);

private:
    const char* m_keyword = "";
    QString m_name;
};
