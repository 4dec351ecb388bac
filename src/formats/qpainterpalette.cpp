#include "qpainterpalette.h"

#include <QIODevice>
#include <QRegularExpression>
#include <QStringList>

bool QPainterPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    const QStringList lines = QString::fromLatin1(device->readAll()).split(QLatin1Char('\n'));
    static const QRegularExpression entry(QStringLiteral(
        "^R:\\s?(\\d{1,3}),\\s?G:\\s?(\\d{1,3}),\\s?B:\\s?(\\d{1,3})(?:\\s?A:\\s?(\\d{1,3}))?"));
    int next = 0;
    for (const QString& line : lines) {
        if (next == 256)
            break;
        const QRegularExpressionMatch match = entry.match(line);
        if (!match.hasMatch())
            continue;
        const QString alpha = match.captured(4);
        (*palette)[next++] = QRGBA(intToByte(match.captured(1).toInt()), intToByte(match.captured(2).toInt()),
            intToByte(match.captured(3).toInt()), alpha.isEmpty() ? 255 : intToByte(alpha.toInt()));
    }
    return true;
}
