#include "qvalueparam.h"

void QValueParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    m_value = tokens.size() > 2 ? tokens.at(2).text : QString();
}

void QValueParam::setValue(const QString& text)
{
    m_value = text;
    changeValue(text);
}
