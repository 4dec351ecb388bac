#include "qintnparam.h"

#include <QPoint>
#include <algorithm>
#include <iterator>

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
    m_count = 0;
    std::fill(std::begin(m_values), std::end(m_values), int());
    const int end = valueTokenCount(tokens);
    for (int i = 2; i < end && m_count < maxCount; i += 2)
        m_values[m_count++] = tokens.at(i).text.toInt();
}

void QIntNParam::setValue(unsigned char index, int value)
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
