#include "qmugensyntaxprocessor.h"
#include "qmugentokens.h"

#include <QTextDocument>

namespace {

QTextCharFormat colourFormat(const QColor& colour, bool bold = false)
{
    QTextCharFormat format;
    format.setForeground(colour);
    if (bold)
        format.setFontWeight(QFont::Bold);
    return format;
}

constexpr auto underlineStyle = QTextCharFormat::UnderlineStyle(7);

/// For a line behind a section's lines: -1 when it doesn't count (blank, a
/// comment, a byte-order mark), 1 for a header, 0 for any other line.
/// `isState` tells whether the header is a [State ...].
int headerVerdict(const QString& line, bool& isState)
{
    isState = false;
    const QString text = line.trimmed();
    if (text.isEmpty() || text.startsWith(QLatin1Char(';')) || text == QChar(0xFEFF))
        return -1;
    if (!text.startsWith(QLatin1Char('[')))
        return 0;
    const QString name = text.mid(1).trimmed();
    isState = name.startsWith(QLatin1String("state"), Qt::CaseInsensitive)
              && !name.startsWith(QLatin1String("statedef"), Qt::CaseInsensitive);
    return 1;
}

} // namespace

QMugenSyntaxProcessor::QMugenSyntaxProcessor(QTextDocument* document, const QMugenSyntaxProperties* properties,
                                             bool enableErrors)
    : QSyntaxProcessor(document)
    , m_properties(properties)
    , m_enableErrors(enableErrors)
    , m_headerFormat(colourFormat(QColor(0, 0, 160), true))
    , m_keyFormat(colourFormat(QColor(0, 0, 255)))
    , m_numberFormat(colourFormat(QColor(160, 0, 160)))
    , m_stringFormat(colourFormat(QColor(160, 80, 0)))
    , m_commentFormat(colourFormat(QColor(0, 128, 0)))
    , m_operatorFormat(colourFormat(QColor(80, 80, 80)))
    , m_triggerFormat(colourFormat(QColor(0, 96, 160)))
    , m_controllerFormat(colourFormat(QColor(128, 0, 0), true))
    , m_valueFormat(colourFormat(QColor(0, 128, 128)))
{
}

void QMugenSyntaxProcessor::highlightBlock(const QString& text)
{
    QTextEditorBlockData* data = initializeBlockData();
    m_inBlock = true;
    m_lines = nullptr;
    setCurrentBlockState(processLine(text, previousBlockState()));
    m_inBlock = false;
    data->messages = m_messages;
    data->parentheses = m_parentheses;
    data->endsSection = m_endsSection;
    recheckLineAbove();
}

// What a state's block misses is reported on its last line. The highlighter
// goes down from an edit only, so a line typed below the last one, or a line
// after it becoming a header or a comment, leaves the line above with what it
// said as the last (or not the last). That line is checked again from the
// event loop, off the keystroke, and only when its place changed.
void QMugenSyntaxProcessor::recheckLineAbove()
{
    QTextBlock above = currentBlock().previous();
    bool isState = false;
    int kind = -1;
    for (; above.isValid() && (kind = headerVerdict(above.text(), isState)) < 0; above = above.previous()) {
    }
    const QTextEditorBlockData* data = above.isValid() ? blockData(above.userData()) : nullptr;
    if (!data || kind == 1)
        return;
    const bool ends = (above.userState() & 0x3F) == secState && endsAt(above.next(), isState);
    if (ends == data->endsSection)
        return;
    QMetaObject::invokeMethod(
        this,
        [this, above] {
            if (above.isValid() && above.document() == document())
                rehighlightBlock(above);
        },
        Qt::QueuedConnection);
}

QVector<QSynMsgList> QMugenSyntaxProcessor::checkText(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    }
    QVector<QSynMsgList> result;
    result.reserve(lines.size());
    m_lines = &lines;
    int state = -1;
    for (m_lineIndex = 0; m_lineIndex < lines.size(); ++m_lineIndex) {
        state = processLine(lines.at(m_lineIndex), state);
        result.append(m_messages);
    }
    m_lines = nullptr;
    return result;
}

int QMugenSyntaxProcessor::processLine(const QString& text, int previousState)
{
    m_text = &text;
    m_pos = 0;
    m_eot = false;
    m_expression = false;
    m_messages.clear();
    m_parentheses.clear();
    m_endsSection = false;
    m_state = previousState < 0 ? secNone : previousState;

    nextToken();
    if (tokenCode() == tkEnd)
        return m_state;
    if (tokenCode() == tkLBracket) {
        parseHeader();
        return m_state;
    }
    parseSectionLine();

    bool nextIsState = false;
    if (section() == secState && isBlockEnded(nextIsState)) {
        m_endsSection = true;
        if ((m_state & (hasTypeFlag | hasTriggerFlag)) != (hasTypeFlag | hasTriggerFlag))
            report(QSynMessageKind::CodeEndsBeforeLine, 0, int(text.size()));
        checkRequired(int(text.size()));
    }
    return m_state;
}

// The flags of the block state carry what the block has given, so that an
// edit anywhere in it re-checks its last line.
void QMugenSyntaxProcessor::checkRequired(int length)
{
    const int index = controllerIndex();
    if (index < 0)
        return;
    const QSynController& controller = m_properties->controller(QMugenSyntaxProperties::StateController, index);
    for (int i = 0; i < qMin(int(controller.required.size()), maxRequired); ++i) {
        if (!(m_state & (1 << (requiredShift + i))))
            report(QSynMessageKind::MissingParameter, 0, length, {controller.required.at(i), controller.name});
    }
}

void QMugenSyntaxProcessor::parseHeader()
{
    const QString& text = *m_text;
    match(tkLBracket, &m_headerFormat);
    // Headers may carry a language prefix, as in [ja.Quotes].
    const QString word = unprefixedKey(m_tokenText.toLower());
    const int wordStart = tokenStart();
    const int wordEnd = wordStart + tokenLength();
    const int close = int(text.indexOf(QLatin1Char(']'), wordStart));
    colour(0, close < 0 ? int(text.size()) : close + 1, m_headerFormat);
    setSection(secInvalid);
    if (tokenCode() != tkIdent) {
        report(QSynMessageKind::InvalidGroup, 0, int(text.size()));
        return;
    }
    nextToken();
    const QString second = tokenCode() == tkIdent ? m_tokenText.toLower() : QString();

    if (word == QLatin1String("statedef")) {
        setSection(secStatedef);
        // "-1" is one number outside expressions. The engine reads the
        // number and nothing behind it: [Statedef 5410 - thrown] is state 5410.
        if (tokenCode() == tkNumber)
            colourToken(m_headerFormat);
        else
            report(QSynMessageKind::WrongStatedef, 0, int(text.size()));
        return;
    }
    if (word.startsWith(QLatin1String("state"))) {
        setSection(secState);
        const QChar after = wordEnd < text.size() ? text.at(wordEnd) : QChar();
        if (word.size() > 5 || (after != QLatin1Char(' ') && after != QLatin1Char('\t') && after != QLatin1Char(']')))
            report(QSynMessageKind::SpaceAfterState, wordStart, wordEnd - wordStart);
        else if (close < 0)
            report(QSynMessageKind::WrongState, 0, int(text.size()));
        return;
    }
    if (word == QLatin1String("begin") && second == QLatin1String("action")) {
        nextToken();
        setSection(parseNum(tkNumber) ? secAction : secInvalid);
        return;
    }

    struct Group { const char* word; const char* second; Section section; };
    static const Group groups[] = {
        {"command", nullptr, secCommand},     {"remap", nullptr, secRemap},
        {"defaults", nullptr, secDefaults},   {"data", nullptr, secData},
        {"size", nullptr, secSize},           {"velocity", nullptr, secVelocity},
        {"movement", nullptr, secMovement},   {"quotes", nullptr, secQuotes},
        {"info", nullptr, secInfo},           {"files", nullptr, secFiles},
        {"arcade", nullptr, secArcade},       {"palette", "keymap", secKeymap},
        {"camera", nullptr, secCamera},       {"playerinfo", nullptr, secPlayerInfo},
        {"bound", nullptr, secBound},         {"scaling", nullptr, secScaling},
        {"shadow", nullptr, secShadow},       {"reflection", nullptr, secReflection},
        {"stageinfo", nullptr, secStageInfo}, {"music", nullptr, secMusic},
        {"bg", nullptr, secBg},               {"bgctrl", nullptr, secBgCtrl},
        {"bgctrldef", nullptr, secBgCtrlDef}, {"bgdef", nullptr, secBgDef},
        {"scene", nullptr, secScene},         {"scenedef", nullptr, secSceneDef},
        {"def", nullptr, secDef},             {"fnt", "v2", secFnt},
    };
    for (const Group& group : groups) {
        if (word == QLatin1String(group.word) && (!group.second || second == QLatin1String(group.second))) {
            setSection(group.section);
            return;
        }
    }

    // Storyboards and motifs name their backgrounds with a prefix:
    // [BG0Def], [TitleBGdef], [TitleBG Logo], [BG0Ctrl Start], [BG0CtrlDef a].
    static const QRegularExpression background(QStringLiteral("^\\w*bg\\d*(def|ctrldef|ctrl)?$"),
                                               QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch prefixed = background.match(word);
    if (prefixed.hasMatch()) {
        const QString kind = prefixed.captured(1).toLower();
        setSection(kind.isEmpty() ? secBg : kind == QLatin1String("def") ? secBgDef
                                        : kind == QLatin1String("ctrl")  ? secBgCtrl
                                                                         : secBgCtrlDef);
        return;
    }
    // The groups of the motif, fight and select definitions, kept unchecked.
    static const QStringList motifGroups = {
        QStringLiteral("title info"), QStringLiteral("select info"), QStringLiteral("vs screen"),
        QStringLiteral("demo mode"), QStringLiteral("continue screen"), QStringLiteral("game over screen"),
        QStringLiteral("victory screen"), QStringLiteral("win screen"), QStringLiteral("default ending"),
        QStringLiteral("end credits"), QStringLiteral("survival results screen"), QStringLiteral("option info"),
        QStringLiteral("infobox"), QStringLiteral("infobox text"), QStringLiteral("characters"),
        QStringLiteral("extrastages"), QStringLiteral("options"), QStringLiteral("fightfx"),
        QStringLiteral("lifebar"), QStringLiteral("simul lifebar"), QStringLiteral("turns lifebar"),
        QStringLiteral("powerbar"), QStringLiteral("face"), QStringLiteral("simul face"),
        QStringLiteral("turns face"), QStringLiteral("name"), QStringLiteral("simul name"),
        QStringLiteral("turns name"), QStringLiteral("time"), QStringLiteral("combo"),
        QStringLiteral("round"), QStringLiteral("winicon"),
    };
    const QString name = unprefixedGroup(text.mid(wordStart, (close < 0 ? int(text.size()) : close) - wordStart));
    if (motifGroups.contains(name)) {
        setSection(secMotif);
        return;
    }
    report(QSynMessageKind::InvalidGroup, 0, close < 0 ? int(text.size()) : close + 1);
}

// Whether the section ends behind the current line: the next line that is
// neither blank nor a comment is a header, or there is none. `isState` tells
// whether that header is a [State ...].
bool QMugenSyntaxProcessor::isBlockEnded(bool& isState)
{
    if (!m_lines)
        return endsAt(currentBlock().next(), isState);
    for (int i = m_lineIndex + 1; i < m_lines->size(); ++i) {
        const int header = headerVerdict(m_lines->at(i), isState);
        if (header >= 0)
            return header == 1;
    }
    isState = false;
    return true;
}

bool QMugenSyntaxProcessor::endsAt(QTextBlock next, bool& isState)
{
    for (; next.isValid(); next = next.next()) {
        const int header = headerVerdict(next.text(), isState);
        if (header >= 0)
            return header == 1;
    }
    isState = false;
    return true;
}

QStringList QMugenSyntaxProcessor::keysAboveInBlock() const
{
    QStringList keys;
    // Returns true at the header.
    const auto take = [&keys](const QString& line) {
        const QString text = line.trimmed();
        if (text.startsWith(QLatin1Char('[')))
            return true;
        const qsizetype equal = text.indexOf(QLatin1Char('='));
        const qsizetype comment = text.indexOf(QLatin1Char(';'));
        if (equal > 0 && (comment < 0 || equal < comment))
            keys.append(text.left(equal).trimmed().toLower());
        return false;
    };
    if (m_lines) {
        for (int i = m_lineIndex - 1; i >= 0 && !take(m_lines->at(i)); --i) {
        }
        return keys;
    }
    for (QTextBlock block = currentBlock().previous(); block.isValid() && !take(block.text());
         block = block.previous()) {
    }
    return keys;
}

QString QMugenSyntaxProcessor::unprefixedKey(const QString& key)
{
    static const QRegularExpression prefixed(QStringLiteral("^(?:[a-z]{2,2}\\.)?([^.]+)$"),
                                             QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch found = prefixed.match(key);
    return found.hasMatch() ? found.captured(1) : key;
}

QString QMugenSyntaxProcessor::unprefixedGroup(const QString& name)
{
    static const QRegularExpression prefix(QStringLiteral("^[a-z]{2,2}\\."), QRegularExpression::CaseInsensitiveOption);
    return name.simplified().toLower().remove(prefix);
}

void QMugenSyntaxProcessor::report(QSynMessageKind kind, int column, int length, const QStringList& arguments,
                                   int count)
{
    const QString text = synMessageText(kind, arguments, count);
    switch (synMessageInfo(kind).type) {
    case smcError: errorFmt(text, column, length); break;
    case smcWarning: warningFmt(text, column, length); break;
    case smcDeprecation: deprecateFmt(text, column, length); break;
    }
}

void QMugenSyntaxProcessor::report(QSynMessageKind kind, const QStringList& arguments)
{
    report(kind, tokenStart(), qMax(1, tokenLength()), arguments);
}

void QMugenSyntaxProcessor::errorFmt(const QString& text, int column, int length)
{
    if (!m_enableErrors)
        return;
    underline(column, length, Qt::red);
    m_messages.append(QSynMsg{0, column, length, text});
}

void QMugenSyntaxProcessor::warningFmt(const QString& text, int column, int length)
{
    underline(column, length, QColor(255, 255, 0));
    m_messages.append(QSynMsg{1, column, length, text});
}

void QMugenSyntaxProcessor::deprecateFmt(const QString& text, int column, int length)
{
    underline(column, length, QColor(255, 127, 0));
    m_messages.append(QSynMsg{2, column, length, text});
}

void QMugenSyntaxProcessor::underline(int column, int length, const QColor& colour)
{
    if (!m_inBlock)
        return;
    const int end = qMin(column + length, int(m_text->size()));
    for (int i = qMax(column, 0); i < end; ++i) {
        QTextCharFormat current = format(i);
        current.setUnderlineStyle(underlineStyle);
        current.setUnderlineColor(colour);
        setFormat(i, 1, current);
    }
}
