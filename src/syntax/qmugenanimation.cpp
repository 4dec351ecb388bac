// The lines of an animation ([Begin Action n]) for QMugenSyntaxProcessor.
#include "qmugensyntaxprocessor.h"
#include "qmugentokens.h"
#include "util/qengineversion.h"


void QMugenSyntaxProcessor::parseActionLine()
{
    if (tokenCode() == tkNumber) {
        parseActionFrame();
        return;
    }
    const QString key = tokenCode() == tkIdent ? m_tokenText.toLower() : QString();
    if (key == QLatin1String("loopstart")) {
        match(tkIdent, &m_keyFormat);
        expectEnd();
        return;
    }
    if (key == QLatin1String("interpolate")) {
        const int column = tokenStart();
        match(tkIdent, &m_keyFormat);
        static const QStringList kinds = {QStringLiteral("offset"), QStringLiteral("blend"),
                                          QStringLiteral("scale"), QStringLiteral("angle")};
        if (tokenCode() != tkIdent || !kinds.contains(m_tokenText.toLower())) {
            report(QSynMessageKind::UnknownInterpolation);
            skipLine();
            return;
        }
        if (version() < engineVersion::v1_1)
            report(QSynMessageKind::ParameterTooNew, column,
                     tokenStart() + tokenLength() - column);
        match(tkIdent, &m_valueFormat);
        expectEnd();
        return;
    }
    static const QRegularExpression box(QStringLiteral("^clsn[12](default)?$"), QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch found = box.match(key);
    if (!found.hasMatch()) {
        match(tkNumber);
        skipLine();
        return;
    }
    match(tkIdent, &m_keyFormat);
    if (tokenCode() == tkColon) {
        // "Clsn2: 3" opens a list of that many boxes.
        match(tkColon, &m_operatorFormat);
        if (parseNum(tkNumber))
            expectEnd();
        return;
    }
    if (!found.captured(1).isEmpty() || !match(tkLBracket, &m_operatorFormat) || !parseNum(tkNumber)
        || !match(tkRBracket, &m_operatorFormat)) {
        skipLine();
        return;
    }
    if (tokenCode() != tkEqual) {
        match(tkEqual);
        skipLine();
        return;
    }
    // Four coordinates, each required.
    match(tkEqual, &m_operatorFormat);
    m_valueColumn = tokenStart();
    m_valueMessages = int(m_messages.size());
    for (int i = 0; i < 4; ++i) {
        if (i > 0 && tokenCode() != tkComma)
            return paramNumError(4);
        if (i > 0)
            match(tkComma, &m_operatorFormat);
        if (tokenCode() != tkNumber)
            return paramNumError(4);
        match(tkNumber, &m_numberFormat);
    }
    expectEnd();
}

// group, image, x, y, time [, flip [, transparency [, xscale, yscale [, angle]]]]
void QMugenSyntaxProcessor::parseActionFrame()
{
    m_valueColumn = tokenStart();
    m_valueMessages = int(m_messages.size());
    for (int i = 0; i < 5; ++i) {
        if (i > 0 && tokenCode() != tkComma)
            return paramNumError(5);
        if (i > 0)
            match(tkComma, &m_operatorFormat);
        if (tokenCode() != tkNumber)
            return paramNumError(5);
        match(tkNumber, &m_numberFormat);
    }
    if (tokenCode() == tkComma) {
        match(tkComma, &m_operatorFormat);
        static const QStringList flips = {QStringLiteral("h"), QStringLiteral("v"), QStringLiteral("hv"),
                                          QStringLiteral("vh")};
        if (tokenCode() == tkIdent && flips.contains(m_tokenText.toLower())) {
            match(tkIdent, &m_valueFormat);
        } else if (tokenCode() != tkComma && tokenCode() != tkEnd) {
            report(QSynMessageKind::UnknownFlip);
            return skipLine();
        }
    }
    if (tokenCode() == tkComma) {
        match(tkComma, &m_operatorFormat);
        static const QRegularExpression blends(QStringLiteral("^(?:a|a1|s|as\\d{1,3}d\\d{1,3})$"),
                                               QRegularExpression::CaseInsensitiveOption);
        if (tokenCode() == tkIdent && blends.match(m_tokenText).hasMatch()) {
            match(tkIdent, &m_valueFormat);
        } else if (tokenCode() != tkComma && tokenCode() != tkEnd) {
            report(QSynMessageKind::UnknownTransparency);
            return skipLine();
        }
    }
    if (tokenCode() == tkComma) {
        const int column = tokenStart();
        for (int i = 0; i < 3 && tokenCode() == tkComma; ++i) {
            match(tkComma, &m_operatorFormat);
            if (tokenCode() == tkNumber)
                match(tkNumber, &m_numberFormat);
            else if (tokenCode() != tkComma && tokenCode() != tkEnd)
                match(tkNumber);
        }
        if (version() < engineVersion::v1_1)
            report(QSynMessageKind::ParameterTooNew, column,
                     tokenStart() - column);
    }
    expectEnd();
}
