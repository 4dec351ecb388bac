// pugilforge-cli run PROJECT.def --engine PATH/mugen.exe [--params "..."] [--dry-run]:
// a test of the project in an engine installation, as the window's run does it:
// copies written into the engine's folders, the engine started through wine,
// the copies removed afterwards.
#include "qclicommand.h"
#include "qcliinput.h"

#include "managers/qmugenpresets.h"
#include "managers/qmugenrun.h"
#include "model/qproject.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

namespace {

/// The engine ran but ended with a fault: a non-zero exit, a crash, or errors in its logs.
constexpr int exitEngineFault = 4;

const char* const usageText = "run PROJECT.def --engine PATH/mugen.exe [--params \"...\"] [--dry-run]";

/// The value after `option`, taken out of `arguments`; false when the option has none.
bool takeOption(QStringList& arguments, const QString& option, QString& value)
{
    const qsizetype at = arguments.indexOf(option);
    if (at < 0)
        return true;
    if (at + 1 >= arguments.size())
        return false;
    value = arguments.at(at + 1);
    arguments.remove(at, 2);
    return true;
}

/// A command line as a shell would take it back.
QString shellLine(const QStringList& words)
{
    QStringList quoted;
    for (const QString& word : words)
        quoted << (word.contains(QLatin1Char(' ')) || word.isEmpty()
                ? QLatin1Char('"') + word + QLatin1Char('"')
                : word);
    return quoted.join(QLatin1Char(' '));
}

int dryRun(const QCliRun& run, QMugenRun& mugenRun)
{
    // The copies are written for real, but into a scratch folder, so the list
    // is what a run would write and the engine's folder is not touched.
    QTemporaryDir scratch;
    QStringList written;
    if (!scratch.isValid() || !mugenRun.writeCopies(scratch.path(), &written))
        return run.fail(mugenRun.engineDirectory(), mugenRun.errorString());
    const QDir engine(mugenRun.engineDirectory());
    QStringList files;
    for (const QString& file : std::as_const(written))
        files << engine.filePath(file);
    const QStringList command = QStringList { QMugenRun::launcher() } + mugenRun.arguments();
    if (run.json()) {
        run.printJson(QJsonObject { { QStringLiteral("command"), QJsonArray::fromStringList(command) },
            { QStringLiteral("workingDirectory"), mugenRun.engineDirectory() },
            { QStringLiteral("files"), QJsonArray::fromStringList(files) } });
        return 0;
    }
    run.print(QStringLiteral("command: %1").arg(shellLine(command)));
    run.print(QStringLiteral("working directory: %1").arg(mugenRun.engineDirectory()));
    for (const QString& file : std::as_const(files))
        run.print(QStringLiteral("writes: %1").arg(file));
    return 0;
}

int runRun(const QCliRun& run)
{
    QStringList arguments = run.arguments();
    const bool dry = arguments.removeAll(QStringLiteral("--dry-run")) > 0;
    QString executable;
    QString parameters = defaultMugenParameters();
    if (!takeOption(arguments, QStringLiteral("--engine"), executable)
        || !takeOption(arguments, QStringLiteral("--params"), parameters) || executable.isEmpty()
        || arguments.size() != 1)
        return run.usage(QLatin1String(usageText));
    const QString fileName = arguments.first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));
    const QString refusal = notADefinition(fileName);
    if (!refusal.isEmpty())
        return run.fail(fileName, refusal);
    if (!QFileInfo(executable).isFile())
        return run.fail(executable, QStringLiteral("no such engine executable"));

    QProject::init();
    QProject project;
    if (!project.open(fileName, 0, false, false))
        return run.fail(fileName, QStringLiteral("can't read the file"));
    QMugenRun mugenRun(executable, parameters, { &project });
    if (dry)
        return mugenRun.prepare() ? dryRun(run, mugenRun) : QCliRun::exitUnreadable;

    // Faults of the run itself were said on standard error by the run.
    const int exitCode = mugenRun.exec();
    if (exitCode < 0)
        return QCliRun::exitUnreadable;
    if (run.json()) {
        QJsonArray errors;
        for (const QMugenLogError& error : mugenRun.logErrors())
            errors.append(QJsonObject { { QStringLiteral("text"), error.text },
                { QStringLiteral("file"), error.file }, { QStringLiteral("line"), error.line } });
        run.printJson(
            QJsonObject { { QStringLiteral("exitCode"), exitCode }, { QStringLiteral("errors"), errors } });
    } else {
        run.print(QStringLiteral("engine exited with code %1").arg(exitCode));
    }
    return exitCode == 0 && mugenRun.logErrors().isEmpty() ? 0 : exitEngineFault;
}

const QCliCommand command("run", usageText,
    "test a project in an engine installation: write copies of it into the engine's folders "
    "as \"pf3_0\", start the engine through wine, remove the copies when it ends; "
    "--dry-run prints the command line and the files it would write",
    runRun);

} // namespace
