#include "qgroupparam.h"

#include "qparamgroup.h"

void QGroupParam::setup(const QString& key, QGroupParamID id)
{
    m_key = key;
    m_id = id;
}

void QGroupParam::update(const QList<QTextToken>& tokens)
{
    takeValue(tokens, block().text());
}

void QGroupParam::clean()
{
    if (m_group)
        m_group->forget(this);
    m_writtenLine.clear();
    QTextElement::clean();
}

void QGroupParam::changeValue(const QString& value)
{
    writeLine(m_key + QLatin1String(" = ") + value);
}

void QGroupParam::writeLine(const QString& line)
{
    if (editor())
        changeText(line, false);
    else
        m_writtenLine = line;
}

int QGroupParam::valueTokenCount(const QList<QTextToken>& tokens)
{
    int count = int(tokens.size());
    while (count > 0 && tokens.at(count - 1).id <= tokEndOfLine)
        --count;
    return count;
}
