// The expression language of QMugenSyntaxProcessor: operator levels,
// redirections, triggers and their arguments, and version checks.
#include "qmugensyntaxprocessor.h"
#include "qmugentokens.h"


namespace {

bool isComparison(int code)
{
    return code == tkEqual || code == tkNotEqual || code == tkLess || code == tkLessEqual
           || code == tkGreater || code == tkGreaterEqual;
}

} // namespace

void QMugenSyntaxProcessor::parseExpression()
{
    const bool outer = m_expression;
    m_expression = true;
    parseLogicExp();
    m_expression = outer;
}

void QMugenSyntaxProcessor::parseLogicExp()
{
    parseBitExp();
    while (tokenCode() == tkAnd || tokenCode() == tkOr || tokenCode() == tkXor) {
        match(tokenCode(), &m_operatorFormat);
        parseBitExp();
    }
}

void QMugenSyntaxProcessor::parseBitExp()
{
    parseAssignExp();
    while (tokenCode() == tkBitAnd || tokenCode() == tkBitOr || tokenCode() == tkBitXor) {
        match(tokenCode(), &m_operatorFormat);
        parseAssignExp();
    }
}

void QMugenSyntaxProcessor::parseAssignExp()
{
    parseEqualExp();
    if (tokenCode() == tkColon) {
        match(tkColon, &m_operatorFormat);
        if (match(tkEqual, &m_operatorFormat))
            parseAssignExp();
    }
}

void QMugenSyntaxProcessor::parseEqualExp()
{
    parseLessMoreExp();
    while (tokenCode() == tkEqual || tokenCode() == tkNotEqual) {
        match(tokenCode(), &m_operatorFormat);
        if (tokenCode() != tkLBracket) {
            parseLessMoreExp();
            continue;
        }
        // A range: [a, b], [a, b); the forms opened by "(" are values.
        match(tkLBracket, &m_operatorFormat);
        parseLessMoreExp();
        if (!match(tkComma, &m_operatorFormat))
            return;
        parseLessMoreExp();
        if (tokenCode() == tkRParen)
            match(tkRParen, &m_operatorFormat);
        else
            match(tkRBracket, &m_operatorFormat);
    }
}

void QMugenSyntaxProcessor::parseLessMoreExp()
{
    parsePlusMinusExp();
    while (tokenCode() == tkLess || tokenCode() == tkLessEqual || tokenCode() == tkGreater
           || tokenCode() == tkGreaterEqual) {
        match(tokenCode(), &m_operatorFormat);
        parsePlusMinusExp();
    }
}

void QMugenSyntaxProcessor::parsePlusMinusExp()
{
    parseTimesOverModExp();
    while (tokenCode() == tkPlus || tokenCode() == tkMinus) {
        match(tokenCode(), &m_operatorFormat);
        parseTimesOverModExp();
    }
}

void QMugenSyntaxProcessor::parseTimesOverModExp()
{
    parseExponentExp();
    while (tokenCode() == tkTimes || tokenCode() == tkDivide || tokenCode() == tkModulo) {
        match(tokenCode(), &m_operatorFormat);
        parseExponentExp();
    }
}

void QMugenSyntaxProcessor::parseExponentExp()
{
    parseValueExp();
    while (tokenCode() == tkPower) {
        match(tkPower, &m_operatorFormat);
        parseValueExp();
    }
}

void QMugenSyntaxProcessor::parseValueExp()
{
    switch (tokenCode()) {
    case tkNumber:
        match(tkNumber, &m_numberFormat);
        return;
    case tkString:
        match(tkString, &m_stringFormat);
        return;
    case tkMinus:
    case tkTilde:
        match(tokenCode(), &m_operatorFormat);
        if (tokenCode() == tkMinus)
            return;
        parseValueExp();
        return;
    case tkNot:
        match(tkNot, &m_operatorFormat);
        parseLogicExp();
        return;
    case tkLParen:
        // A parenthesis, or a range (a, b) or (a, b].
        match(tkLParen, &m_operatorFormat);
        parseLogicExp();
        if (tokenCode() == tkComma) {
            match(tkComma, &m_operatorFormat);
            parseLogicExp();
            if (tokenCode() == tkRBracket) {
                match(tkRBracket, &m_operatorFormat);
                return;
            }
        }
        match(tkRParen, &m_operatorFormat);
        return;
    case tkIdent:
        break;
    default:
        match(tkNumber);
        return;
    }

    const QString word = m_tokenText;
    const QString name = word.toLower();
    const int column = tokenStart();
    const int length = tokenLength();
    if (parseRedirection(name))
        return;
    nextToken();

    int end = 0;
    const QSynInfo* info = findKey(m_properties->section(QStringLiteral("trigger")), name, end);
    if (!info) {
        report(QSynMessageKind::UnknownTrigger, column, length, {word});
        return;
    }
    colour(column, length, m_triggerFormat);
    checkVersion(*info, ikTrigger, column, length);
    parseTriggerValue(*info, name);
}

bool QMugenSyntaxProcessor::parseRedirection(const QString& name)
{
    static const QStringList plain = {QStringLiteral("root"), QStringLiteral("parent"),
                                      QStringLiteral("partner")};
    static const QStringList withId = {QStringLiteral("enemy"), QStringLiteral("enemynear"),
                                       QStringLiteral("playerid"), QStringLiteral("helper"),
                                       QStringLiteral("target")};
    const bool isPlain = plain.contains(name);
    if (!isPlain && !withId.contains(name))
        return false;
    match(tkIdent, &m_triggerFormat);
    if (!isPlain && tokenCode() == tkLParen) {
        match(tkLParen, &m_operatorFormat);
        parseLogicExp();
        match(tkRParen, &m_operatorFormat);
    }
    if (match(tkComma, &m_operatorFormat))
        parseLogicExp();
    return true;
}

void QMugenSyntaxProcessor::parseTriggerValue(const QSynInfo& info, const QString& name)
{
    Q_UNUSED(name) // the entry says all: Const is told by having no pattern
    if (info.format == QSynInfo::fmtFunc)
        return; // matchKey has read the argument

    int arguments = 0;
    switch (info.type) {
    case stExp: arguments = 1; break;
    case stExp2: arguments = 2; break;
    case stExp3: arguments = 3; break;
    case stExp4: arguments = 4; break;
    case stExpN: arguments = -1; break;
    case stExp2Opt:
        if (tokenCode() != tkLParen)
            return;
        arguments = 1;
        break;
    case stValue:
        if (info.hasValueRegExp())
            parseComponent(info);
        return;
    case stStrExp:
        parseNameArgument(info);
        return;
    case stStrExp2:
        // "(" name ")", then a comparison with a string, as in StageVar(info.name) = "x".
        if (parseNameArgument(info) && (tokenCode() == tkEqual || tokenCode() == tkNotEqual)) {
            match(tokenCode(), &m_operatorFormat);
            match(tkString, &m_stringFormat);
        }
        return;
    case stExpStr:
        parseWordList(info);
        return;
    case stString:
        if (tokenCode() == tkEqual || tokenCode() == tkNotEqual) {
            match(tokenCode(), &m_operatorFormat);
            match(tkString, &m_stringFormat);
        }
        return;
    case stInt:
    case stInt2:
        // A comparison with a number and, behind a comma, an optional
        // comparison operator and a number: AnimElem = 3, >= 2.
        if (!isComparison(tokenCode()))
            return;
        match(tokenCode(), &m_operatorFormat);
        parseNum(tkNumber);
        if (tokenCode() == tkComma) {
            match(tkComma, &m_operatorFormat);
            if (isComparison(tokenCode()))
                match(tokenCode(), &m_operatorFormat);
            parseNum(tkNumber);
        }
        return;
    default:
        return;
    }

    if (!match(tkLParen, &m_operatorFormat))
        return;
    for (int i = 0; arguments < 0 || i < arguments; ++i) {
        if (i > 0 && !match(tkComma, &m_operatorFormat))
            return;
        parseExpression();
        if (arguments < 0 && tokenCode() != tkComma)
            break;
    }
    match(tkRParen, &m_operatorFormat);
}

// A component word behind the trigger: Vel X, Pos Y.
bool QMugenSyntaxProcessor::parseComponent(const QSynInfo& info)
{
    if (tokenCode() == tkIdent && info.valueMatches(m_tokenText))
        return match(tkIdent, &m_valueFormat);
    report(QSynMessageKind::UnknownValue);
    if (tokenCode() == tkIdent)
        nextToken(); // the word meant as the component
    return false;
}

// "(" name ")": a constant for Const (which has no pattern), otherwise a word
// of the pattern, as in GetHitVar(xvel).
bool QMugenSyntaxProcessor::parseNameArgument(const QSynInfo& info)
{
    if (!match(tkLParen, &m_operatorFormat))
        return false;
    if (tokenCode() != tkIdent) {
        match(tkIdent);
        return false;
    }
    if (!info.hasValueRegExp()) {
        if (m_properties->section(QStringLiteral("consts")).find(m_tokenText.toLower()))
            colourToken(m_valueFormat);
        else
            report(QSynMessageKind::UnknownConstant, {m_tokenText});
    } else if (info.valueMatches(m_tokenText)) {
        colourToken(m_valueFormat);
    } else {
        report(QSynMessageKind::UnknownValue);
    }
    nextToken();
    return match(tkRParen, &m_operatorFormat);
}

// "=" or "!=" and words separated by commas, which together match the
// pattern: StateType = A, HitDefAttr = SC, NA, SA. The longest list that
// matches is taken, so a comma behind it stays for an enclosing argument list.
bool QMugenSyntaxProcessor::parseWordList(const QSynInfo& info)
{
    if (tokenCode() != tkEqual && tokenCode() != tkNotEqual) {
        report(QSynMessageKind::UnknownValue);
        return false;
    }
    match(tokenCode(), &m_operatorFormat);
    const LexerState first = saveLexer();
    QVector<LexerState> ends;
    QStringList words;
    while (tokenCode() == tkIdent) {
        words.append(m_tokenText);
        nextToken();
        ends.append(saveLexer());
        if (tokenCode() != tkComma)
            break;
        nextToken();
    }
    for (int count = int(words.size()); count > 0; --count) {
        if (info.valueMatches(words.mid(0, count).join(QLatin1Char(',')))) {
            restoreLexer(ends.at(count - 1));
            colour(first.token >> 6 & 0xFFFF, tokenStart() - int(first.token >> 6 & 0xFFFF), m_valueFormat);
            return true;
        }
    }
    restoreLexer(first);
    report(QSynMessageKind::UnknownValue);
    if (tokenCode() != tkEnd)
        nextToken();
    return false;
}

bool QMugenSyntaxProcessor::matchKey(const QString& key, const QString& name, const QSynInfo& info, int& end)
{
    switch (info.format) {
    case QSynInfo::fmtName:
        return key.compare(name, Qt::CaseInsensitive) == 0;
    case QSynInfo::fmtFunc:
        if (tokenCode() != tkLParen || key.compare(name, Qt::CaseInsensitive) != 0)
            return false;
        match(tkLParen, &m_operatorFormat);
        parseExpression();
        end = tokenStart();
        match(tkRParen, &m_operatorFormat);
        return true;
    case QSynInfo::fmtRegExp:
        return info.nameRegExp.isValid() && info.nameRegExp.match(key).hasMatch();
    }
    return false;
}

// Finds the entry of `table` for `key`: by name first, then by the entries
// whose names are patterns.
const QSynInfo* QMugenSyntaxProcessor::findKey(const QSynTable& table, const QString& key, int& end)
{
    const QString lowered = key.toLower();
    if (const QSynInfo* info = table.find(lowered)) {
        if (matchKey(key, lowered, *info, end))
            return info;
    }
    for (const QString& name : table.walked) {
        const QSynInfo* info = table.find(name);
        if (info && info->format == QSynInfo::fmtRegExp && matchKey(key, name, *info, end))
            return info;
    }
    return nullptr;
}

void QMugenSyntaxProcessor::checkVersion(const QSynInfo& info, ItemKind kind, int column, int length)
{
    // The engine refuses a trigger or a controller it doesn't know yet, but
    // reads a controller it knows and skips a parameter newer than itself.
    using K = QSynMessageKind;
    if (version() < info.minVersion) {
        static const K invalid[] = {K::TriggerTooNew, K::ParameterTooNew, K::ControllerTooNew};
        report(invalid[kind], column, length);
    } else if (info.isDeprecated() && info.deprecatedVersion <= version()) {
        static const K deprecated[] = {K::TriggerDeprecated, K::ParameterDeprecated, K::ControllerDeprecated};
        report(deprecated[kind], column, length, {info.deprecated});
    }
}
