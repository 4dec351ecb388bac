#include "qintnparam.h"

#include <QPoint>

QVariant QIntNParam::getValue() const
{
    if (m_count == 1)
        return m_values[0];
    if (m_count == 2)
        return QPoint(m_values[0], m_values[1]);
    QList<QVariant> list;
    for (int i = 0; i < m_count; ++i)
        list.append(m_values[i]);
    return list;
}

void QIntNParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    readValues(tokens, maxCount, [](const QString& text) { return text.toInt(); });
}
