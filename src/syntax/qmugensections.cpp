// The lines of each section kind for QMugenSyntaxProcessor.
#include "qmugensyntaxprocessor.h"
#include "qmugentokens.h"


namespace {

QSynInfo infoOf(QSynType type, const char* pattern = nullptr)
{
    QSynInfo info;
    info.type = type;
    if (pattern)
        info.valueRegExp = QSynInfo::wholeRegExp(QLatin1String(pattern));
    return info;
}

} // namespace

void QMugenSyntaxProcessor::parseSectionLine()
{
    switch (section()) {
    case secNone:
    case secInvalid:
    case secMotif:
        return; // nothing to check against
    case secStatedef: parseStatedefLine(); return;
    case secState: parseStateLine(); return;
    case secAction: parseActionLine(); return;
    case secCommand: parseCommandLine(); return;
    case secDefaults:
        parseFixedKeys({QStringLiteral("command.time"), QStringLiteral("command.buffer.time")},
                       QSynMessageKind::UnknownDefaultsParameter, stInt);
        return;
    case secRemap: parseRemapLine(); return;
    case secKeymap:
        parseFixedKeys({QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"), QStringLiteral("a"),
                        QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("x2"), QStringLiteral("y2"),
                        QStringLiteral("z2"), QStringLiteral("a2"), QStringLiteral("b2"), QStringLiteral("c2")},
                       QSynMessageKind::UnknownKeymapParameter, stInt);
        return;
    case secQuotes: {
        static const QRegularExpression victory(QStringLiteral("^victory\\d{1,2}$"),
                                                QRegularExpression::CaseInsensitiveOption);
        if (tokenCode() == tkIdent && victory.match(m_tokenText).hasMatch()) {
            match(tkIdent, &m_keyFormat);
            parseParamValue(infoOf(stString));
        } else {
            report(QSynMessageKind::UnknownQuotesParameter);
            skipLine();
        }
        return;
    }
    case secInfo:
        parseFixedKeys({QStringLiteral("name"), QStringLiteral("displayname"), QStringLiteral("versiondate"),
                        QStringLiteral("mugenversion"), QStringLiteral("author"), QStringLiteral("pal.defaults"),
                        QStringLiteral("localcoord")},
                       QSynMessageKind::UnknownInfoParameter, stString);
        return;
    case secFiles: parseTableLine("files", QStringLiteral("Files")); return;
    case secArcade: parseTableLine("arcade", QStringLiteral("Arcade")); return;
    case secData: parseTableLine("data", QStringLiteral("Data")); return;
    case secSize: parseTableLine("size", QStringLiteral("Size")); return;
    case secVelocity: parseTableLine("velocity", QStringLiteral("Velocity")); return;
    case secMovement: parseTableLine("movement", QStringLiteral("Movement")); return;
    case secCamera: parseTableLine("camera", QStringLiteral("Camera")); return;
    case secPlayerInfo: parseTableLine("playerinfo", QStringLiteral("PlayerInfo")); return;
    case secBound: parseTableLine("bound", QStringLiteral("Bound")); return;
    case secScaling: parseTableLine("scaling", QStringLiteral("Scaling")); return;
    case secShadow: parseTableLine("shadow", QStringLiteral("Shadow")); return;
    case secReflection: parseTableLine("reflection", QStringLiteral("Reflection")); return;
    case secStageInfo: parseTableLine("stageinfo", QStringLiteral("StageInfo")); return;
    case secMusic: parseTableLine("music", QStringLiteral("Music")); return;
    case secBgDef: parseTableLine("bgdef", QStringLiteral("BGdef")); return;
    case secBgCtrlDef: parseTableLine("bg_control_def", QStringLiteral("BGCtrlDef")); return;
    case secScene: parseTableLine("scene", QStringLiteral("Scene")); return;
    case secSceneDef: parseTableLine("scene_def", QStringLiteral("SceneDef")); return;
    case secFnt: parseTableLine("fnt", QStringLiteral("FNT v2")); return;
    case secDef: parseTableLine("fnt_def", QStringLiteral("Def")); return;
    case secBg: parseTypedLine(QMugenSyntaxProperties::BgControl, QSynMessageKind::UnknownBgType); return;
    case secBgCtrl: parseTypedLine(QMugenSyntaxProperties::BgController, QSynMessageKind::UnknownBgCtrlType); return;
    }
}

void QMugenSyntaxProcessor::parseStatedefLine()
{
    using K = QSynMessageKind;
    struct Key { const char* name; QSynType type; const char* words; K unknown; };
    // The engine reads type, movetype and physics by their first letter.
    static const Key keys[] = {
        {"type", stValue, "stand|crouch|air|liedown|unchanged", K::UnknownStatedefType},
        {"movetype", stValue, "attack|idle|hit|unchanged", K::UnknownStatedefMovetype},
        {"physics", stValue, "stand|crouch|air|none|unchanged", K::UnknownStatedefPhysics},
        {"anim", stExp, nullptr, K::UnknownValue},          {"velset", stExp2Opt, nullptr, K::UnknownValue},
        {"ctrl", stExp, nullptr, K::UnknownValue},          {"poweradd", stExp, nullptr, K::UnknownValue},
        {"juggle", stExp, nullptr, K::UnknownValue},        {"facep2", stExp, nullptr, K::UnknownValue},
        {"hitdefpersist", stExp, nullptr, K::UnknownValue}, {"movehitpersist", stExp, nullptr, K::UnknownValue},
        {"hitcountpersist", stExp, nullptr, K::UnknownValue}, {"sprpriority", stExp, nullptr, K::UnknownValue},
    };
    const QString key = m_tokenText;
    const int column = tokenStart();
    for (const Key& entry : keys) {
        if (tokenCode() != tkIdent || key.compare(QLatin1String(entry.name), Qt::CaseInsensitive) != 0)
            continue;
        match(tkIdent, &m_keyFormat);
        if (!entry.words) {
            parseParamValue(infoOf(entry.type));
            return;
        }
        if (!match(tkEqual, &m_operatorFormat)) {
            skipLine();
            return;
        }
        int valueColumn = 0;
        int length = 0;
        const QString value = takeRest(valueColumn, length);
        checkByLetter(QString::fromLatin1(entry.words).split(QLatin1Char('|')), value, entry.unknown, valueColumn,
                      length);
        return;
    }
    // Like any controller, a state's header skips what it doesn't know.
    report(K::IgnoredStatedefParameter, column, qMax(1, int(key.size())), {key});
    skipLine();
}

int QMugenSyntaxProcessor::parseTypeKey(QMugenSyntaxProperties::ControllerKind kind, QSynMessageKind unknownType,
                                        int& column, int& length)
{
    match(tkIdent, &m_keyFormat);
    if (!match(tkEqual, &m_operatorFormat)) {
        skipLine();
        return -1;
    }
    const QString name = takeRest(column, length);
    const int index = m_properties->findController(kind, name);
    m_state |= hasTypeFlag;
    setControllerIndex(index);
    if (index < 0)
        report(unknownType, column, qMax(1, length));
    else
        colour(column, length, m_controllerFormat);
    return index;
}

void QMugenSyntaxProcessor::parseStateLine()
{
    static const QRegularExpression trigger(QStringLiteral("^trigger\\d+$"), QRegularExpression::CaseInsensitiveOption);
    if (tokenCode() != tkIdent) {
        match(tkIdent);
        skipLine();
        return;
    }
    const QString key = m_tokenText.toLower();
    if (key == QLatin1String("type")) {
        int column = 0;
        int length = 0;
        const int index = parseTypeKey(QMugenSyntaxProperties::StateController, QSynMessageKind::UnknownStateType,
                                       column, length);
        if (index < 0)
            return;
        const QSynController& controller = m_properties->controller(QMugenSyntaxProperties::StateController, index);
        checkVersion(controller.info, ikController, column, length);
        // Parameters may stand above the type; the engine reads them all the same.
        for (const QString& above : keysAboveInBlock()) {
            const int required = int(controller.required.indexOf(above));
            if (required >= 0 && required < maxRequired)
                m_state |= 1 << (requiredShift + required);
        }
        return;
    }
    if (trigger.match(key).hasMatch())
        m_state |= hasTriggerFlag;

    const QSynTable& common = m_properties->commonParams(QMugenSyntaxProperties::StateController);
    const auto isCommonKey = [&] {
        int end = 0;
        const LexerState state = saveLexer();
        nextToken();
        const bool found = findKey(common, key, end) != nullptr;
        restoreLexer(state);
        return found;
    };
    const int index = controllerIndex();
    if (index >= 0) {
        const QSynController& controller = m_properties->controller(QMugenSyntaxProperties::StateController, index);
        // A Null controller reads none of its own lines: authors switch a
        // controller off by its type and leave whatever it had.
        if (controller.name.compare(QLatin1String("Null"), Qt::CaseInsensitive) == 0 && !isCommonKey()) {
            colourToken(m_keyFormat);
            skipLine();
            return;
        }
        const int required = int(controller.required.indexOf(key));
        if (required >= 0 && required < maxRequired)
            m_state |= 1 << (requiredShift + required);
        parseParam(controller.params, controller.name, &common);
        return;
    }
    // Before a known type only the keys of every controller can be told apart.
    if (isCommonKey())
        parseParam(common, QStringLiteral("State"));
    else
        skipLine();
}

void QMugenSyntaxProcessor::parseTypedLine(QMugenSyntaxProperties::ControllerKind kind, QSynMessageKind unknownType)
{
    if (tokenCode() != tkIdent) {
        match(tkIdent);
        skipLine();
        return;
    }
    if (m_tokenText.compare(QLatin1String("type"), Qt::CaseInsensitive) == 0) {
        int column = 0;
        int length = 0;
        parseTypeKey(kind, unknownType, column, length);
        return;
    }
    int index = controllerIndex();
    // A background without a type is a normal one.
    if (index < 0 && kind == QMugenSyntaxProperties::BgControl && !(m_state & hasTypeFlag))
        index = m_properties->findController(kind, QStringLiteral("normal"));
    if (index < 0) {
        // Behind an unknown type its keys can't be checked.
        if (m_state & hasTypeFlag)
            skipLine();
        else
            parseParam(m_properties->commonParams(kind), kind == QMugenSyntaxProperties::BgControl ? QStringLiteral("BG") : QStringLiteral("BGCtrl"));
        return;
    }
    const QSynController& controller = m_properties->controller(kind, index);
    parseParam(controller.params, controller.name, &m_properties->commonParams(kind));
}

void QMugenSyntaxProcessor::parseTableLine(const char* table, const QString& title)
{
    if (tokenCode() != tkIdent) {
        match(tkIdent);
        skipLine();
        return;
    }
    parseParam(m_properties->section(QLatin1String(table)), title);
}

void QMugenSyntaxProcessor::parseFixedKeys(const QStringList& keys, QSynMessageKind unknownMessage, QSynType type)
{
    const QString key = tokenCode() == tkIdent ? m_tokenText.toLower() : QString();
    if (!keys.contains(key) && !keys.contains(unprefixedKey(key))) {
        report(unknownMessage);
        skipLine();
        return;
    }
    match(tkIdent, &m_keyFormat);
    parseParamValue(infoOf(type));
}

void QMugenSyntaxProcessor::parseRemapLine()
{
    static const QStringList buttons = {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z"),
                                        QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                                        QStringLiteral("s")};
    if (tokenCode() != tkIdent || !buttons.contains(m_tokenText.toLower())) {
        report(QSynMessageKind::UnknownRemapParameter);
        skipLine();
        return;
    }
    match(tkIdent, &m_keyFormat);
    if (!match(tkEqual, &m_operatorFormat)) {
        skipLine();
        return;
    }
    if (tokenCode() == tkEnd)
        return; // a button left blank can't be pressed
    if (tokenCode() != tkIdent || !buttons.contains(m_tokenText.toLower())) {
        report(QSynMessageKind::UnknownRemapValue);
        skipLine();
        return;
    }
    match(tkIdent, &m_valueFormat);
    expectEnd();
}

void QMugenSyntaxProcessor::parseCommandLine()
{
    const QString key = tokenCode() == tkIdent ? m_tokenText.toLower() : QString();
    if (key == QLatin1String("name")) {
        match(tkIdent, &m_keyFormat);
        if (match(tkEqual, &m_operatorFormat) && match(tkString, &m_stringFormat))
            expectEnd();
    } else if (key == QLatin1String("time") || key == QLatin1String("buffer.time")) {
        match(tkIdent, &m_keyFormat);
        parseParamValue(infoOf(stInt));
    } else if (key == QLatin1String("command")) {
        match(tkIdent, &m_keyFormat);
        if (!match(tkEqual, &m_operatorFormat))
            return skipLine();
        matchCmdKey(&m_valueFormat);
        while (tokenCode() == tkComma) {
            match(tkComma, &m_operatorFormat);
            matchCmdKey(&m_valueFormat);
        }
        expectEnd();
    } else {
        report(QSynMessageKind::UnknownCommandParameter);
        skipLine();
    }
}

// One element of a command: modifiers (/, ~ with an optional hold time, $, >)
// and keys joined by "+".
void QMugenSyntaxProcessor::matchCmdKey(const QTextCharFormat* format)
{
    static const QStringList keys = {
        QStringLiteral("b"), QStringLiteral("db"), QStringLiteral("d"), QStringLiteral("df"),
        QStringLiteral("f"), QStringLiteral("uf"), QStringLiteral("u"), QStringLiteral("ub"),
        QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("x"), QStringLiteral("y"),
        QStringLiteral("z"), QStringLiteral("s"),
    };
    for (;;) {
        while (tokenCode() == tkDivide || tokenCode() == tkTilde || tokenCode() == tkDollar
               || tokenCode() == tkGreater) {
            const bool release = tokenCode() == tkTilde;
            match(tokenCode(), &m_operatorFormat);
            if (release && tokenCode() == tkNumber)
                match(tkNumber, &m_numberFormat);
        }
        if (tokenCode() != tkIdent || !keys.contains(m_tokenText.toLower())) {
            report(QSynMessageKind::UnknownCommandKey);
            skipLine();
            return;
        }
        match(tkIdent, format);
        if (tokenCode() != tkPlus)
            return;
        match(tkPlus, &m_operatorFormat);
    }
}
