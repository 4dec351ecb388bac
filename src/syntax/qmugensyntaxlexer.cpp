// The lexer of QMugenSyntaxProcessor: one token of the current line at a time.
#include "qmugensyntaxprocessor.h"
#include "qmugentokens.h"


namespace {

constexpr int maxTokenText = 512;

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QChar(0xFEFF);
}

bool isIdentChar(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('.');
}

} // namespace

int QMugenSyntaxProcessor::nextToken()
{
    const QString& text = *m_text;
    const int size = text.size();
    while (m_pos < size && isBlank(text.at(m_pos)))
        ++m_pos;
    const int start = m_pos;
    int code = tkUnknown;
    QString prefix;

    const QChar c = m_pos < size ? text.at(m_pos) : QChar();
    const auto next = [&](int offset) { return m_pos + offset < size ? text.at(m_pos + offset) : QChar(); };
    const auto readNumber = [&] {
        while (m_pos < size && text.at(m_pos).isDigit())
            ++m_pos;
        if (m_pos < size && text.at(m_pos) == QLatin1Char('.')) {
            ++m_pos;
            while (m_pos < size && text.at(m_pos).isDigit())
                ++m_pos;
        }
    };

    if (m_pos >= size || c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
        code = tkEnd;
        m_eot = true;
    } else if (c.isDigit()) {
        code = tkNumber;
        readNumber();
    } else if (c.isLetter() || c == QLatin1Char('_')) {
        code = tkIdent;
        while (m_pos < size && isIdentChar(text.at(m_pos)))
            ++m_pos;
    } else if (c == QLatin1Char(';')) {
        colour(m_pos, size - m_pos, m_commentFormat);
        m_pos = size;
        code = tkEnd;
        m_eot = true;
    } else if (c == QLatin1Char('-') && !m_expression && (next(1).isDigit() || next(1) == QLatin1Char('.'))) {
        code = tkNumber;
        ++m_pos;
        if (text.at(m_pos) == QLatin1Char('.'))
            prefix = QStringLiteral("-0");
        readNumber();
    } else if (c == QLatin1Char('.') && next(1).isDigit()) {
        code = tkNumber;
        prefix = QStringLiteral("0");
        readNumber();
    } else if (c == QLatin1Char('"')) {
        code = tkString;
        ++m_pos;
        while (m_pos < size && text.at(m_pos) != QLatin1Char('"'))
            ++m_pos;
        if (m_pos < size)
            ++m_pos;
    } else {
        ++m_pos;
        const bool withEqual = next(0) == QLatin1Char('=');
        const bool doubled = next(0) == c;
        switch (c.unicode()) {
        case '<': code = withEqual ? tkLessEqual : tkLess; break;
        case '>': code = withEqual ? tkGreaterEqual : tkGreater; break;
        case '!': code = withEqual ? tkNotEqual : tkNot; break;
        case '|': code = doubled ? tkOr : tkBitOr; break;
        case '&': code = doubled ? tkAnd : tkBitAnd; break;
        case '^': code = doubled ? tkXor : tkBitXor; break;
        case '*': code = doubled ? tkPower : tkTimes; break;
        case '(': code = tkLParen; break;
        case ')': code = tkRParen; break;
        case '[': code = tkLBracket; break;
        case ']': code = tkRBracket; break;
        case '-': code = tkMinus; break;
        case '/': code = tkDivide; break;
        case '%': code = tkModulo; break;
        case '$': code = tkDollar; break;
        case '+': code = tkPlus; break;
        case ',': code = tkComma; break;
        case '=': code = tkEqual; break;
        case ':': code = tkColon; break;
        case '{': code = tkLBrace; break;
        case '}': code = tkRBrace; break;
        case '~': code = tkTilde; break;
        default: code = tkUnknown; break;
        }
        const bool twoChars = ((c == QLatin1Char('<') || c == QLatin1Char('>') || c == QLatin1Char('!')) && withEqual)
                              || (doubled && QStringLiteral("|&^*").contains(c));
        if (twoChars)
            ++m_pos;
        if (code >= tkLParen && code <= tkRBracket)
            m_parentheses.append(QParenthesis{c, start});
    }

    const int length = m_pos - start;
    m_tokenText = prefix + text.mid(start, qMin(length, maxTokenText - int(prefix.size())));
    m_token = quint32(code) | (quint32(qMin(start, 0xFFFF)) << 6) | (quint32(qMin(length, 0x3FF)) << 22);
    return code;
}

bool QMugenSyntaxProcessor::match(int code, const QTextCharFormat* format)
{
    if (tokenCode() == code) {
        if (format)
            colourToken(*format);
        nextToken();
        return true;
    }
    report(QSynMessageKind::UnexpectedToken, {m_tokenText});
    if (!m_eot)
        nextToken();
    return false;
}

bool QMugenSyntaxProcessor::parseNum(int code, const QTextCharFormat* format)
{
    if (tokenCode() == tkMinus)
        nextToken();
    return match(code, format ? format : &m_numberFormat);
}

QMugenSyntaxProcessor::LexerState QMugenSyntaxProcessor::saveLexer() const
{
    return LexerState{m_pos, m_token, m_tokenText, m_eot, int(m_parentheses.size())};
}

void QMugenSyntaxProcessor::restoreLexer(const LexerState& state)
{
    m_pos = state.pos;
    m_token = state.token;
    m_tokenText = state.text;
    m_eot = state.eot;
    m_parentheses.resize(state.parentheses);
}

void QMugenSyntaxProcessor::colour(int column, int length, const QTextCharFormat& format)
{
    if (m_inBlock)
        setFormat(column, length, format);
}

void QMugenSyntaxProcessor::colourToken(const QTextCharFormat& format)
{
    colour(tokenStart(), tokenLength(), format);
}

QString QMugenSyntaxProcessor::takeRest(int& column, int& length)
{
    const QString& text = *m_text;
    int end = tokenStart();
    bool quoted = false;
    while (end < text.size() && (quoted || text.at(end) != QLatin1Char(';'))
           && text.at(end) != QLatin1Char('\n') && text.at(end) != QLatin1Char('\r')) {
        if (text.at(end) == QLatin1Char('"'))
            quoted = !quoted;
        ++end;
    }
    const QString raw = text.mid(tokenStart(), end - tokenStart());
    const QString value = raw.trimmed();
    column = tokenStart() + int(raw.indexOf(value.isEmpty() ? QString() : value.left(1)));
    length = int(value.size());
    m_pos = end;
    nextToken();
    return value;
}

void QMugenSyntaxProcessor::skipLine()
{
    m_pos = int(m_text->size());
    nextToken();
}
