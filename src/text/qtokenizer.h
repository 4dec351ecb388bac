#pragma once

#include "qtoken.h"

#include <QChar>
#include <QString>

/**
 * The lexer of every text format of the engine (DEF, AIR, CMD, CNS/ST).
 *
 * It reads in place from the NUL-terminated UTF-16 buffer of the QString it is
 * given, which must outlive it and stay unchanged, and allocates nothing per
 * token: token text and the comment live in fixed buffers of 512 characters
 * (longer text is cut, silently) and become a QString only when asked for.
 *
 * Its quirks are settled behaviour that files in the wild and the element tree
 * depend on, so they stay: ".5" reads as 0.55 (the first digit after a leading
 * dot is doubled); an unterminated string is the end of the text (code 0);
 * only the first of several comment lines in a row is kept, a blank line
 * forgets it, and a comment with a run of more than four repeats of one
 * character (a ruler) is never kept. There are no errors: bad numbers convert
 * to 0, unknown characters are tokOther.
 */
class QTokenizer
{
public:
    static constexpr int bufferSize = 512;

    explicit QTokenizer(const QString& text);
    /// The tokenizer reads the string's own buffer: a temporary would vanish under it.
    explicit QTokenizer(QString&&) = delete;

    /// Reads the next token and returns its code.
    QToken getToken();
    /// The text of the last token (without quotes for a string).
    QString getTokenString() const { return QString(m_token, m_tokenLength); }
    /// The last token's text as a decimal int, 0 when it is none.
    int getTokenInt() const;
    /// The last token's text as a float (single precision, as the engine reads it), 0 when none.
    float getTokenFloat() const;

    /// Reads one character; at the terminator it sets the end flag and returns NUL.
    QChar getNextChar();
    /// Steps back one character, unless the end of the text was reached.
    void ungetNextChar();

    /// Skips through the next line feed and returns tokEndOfLine.
    QToken nextLine();
    /// Skips up to `stop` (or the end), leaves `stop` to be read, returns getToken().
    QToken skipLine(QChar stop);
    /// As skipLine(QChar), collecting the skipped text; also stops at a comment,
    /// whose text is skipped but not collected.
    QToken skipLine(QString& text, QChar stop);

    /// Whether the last getToken() met a comment (on any line it passed).
    bool hasComment() const { return m_scratchLength > 0; }
    /// The comment the last getToken() met, without its ';'.
    QString getComment() const { return QString(m_scratch, m_scratchLength); }
    /// The comment kept over line ends: the first of a run of comment lines
    /// that was ended by a line feed and is no ruler.
    const QString& keptComment() const { return m_keptComment; }

    /// Characters read on the current line.
    int column() const { return m_column; }
    /// The current line, starting at 1.
    int line() const { return m_line; }
    bool atEnd() const { return m_atEnd; }

private:
    void store(QChar c);
    void clearComment();
    QToken readComment();
    QToken readNewline();

    const QChar* m_pos;
    int m_column = 0;
    int m_line = 1;
    bool m_atEnd = false;
    int m_tokenLength = 0;
    int m_scratchLength = 0;
    QString m_keptComment;
    QChar m_token[bufferSize + 1];
    QChar m_scratch[bufferSize + 1];
};
