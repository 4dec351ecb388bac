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

// Edits (insertions, deletions, substitutions, swaps of neighbours) from a to b.
int editDistance(const QString& a, const QString& b)
{
    const int n = int(b.size());
    QVector<int> before(n + 1), previous(n + 1), current(n + 1);
    for (int j = 0; j <= n; ++j)
        previous[j] = j;
    for (int i = 1; i <= a.size(); ++i) {
        current[0] = i;
        for (int j = 1; j <= n; ++j) {
            const int cost = a.at(i - 1) == b.at(j - 1) ? 0 : 1;
            current[j] = qMin(qMin(previous[j] + 1, current[j - 1] + 1), previous[j - 1] + cost);
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                current[j] = qMin(current[j], before[j - 2] + 1);
        }
        before.swap(previous);
        previous.swap(current);
    }
    return previous[n];
}

// The plain key of `tables` nearest to `key`, when it is near enough to be
// what the author meant: a slip of one letter in a short key, a few in a
// long one (persisternt, ctr, palinvertall).
QString nearestKey(const QString& key, std::initializer_list<const QSynTable*> tables)
{
    const QString lowered = key.toLower();
    if (lowered.size() < 3)
        return QString();
    const int allowed = qMax(1, int(lowered.size()) / 4);
    QString best;
    int bestDistance = allowed + 1;
    for (const QSynTable* table : tables) {
        if (!table)
            continue;
        for (auto it = table->entries.cbegin(); it != table->entries.cend(); ++it) {
            if (it.value().format != QSynInfo::fmtName || it.key() == QLatin1String("type"))
                continue;
            if (qAbs(int(it.key().size()) - int(lowered.size())) > allowed)
                continue;
            const int distance = editDistance(lowered, it.key());
            if (distance < bestDistance) {
                bestDistance = distance;
                best = it.key();
            }
        }
    }
    return best;
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
        // The engine skips a key its controller doesn't read.
        const QString nearest = nearestKey(key, {&table, common});
        const int length = int(m_text->size()) - column;
        if (nearest.isEmpty())
            report(QSynMessageKind::IgnoredParameter, column, length, {key, controller});
        else
            report(QSynMessageKind::IgnoredParameterNear, column, length, {key, controller, nearest});
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
        // The prefix glued to a number, as in S7000 + var(11) * 10: the
        // letter is the prefix, the expression starts at the digits.
        const QString& word = m_tokenText;
        if (word.size() > 1 && word.at(1).isDigit() && info.valueMatches(word.left(1))) {
            colour(tokenStart(), 1, m_valueFormat);
            m_pos = tokenStart() + 1;
            nextToken();
        }
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
    if (!info.letterWords.isEmpty()) {
        checkByLetter(info.letterWords, value, QSynMessageKind::UnknownParameterValue, column, length);
        return;
    }
    QString compact = value;
    compact.remove(QLatin1Char(' ')).remove(QLatin1Char('\t'));
    if (info.valueMatches(value) || info.valueMatches(compact)) {
        colour(column, length, isValue ? m_valueFormat : m_stringFormat);
        return;
    }
    report(QSynMessageKind::UnknownParameterValue, column, qMax(length, 1), {value});
}

void QMugenSyntaxProcessor::checkByLetter(const QStringList& words, const QString& value, QSynMessageKind unknown,
                                          int column, int length)
{
    QString readAs;
    for (const QString& word : words) {
        if (!value.isEmpty() && word.startsWith(value, Qt::CaseInsensitive)) {
            colour(column, length, m_valueFormat);
            return;
        }
        if (readAs.isEmpty() && !value.isEmpty() && word.at(0) == value.at(0).toLower())
            readAs = word;
    }
    if (readAs.isEmpty())
        report(unknown, column, qMax(length, 1), {value});
    else
        report(QSynMessageKind::ReadByLetter, column, qMax(length, 1), {value, readAs});
}

void QMugenSyntaxProcessor::paramNumError(int count)
{
    m_messages.resize(m_valueMessages);
    int end = int(m_text->indexOf(QLatin1Char(';'), m_valueColumn));
    if (end < 0)
        end = int(m_text->size());
    report(QSynMessageKind::ValueCount, m_valueColumn, qMax(1, end - m_valueColumn), {}, count);
    skipLine();
}

void QMugenSyntaxProcessor::expectEnd()
{
    if (tokenCode() != tkEnd) {
        match(tkEnd);
        skipLine();
    }
}
