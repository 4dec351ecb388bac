#include "qfloatnparam.h"

#include <QPointF>
#include <QVector3D>
#include <algorithm>
#include <iterator>

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
    m_count = 0;
    std::fill(std::begin(m_values), std::end(m_values), double());
    const int end = valueTokenCount(tokens);
    for (int i = 2; i < end && i < 10; i += 2)
        m_values[m_count++] = tokens.at(i).text.toFloat();
}

void QFloatNParam::setValue(unsigned char index, double value)
{
    if (index >= maxCount)
        return;
    m_values[index] = value;
    m_count = std::max(m_count, index);
    QString text;
    for (int i = 0; i < m_count; ++i)
        text += i == 0 ? QString::number(m_values[i]) : QStringLiteral(", %1").arg(m_values[i]);
    changeValue(text);
}
