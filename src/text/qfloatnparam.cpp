#include "qfloatnparam.h"

#include <QPointF>
#include <QVector3D>

QVariant QFloatNParam::getValue() const
{
    if (m_count == 1)
        return m_values[0];
    if (m_count == 2)
        return QPointF(m_values[0], m_values[1]);
    if (m_count == 3)
        return QVector3D(float(m_values[0]), float(m_values[1]), float(m_values[2]));
    QList<QVariant> list;
    for (int i = 0; i < m_count; ++i)
        list.append(m_values[i]);
    return list;
}

void QFloatNParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    readValues(tokens, 4, [](const QString& text) { return text.toFloat(); });
}
