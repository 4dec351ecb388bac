// Parameters of QMugenSyntaxProcessor and their values, by value type.
#include "qmugensyntaxprocessor.h"
#include "qmugentokens.h"


namespace {

/**
 * The positions of a value of one type: 'i' integer, 'f' float, 'e'
 * expression, 's' a string, a word of the entry's pattern (possibly leading
 * a number or an expression, as in "S5") or an expression, and 'w' a word of
 * the pattern or an expression. `required` values must be there; with
 * `repeat` the last position repeats, and with `nil` a position may be empty.
 */
struct ValueShape
{
    const char* positions;
    int required;
    bool repeat;
    bool nil;
};

const ValueShape* shapeOf(QSynType type)
{
    static const ValueShape shapes[] = {
        {"i", 1, false, false},    // int
        {"ii", 2, false, false},   // int2
        {"iii", 3, false, false},  // int3
        {"i", 1, true, false},     // intn
        {"ifff", 4, false, false}, // intfloat3
        {"ifff", 1, false, false}, // intfloat3opt
        {"f", 1, false, false},    // float
        {"ff", 2, false, false},   // float2
        {"ff", 1, false, false},   // float2opt
        {"fff", 3, false, false},  // float3
        {"e", 1, false, false},    // exp
        {"ee", 2, false, false},   // exp2
        {"se", 1, false, false},   // exp2value
        {"eee", 3, false, false},  // exp3
        {"eeee", 4, false, false}, // exp4
        {"e", 1, true, false},     // expn
        {"ee", 1, false, false},   // exp2opt
        {"eee", 0, false, true},   // exp3nil
        {nullptr, 0, false, false}, // string
        {"s", 1, false, false},    // strexp
        {"se", 1, false, false},   // strexp2
        {"se", 0, false, true},    // strexp2nil
        {"w", 1, true, false},     // expstr
        {"esee", 1, false, false}, // expstrexp2
        {nullptr, 0, false, false}, // value
    };
    return type <= stValue ? &shapes[type] : nullptr;
}

} // namespace

bool QMugenSyntaxProcessor::parseParam(const QSynTable& table, const QString& controller, const QSynTable* common)
{
    const int column = tokenStart();
    const QString key = m_tokenText;
    if (!match(tkIdent, &m_keyFormat)) {
        skipLine();
        return false;
    }
    int end = column + int(key.size());
    // The keys every controller shares come first: a controller may accept
    // any key of its own (Null does), but triggers stay triggers.
    const QSynInfo* info = common ? findKey(*common, key, end) : nullptr;
    if (!info)
        info = findKey(table, key, end);
    if (!info && unprefixedKey(key) != key)
        info = findKey(table, unprefixedKey(key), end);
    if (!info) {
        errorFmt(tr("Unknown parameter '%1' for the '%2' controller").arg(key, controller), column,
                 int(m_text->size()) - column);
        skipLine();
        return false;
    }
    checkVersion(*info, ikParameter, column, int(key.size()));
    parseParamValue(*info);
    return true;
}

void QMugenSyntaxProcessor::parseParamValue(const QSynInfo& info)
{
    if (!match(tkEqual, &m_operatorFormat)) {
        skipLine();
        return;
    }
    m_valueColumn = tokenStart();
    m_valueMessages = int(m_messages.size());
    if (info.type == stString || info.type == stValue || info.type == stUnknown)
        parseTextValue(info, info.type == stValue);
    else
        parseShape(info);
}

void QMugenSyntaxProcessor::parseShape(const QSynInfo& info)
{
    const ValueShape* shape = shapeOf(info.type);
    const int positions = int(qstrlen(shape->positions));
    const int limit = info.type == stIntN ? info.max : shape->repeat ? 0x7FFF : positions;
    int count = 0;
    for (int i = 0; i < limit; ++i) {
        if (i > 0) {
            if (tokenCode() != tkComma)
                break;
            match(tkComma, &m_operatorFormat);
        }
        if (tokenCode() == tkEnd || tokenCode() == tkComma) {
            if (shape->nil)
                continue;
            // A missing value, or a comma with nothing behind it: short of
            // the required count it is one finding for the whole value.
            if (i < shape->required) {
                paramNumError(shape->required);
                return;
            }
            break;
        }
        const char kind = shape->positions[qMin(i, positions - 1)];
        switch (kind) {
        case 'i':
        case 'f':
            parseNum(tkNumber);
            break;
        case 'e':
            parseExpression();
            break;
        case 'w':
            if (!(tokenCode() == tkIdent && info.valueMatches(m_tokenText) && match(tkIdent, &m_valueFormat)))
                parseExpression();
            break;
        default:
            parseStrPosition(info);
            break;
        }
        ++count;
    }
    if (count < shape->required) {
        paramNumError(shape->required);
        return;
    }
    expectEnd();
}

// A position that takes a string, a word of the pattern, a word of the
// pattern leading a number ("S5") or an expression ("F var(1)"), or an
// expression.
bool QMugenSyntaxProcessor::parseStrPosition(const QSynInfo& info)
{
    if (tokenCode() == tkString)
        return match(tkString, &m_stringFormat);
    if (tokenCode() == tkIdent && info.hasValueRegExp()) {
        if (info.valueMatches(m_tokenText)) {
            match(tkIdent, &m_valueFormat);
            if (tokenCode() != tkComma && tokenCode() != tkEnd)
                parseExpression();
            return true;
        }
        int digits = int(m_tokenText.size());
        while (digits > 0 && m_tokenText.at(digits - 1).isDigit())
            --digits;
        if (digits > 0 && digits < m_tokenText.size() && info.valueMatches(m_tokenText.left(digits)))
            return match(tkIdent, &m_valueFormat);
    }
    parseExpression();
    return true;
}

void QMugenSyntaxProcessor::parseTextValue(const QSynInfo& info, bool isValue)
{
    int column = 0;
    int length = 0;
    const QString value = takeRest(column, length);
    if (!info.hasValueRegExp() || (value.isEmpty() && !isValue)) {
        colour(column, length, m_stringFormat);
        return;
    }
    QString compact = value;
    compact.remove(QLatin1Char(' ')).remove(QLatin1Char('\t'));
    if (info.valueMatches(value) || info.valueMatches(compact)) {
        colour(column, length, isValue ? m_valueFormat : m_stringFormat);
        return;
    }
    errorFmt(tr("Unknown parameter value '%1'").arg(value), column, qMax(length, 1));
}

void QMugenSyntaxProcessor::paramNumError(int count)
{
    m_messages.resize(m_valueMessages);
    int end = int(m_text->indexOf(QLatin1Char(';'), m_valueColumn));
    if (end < 0)
        end = int(m_text->size());
    warningFmt(tr("This parameter requires %n value(s)", nullptr, count), m_valueColumn, qMax(1, end - m_valueColumn));
    skipLine();
}

void QMugenSyntaxProcessor::expectEnd()
{
    if (tokenCode() != tkEnd) {
        match(tkEnd);
        skipLine();
    }
}
