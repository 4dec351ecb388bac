#include "qtexttoken.h"

#include "qtokenizer.h"

QList<QTextToken> QTextToken::readLine(QTokenizer& tokenizer)
{
    QList<QTextToken> tokens;
    for (QToken id = tokenizer.getToken(); id != tokEnd && id != tokEndOfLine; id = tokenizer.getToken()) {
        const QString text = tokenizer.getTokenString();
        tokens.append(QTextToken { id, tokenizer.column() - int(text.size()), text });
    }
    return tokens;
}
