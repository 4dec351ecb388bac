#pragma once

#include "qgroupparam.h"

#include <QString>

#include <algorithm>
#include <iterator>

/**
 * Base of the parameters that hold a list of up to ten numbers of type T
 * (`offset = 0.5, -1`); the subclass says how a line is read and what
 * getValue() gives.
 *
 * setValue(index, v) stores v and makes the count the larger of the old count
 * and `index`, not index + 1: a value stored at the index equal to the count
 * is kept but not written. Files and scripts rely on this; keep it.
 */
template <class T>
class QNumberListParam : public QGroupParam
{
public:
    static constexpr int maxCount = 10;

    int count() const { return m_count; }
    T value(int index) const { return index >= 0 && index < maxCount ? m_values[index] : 0; }

    /// Stores `value` at `index` (ignored beyond the ten held) and rewrites the line.
    void setValue(unsigned char index, T value)
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

protected:
    /// Reads at most `limit` values of the line with `parse`, which turns the
    /// text of one value token into a number; the rest are zero.
    template <class Parse>
    void readValues(const QList<QTextToken>& tokens, int limit, Parse parse)
    {
        m_count = 0;
        std::fill(std::begin(m_values), std::end(m_values), T());
        const int end = valueTokenCount(tokens);
        for (int i = 2; i < end && m_count < limit; i += 2)
            m_values[m_count++] = parse(tokens.at(i).text);
    }

    unsigned char m_count = 0;
    T m_values[maxCount] = {};
};
