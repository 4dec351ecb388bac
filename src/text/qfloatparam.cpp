#include "qfloatparam.h"

void QFloatParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    m_value = tokens.size() > 2 ? tokens.at(2).text.toFloat() : 0;
}

void QFloatParam::setValue(double value)
{
    m_value = value;
    changeValue(QString::number(value, 'g', 6));
}
