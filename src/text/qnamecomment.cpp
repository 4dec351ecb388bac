#include "qnamecomment.h"

#include "qgroupheader.h"

void QNameComment::update(const QList<QTextToken>& tokens)
{
    m_text = tokens.isEmpty() ? QString() : tokens.first().text.trimmed();
}

void QNameComment::clean()
{
    if (m_header)
        m_header->setNameComment(nullptr);
    m_text.clear();
    QTextElement::clean();
}
