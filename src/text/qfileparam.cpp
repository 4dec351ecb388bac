#include "qfileparam.h"

#include <algorithm>

void QFileParam::takeValue(const QList<QTextToken>& tokens, const QString& line)
{
    const int count = valueTokenCount(tokens);
    if (count < 3) {
        m_fileName.clear();
        return;
    }
    const QTextToken& last = tokens.at(count - 1);
    const int start = std::max(0, tokens.at(2).column);
    const int end = last.column + int(last.text.size());
    m_fileName = end > start ? line.mid(start, end - start) : QString();
}
