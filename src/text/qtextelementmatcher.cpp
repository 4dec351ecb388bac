#include "qtextelementmatcher.h"

#include "qtextelementreg.h"
#include "qtokenizer.h"

#include <QTextBlock>

namespace {

/// Whether the next line that isn't empty opens a group.
bool groupFollows(const QTextBlock& block)
{
    for (QTextBlock next = block.next(); next.isValid(); next = next.next()) {
        if (next.length() <= 1)
            continue;
        return next.text().startsWith(QLatin1Char('['));
    }
    return false;
}

} // namespace

void QTextElementMatcher::refresh(const EnableCounts& counts)
{
    m_enabled.clear();
    for (QTextElementReg* reg : std::as_const(regElems))
        if (counts.value(enableKey(reg->type(), reg->subType())) > 0)
            m_enabled.append(reg);
    m_generation = QTextElementReg::generation();
    m_valid = true;
}

QTextElementReg* QTextElementMatcher::regMatch(const QTextBlock& block, QTokenizer& tokenizer, QToken first,
    QList<QTextToken>& tokens, const EnableCounts& counts)
{
    if (!m_valid || m_generation != QTextElementReg::generation())
        refresh(counts);

    QString text = first == tokEnd ? QString() : tokenizer.getTokenString();
    const QChar c = text.isEmpty() ? QChar() : text.at(0);
    m_candidates.clear();
    if (!c.isNull() || tokenizer.hasComment())
        for (QTextElementReg* reg : std::as_const(m_enabled))
            if (validFirstChar(reg->beginsWith(), c))
                m_candidates.append(reg);

    const auto offer = [this](unsigned int index, const QTextToken& token) {
        for (qsizetype i = m_candidates.size() - 1; i >= 0; --i)
            if (!m_candidates.at(i)->matchToken(index, token))
                m_candidates.remove(i);
    };

    unsigned int index = 0;
    QToken id = first;
    while (id != tokEnd && !m_candidates.isEmpty()) {
        tokens.append(QTextToken { id, tokenizer.column() - int(text.size()), text });
        offer(index++, tokens.last());
        id = tokenizer.getToken();
        text = id == tokEnd ? QString() : tokenizer.getTokenString();
    }
    if (id == tokEnd && tokenizer.hasComment() && !m_candidates.isEmpty() && groupFollows(block)) {
        const QString comment = tokenizer.getComment();
        tokens.append(QTextToken { tokEndOfLine, tokenizer.column() - int(comment.size()), comment });
        offer(index++, tokens.last());
    }
    if (!m_candidates.isEmpty())
        offer(index, QTextToken { tokEndOfLine, tokenizer.column(), QString() });
    if (tokens.isEmpty())
        return nullptr;
    return m_candidates.isEmpty() ? nullptr : m_candidates.first();
}
