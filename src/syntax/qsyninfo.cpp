#include "qsyninfo.h"

#include <QStringList>

QSynType synTypeFromName(const QString& name)
{
    static const QStringList names = {
        QStringLiteral("int"),      QStringLiteral("int2"),        QStringLiteral("int3"),
        QStringLiteral("intn"),     QStringLiteral("intfloat3"),   QStringLiteral("intfloat3opt"),
        QStringLiteral("float"),    QStringLiteral("float2"),      QStringLiteral("float2opt"),
        QStringLiteral("float3"),   QStringLiteral("exp"),         QStringLiteral("exp2"),
        QStringLiteral("exp2value"), QStringLiteral("exp3"),       QStringLiteral("exp4"),
        QStringLiteral("expn"),     QStringLiteral("exp2opt"),     QStringLiteral("exp3nil"),
        QStringLiteral("string"),   QStringLiteral("strexp"),      QStringLiteral("strexp2"),
        QStringLiteral("strexp2nil"), QStringLiteral("expstr"),    QStringLiteral("expstrexp2"),
        QStringLiteral("value"),
    };
    const int index = names.indexOf(name.trimmed().toLower());
    return index < 0 ? stUnknown : QSynType(index);
}

bool QSynInfo::valueMatches(const QString& word) const
{
    return hasValueRegExp() && valueRegExp.match(word).hasMatch();
}

QRegularExpression QSynInfo::wholeRegExp(const QString& pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::CaseInsensitiveOption);
}
