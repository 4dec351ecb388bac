#include "qgroupparam.h"

void QGroupParam::setup(const QString& key, QGroupParamID id)
{
    m_key = key;
    m_id = id;
}

void QGroupParam::changeValue(const QString& value)
{
    writeLine(m_key + QLatin1String(" = ") + value);
}

void QGroupParam::writeLine(const QString& line)
{
    m_writtenLine = line;
}

int QGroupParam::valueTokenCount(const QList<QTextToken>& tokens)
{
    int count = int(tokens.size());
    while (count > 0 && tokens.at(count - 1).id <= tokEndOfLine)
        --count;
    return count;
}
