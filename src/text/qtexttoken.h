#pragma once

#include "qtoken.h"

#include <QList>
#include <QString>

class QTokenizer;

/**
 * One token of a line as the text elements see it: its code, the column it
 * starts at (the tokenizer's column minus the length of the token text, so a
 * string's column is one more than where its text starts, the quotes not
 * being counted in the text), and its text.
 */
struct QTextToken
{
    QToken id = tokEnd;
    int column = 0;
    QString text;

    /// Reads tokens from `tokenizer` up to the end of the current line or text;
    /// the end-of-line or end token itself is not in the list.
    static QList<QTextToken> readLine(QTokenizer& tokenizer);
};
