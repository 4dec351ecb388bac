// pugilforge-cli cmd FILE: the commands of a CMD file.
#include "qclicommand.h"
#include "qcliinput.h"

#include "model/qcommand.h"
#include "model/qcommands.h"
#include "model/qproject.h"
#include "text/qcommandparam.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTextBlock>
#include <QTextDocument>

namespace {

/// What the engine takes when neither the command nor [Defaults] gives a time.
constexpr int engineTime = 15;
constexpr int engineBufferTime = 1;

/// The integer value of `key` on the lines from `first` to `last`, or `fallback`.
int lineValue(const QTextDocument* document, int first, int last, const QString& key, int fallback)
{
    for (QTextBlock block = document->findBlockByNumber(first);
         block.isValid() && block.blockNumber() <= last; block = block.next()) {
        const QString line = block.text().section(QLatin1Char(';'), 0, 0);
        const int equals = line.indexOf(QLatin1Char('='));
        if (equals > 0 && line.left(equals).trimmed().compare(key, Qt::CaseInsensitive) == 0) {
            bool ok = false;
            const int value = line.mid(equals + 1).trimmed().toInt(&ok);
            if (ok)
                return value;
        }
    }
    return fallback;
}

/// The lines of the [Defaults] group, or an empty range.
QPair<int, int> defaultsLines(const QTextDocument* document)
{
    int first = -1;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        const QString line = block.text().trimmed();
        if (!line.startsWith(QLatin1Char('[')))
            continue;
        if (first >= 0)
            return { first, block.blockNumber() - 1 };
        if (line.startsWith(QLatin1String("[defaults]"), Qt::CaseInsensitive))
            first = block.blockNumber();
    }
    return { first, first >= 0 ? document->blockCount() - 1 : -1 };
}

QString sequenceOf(const QCommand* command)
{
    const auto* param = static_cast<const QCommandParam*>(
        command->parameter(QCommand::idCommand, QCommandParam::paramSubType));
    return param ? param->toString() : QString();
}

int runCmd(const QCliRun& run)
{
    if (run.arguments().size() != 1)
        return run.usage(QStringLiteral("cmd FILE"));
    const QString fileName = run.arguments().first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));
    const QString refusal = notEngineText(fileName, QStringLiteral("not a CMD file"));
    if (!refusal.isEmpty())
        return run.fail(fileName, refusal);
    QProject::init();
    QCommands commands(nullptr);
    if (!commands.fromFile(fileName, 0, false))
        return run.fail(fileName, QStringLiteral("can't read the file"));

    const QTextDocument* document = commands.document();
    const QPair<int, int> defaults = defaultsLines(document);
    const int defaultTime
        = lineValue(document, defaults.first, defaults.second, QStringLiteral("command.time"), engineTime);
    const int defaultBuffer = lineValue(
        document, defaults.first, defaults.second, QStringLiteral("command.buffer.time"), engineBufferTime);
    QJsonArray list;
    if (!run.json())
        run.print(QStringLiteral("%1: %2 commands").arg(fileName).arg(commands.count()));
    for (int i = 0; i < commands.count(); ++i) {
        const QCommand* command = commands.at(i);
        const int first = command->line();
        const int last = command->lastLine();
        const int time = lineValue(document, first, last, QStringLiteral("time"), defaultTime);
        const int buffer = lineValue(document, first, last, QStringLiteral("buffer.time"), defaultBuffer);
        if (run.json()) {
            list.append(QJsonObject { { QStringLiteral("name"), command->name(false) },
                { QStringLiteral("command"), sequenceOf(command) },
                { QStringLiteral("length"), command->length() }, { QStringLiteral("time"), time },
                { QStringLiteral("bufferTime"), buffer }, { QStringLiteral("line"), first + 1 } });
        } else {
            run.print(QStringLiteral("%1: \"%2\" = %3 (length %4, time %5, buffer %6)")
                          .arg(i)
                          .arg(command->name(false), sequenceOf(command))
                          .arg(command->length())
                          .arg(time)
                          .arg(buffer));
        }
    }
    if (run.json())
        run.printJson(QJsonObject { { QStringLiteral("file"), fileName },
            { QStringLiteral("commandCount"), commands.count() }, { QStringLiteral("commands"), list } });
    return 0;
}

const QCliCommand command("cmd", "cmd FILE",
    "list the commands of a CMD file: name, key sequence and its length, time and "
    "buffer time",
    runCmd);

} // namespace
