#include "qstringparam.h"

void QStringParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    m_string = tokens.size() > 2 ? tokens.at(2).text : QString();
}

void QStringParam::setString(const QString& text)
{
    m_string = text;
    changeValue(QStringLiteral("\"%1\"").arg(text));
}
