#include "qnamedparamgroup.h"

void QNamedParamGroup::update(const QList<QTextToken>& tokens)
{
    m_name.clear();
    int close = 2;
    while (
        close < tokens.size() && tokens.at(close).id != tokRightBracket && tokens.at(close).id > tokEndOfLine)
        ++close;
    if (close == 2 || close >= tokens.size())
        return;
    const int start = tokens.at(2).column;
    m_name = block().text().mid(start, tokens.at(close).column - start).trimmed();
}

void QNamedParamGroup::clean()
{
    m_name.clear();
    QParamGroup::clean();
}

void QNamedParamGroup::setName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    changeText(QStringLiteral("[%1 %2]").arg(QLatin1String(m_keyword), name), false);
}
