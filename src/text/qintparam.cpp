#include "qintparam.h"

void QIntParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    m_value = tokens.size() > 2 ? tokens.at(2).text.toInt() : 0;
}

void QIntParam::setValue(int value)
{
    m_value = value;
    changeValue(QString::number(value));
}
