#include "qtokenizer.h"

#include <QStringView>
#include <algorithm>

namespace {

/// Characters that are a token of their own, with their codes.
QToken singleCharToken(QChar c)
{
    switch (c.unicode()) {
    case '/':
        return tokSlash;
    case '(':
        return tokLeftParen;
    case '$':
        return tokDollar;
    case '%':
        return tokPercent;
    case '+':
        return tokPlus;
    case ',':
        return tokComma;
    case ')':
        return tokRightParen;
    case ']':
        return tokRightBracket;
    case '=':
        return tokAssign;
    case '[':
        return tokLeftBracket;
    case ':':
        return tokColon;
    case '}':
        return tokRightBrace;
    case '~':
        return tokTilde;
    case '{':
        return tokLeftBrace;
    default:
        return tokEnd;
    }
}

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r';
}

} // namespace

QTokenizer::QTokenizer(const QString& text)
    : m_pos(reinterpret_cast<const QChar*>(text.utf16()))
{
}

QChar QTokenizer::getNextChar()
{
    if (m_pos->isNull()) {
        m_atEnd = true;
        return QChar();
    }
    ++m_column;
    return *m_pos++;
}

void QTokenizer::ungetNextChar()
{
    if (!m_atEnd) {
        --m_pos;
        --m_column;
    }
}

void QTokenizer::store(QChar c)
{
    if (m_tokenLength < bufferSize)
        m_token[m_tokenLength++] = c;
}

void QTokenizer::clearComment()
{
    m_keptComment.clear();
    m_scratchLength = 0;
}

int QTokenizer::getTokenInt() const
{
    return QStringView(m_token, m_tokenLength).toInt();
}

float QTokenizer::getTokenFloat() const
{
    return QStringView(m_token, m_tokenLength).toFloat();
}

QToken QTokenizer::getToken()
{
    enum State {
        Start,
        Identifier,
        Minus,
        Integer,
        Fraction,
        String,
        Dot,
        Compare,
        Double,
        Comment,
        Newline
    };
    State state = Start;
    int code = tokOther;
    QChar doubled;
    // The comment being read: its write position (reset at each line end, so
    // a later comment line overwrites an earlier one) and its longest run.
    int scratchPos = 0;
    QChar previous;
    int run = 0;
    int longestRun = 0;

    m_scratchLength = 0;
    m_tokenLength = 0;
    for (;;) {
        const QChar c = getNextChar();
        switch (state) {
        case Start:
            if (m_atEnd)
                return tokEnd;
            if (c.isDigit()) {
                store(c);
                state = Integer;
            } else if (c.isLetter()) {
                store(c);
                state = Identifier;
            } else if (c == u'-') {
                store(c);
                state = Minus;
            } else if (isBlank(c)) {
                // skipped
            } else if (c == u';') {
                m_keptComment.clear();
                state = Comment;
            } else if (c == u'"') {
                state = String;
            } else if (c == u'.') {
                state = Dot;
            } else if (c == u'<' || c == u'>' || c == u'!') {
                store(c);
                code = c == u'<' ? tokLess : c == u'>' ? tokGreater : tokNot;
                state = Compare;
            } else if (c == u'|' || c == u'&' || c == u'^' || c == u'*') {
                store(c);
                code = c == u'|' ? tokPipe : c == u'&' ? tokAmp : c == u'^' ? tokCaret : tokStar;
                doubled = c;
                state = Double;
            } else if (c == u'\n') {
                ++m_line;
                m_column = 0;
                state = Newline;
            } else {
                store(c);
                const QToken single = singleCharToken(c);
                return single != tokEnd ? single : tokOther;
            }
            break;
        case Identifier:
            if (c.isLetter() || c.isDigit() || c == u'.' || c == u'_') {
                store(c);
                break;
            }
            ungetNextChar();
            return tokIdentifier;
        case Minus:
            if (c == u'.') {
                store(u'0');
                store(c);
                state = Fraction;
            } else if (c.isDigit()) {
                store(c);
                state = Integer;
            } else {
                ungetNextChar();
                return tokMinus;
            }
            break;
        case Integer:
            if (c == u'.') {
                store(c);
                state = Fraction;
            } else if (c.isDigit()) {
                store(c);
            } else {
                ungetNextChar();
                return tokInteger;
            }
            break;
        case Fraction:
            if (c.isDigit()) {
                store(c);
                break;
            }
            ungetNextChar();
            return tokFloat;
        case String:
            if (c == u'"')
                return tokString;
            if (m_atEnd)
                return tokEnd;
            store(c);
            break;
        case Dot:
            if (c.isDigit()) {
                // The digit is stored here and read again by Fraction: ".5" is 0.55.
                store(u'0');
                store(u'.');
                ungetNextChar();
                store(c);
                state = Fraction;
            } else {
                ungetNextChar();
                store(u'.');
                return tokOther;
            }
            break;
        case Compare:
            if (c == u'=') {
                store(c);
                return QToken(code + 1);
            }
            ungetNextChar();
            return QToken(code);
        case Double:
            if (c == doubled) {
                store(c);
                return QToken(code + 1);
            }
            ungetNextChar();
            return QToken(code);
        case Comment:
            if (m_atEnd)
                return tokEnd;
            if (c == u'\n') {
                ++m_line;
                if (m_scratchLength > 0 && m_keptComment.isEmpty() && longestRun <= 4)
                    m_keptComment = getComment();
                run = longestRun = 0;
                previous = QChar();
                scratchPos = 0;
                m_column = 0;
                state = Newline;
                break;
            }
            if (scratchPos < bufferSize) {
                m_scratch[scratchPos++] = c;
                m_scratchLength = scratchPos;
            }
            run = c == previous ? run + 1 : 0;
            longestRun = std::max(longestRun, run);
            previous = c;
            break;
        case Newline:
            if (c == u'\n') {
                ++m_line;
                m_keptComment.clear();
                m_column = 0;
            } else if (c == u';') {
                state = Comment;
            } else if (!isBlank(c)) {
                ungetNextChar();
                return tokEndOfLine;
            }
            break;
        }
    }
}

QToken QTokenizer::nextLine()
{
    clearComment();
    for (QChar c = getNextChar(); !m_atEnd; c = getNextChar()) {
        if (c == u'\n') {
            ++m_line;
            m_column = 0;
            break;
        }
    }
    return tokEndOfLine;
}

QToken QTokenizer::skipLine(QChar stop)
{
    clearComment();
    for (QChar c = getNextChar(); !m_atEnd; c = getNextChar()) {
        if (c == stop) {
            ungetNextChar();
            break;
        }
        if (c == u'\n') {
            ++m_line;
            m_column = 0;
        }
    }
    return getToken();
}

QToken QTokenizer::skipLine(QString& text, QChar stop)
{
    clearComment();
    text.clear();
    text.reserve(1024);
    for (QChar c = getNextChar(); !m_atEnd; c = getNextChar()) {
        if (c == stop) {
            ungetNextChar();
            break;
        }
        if (c == u';')
            return skipLine(stop);
        if (c == u'\n') {
            ++m_line;
            m_column = 0;
        }
        text.append(c);
    }
    return getToken();
}
