#include "qengineversion.h"

#include <QRegularExpression>

QString engineVersion::label(unsigned int version)
{
    if (version == beta)
        return QStringLiteral("Beta");
    return QStringLiteral("%1.%2").arg(version >> 24).arg((version >> 16) & 0xFF);
}

QString engineVersion::dotted(unsigned int version)
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg(version >> 24)
        .arg((version >> 16) & 0xFF)
        .arg((version >> 8) & 0xFF)
        .arg(version & 0xFF);
}

unsigned int getVersion(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*(\\d+)\\.(\\d+)(?:\\.(\\d+))?(?:\\.(\\d+))?\\s*$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return engineVersion::beta;
    return engineVersion::pack(match.captured(1).toUInt(), match.captured(2).toUInt(),
                               match.captured(3).toUInt(), match.captured(4).toUInt());
}
