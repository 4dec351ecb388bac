// pugilforge-cli palette FILE [OUT]: a palette file's colours, or its conversion to ACT.
#include "qclicommand.h"

#include "formats/qabstractpalette.h"
#include "formats/qrgbpalette.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

QString formatOf(const QString& fileName)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("png") || suffix == QLatin1String("pcx") || suffix == QLatin1String("bmp"))
        return QStringLiteral("image");
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QAbstractPalette::forFile(suffix, file.peek(4))->name();
}

QString hex(const QRGBA& entry)
{
    return QStringLiteral("#%1%2%3%4")
        .arg(entry.r, 2, 16, QLatin1Char('0'))
        .arg(entry.g, 2, 16, QLatin1Char('0'))
        .arg(entry.b, 2, 16, QLatin1Char('0'))
        .arg(entry.a, 2, 16, QLatin1Char('0'));
}

int runPalette(const QCliRun& run)
{
    const QStringList& arguments = run.arguments();
    if (arguments.isEmpty() || arguments.size() > 2)
        return run.usage(QStringLiteral("palette FILE [OUT.act]"));
    const QString fileName = arguments.first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));

    QRGBA table[256] = {};
    QRGBPalette palette;
    palette.setPalette(&table);
    const QString format = formatOf(fileName);
    if (!palette.fromFile(fileName))
        return run.fail(fileName,
            format == QLatin1String("image") ? QStringLiteral("not an indexed image")
                                             : QStringLiteral("cannot be read"));
    if (!palette.fault().isEmpty())
        return run.fail(fileName, palette.fault());
    const QString target = arguments.value(1);
    if (!target.isEmpty() && !palette.toFile(target))
        return run.fail(target, QStringLiteral("cannot be written"));

    const int used = getPaletteColorCount(table);
    if (run.json()) {
        QJsonArray colours;
        for (const QRGBA& entry : table)
            colours.append(hex(entry));
        QJsonObject result { { QStringLiteral("file"), fileName }, { QStringLiteral("format"), format },
            { QStringLiteral("used"), used }, { QStringLiteral("colors"), colours } };
        if (!target.isEmpty())
            result.insert(QStringLiteral("written"), target);
        run.printJson(result);
        return 0;
    }
    run.print(QStringLiteral("%1: %2 palette, entries in use up to %3").arg(fileName, format).arg(used));
    if (!target.isEmpty()) {
        run.print(QStringLiteral("written as ACT: %1").arg(target));
        return 0;
    }
    for (int row = 0; row < 16; ++row) {
        QStringList line;
        for (int column = 0; column < 16; ++column)
            line.append(hex(table[row * 16 + column]));
        run.print(QStringLiteral("%1: %2").arg(row * 16, 3).arg(line.join(QLatin1Char(' '))));
    }
    return 0;
}

const QCliCommand command("palette", "palette FILE [OUT.act]",
    "show a palette's 256 colours (#rrggbbaa, entry 0 transparent) from ACT, RIFF, JASC, "
    "Painter, ACO, ASE or an indexed PNG/PCX/BMP, or convert it to ACT",
    runPalette);

} // namespace
