#include "qjascpalette.h"

#include <QIODevice>
#include <QRegularExpression>
#include <QStringList>

bool QJascPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    const QStringList lines = QString::fromLatin1(device->readAll()).split(QStringLiteral("\r\n"));
    if (lines.size() < 2 || lines.at(0) != QLatin1String("JASC-PAL") || lines.at(1) != QLatin1String("0100"))
        return false;
    static const QRegularExpression entry(
        QStringLiteral("^(\\d{1,3})\\s(\\d{1,3})\\s(\\d{1,3})(?:\\s(\\d{1,3}))?$"));
    for (int line = 3; line < lines.size() && line <= 258; ++line) {
        const QRegularExpressionMatch match = entry.match(lines.at(line));
        if (!match.hasMatch())
            continue;
        const QString alpha = match.captured(4);
        (*palette)[line - 3]
            = QRGBA(intToByte(match.captured(1).toInt()), intToByte(match.captured(2).toInt()),
                intToByte(match.captured(3).toInt()), alpha.isEmpty() ? 255 : intToByte(alpha.toInt()));
    }
    return true;
}
