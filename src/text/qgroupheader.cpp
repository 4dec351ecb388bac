#include "qgroupheader.h"

#include "qelementtexteditor.h"
#include "qnamecomment.h"

#include <QTextDocument>

int QGroupHeader::firstLine() const
{
    int first = line();
    if (first < 0)
        return first;
    for (QTextBlock block = this->block().previous(); block.isValid(); block = block.previous()) {
        const QString text = block.text();
        if (text.isEmpty())
            break;
        int i = 0;
        while (i < text.size() && text.at(i).isSpace())
            ++i;
        if (i < text.size() && text.at(i) != QLatin1Char(';'))
            break;
        first = block.blockNumber();
    }
    return first;
}

int QGroupHeader::lastLine() const
{
    if (const QTextElement* header = next(headerBit))
        return header->firstLine() - 1;
    return editor() ? editor()->document()->blockCount() : line();
}

void QGroupHeader::clean()
{
    setNameComment(nullptr);
    QTextElement::clean();
}

void QGroupHeader::setNameComment(QNameComment* comment)
{
    if (m_comment == comment)
        return;
    if (m_comment)
        m_comment->m_header = nullptr;
    if (comment) {
        if (comment->m_header)
            comment->m_header->m_comment = nullptr;
        comment->m_header = this;
    }
    m_comment = comment;
}

QString QGroupHeader::nameText() const
{
    return m_comment ? m_comment->text() : QString();
}

void QGroupHeader::setNameText(const QString& text)
{
    if (m_comment) {
        if (text.isEmpty()) {
            m_comment->remove(true);
            return;
        }
        m_comment->changeText(QLatin1String("; ") + text, false);
    } else {
        if (text.isEmpty() || !editor())
            return;
        editor()->insertBefore(this, QLatin1String("; ") + text, true);
    }
    if (m_comment)
        m_comment->setText(text);
}
