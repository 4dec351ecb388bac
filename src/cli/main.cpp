// pugilforge-cli-commands: the project's files without a window, for authors'
// scripts and continuous integration, started through the pugilforge-cli
// launcher (which answers --version itself). Output is readable text, or JSON
// with --json; a fault is one line on standard error and a non-zero exit.
// pugilforge-cli-core is the same program with only the commands that need
// nothing of Qt's GUI library, so that it loads none of it.
#include "qclicommand.h"
#include "qstderrprompt.h"


#include <QCoreApplication>
#include <QTextStream>

namespace {

// Stderr belongs to the one-line fault reports that scripts read; the
// toolkit's own chatter (platform notes, font fallbacks) stays out of it.
void quietMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        QTextStream(stderr) << "pugilforge-cli: " << message << '\n';
}

int printHelp(const QCliRun& run)
{
    run.print(QStringLiteral("usage: pugilforge-cli [--json] COMMAND [ARGUMENTS]"));
    run.print(QStringLiteral("       pugilforge-cli --version"));
    run.print(QString());
    for (const QCliCommand* command : QCliCommand::all())
        run.print(QStringLiteral("  %1\n      %2").arg(command->usage(), command->summary()));
    return 0;
}

/// The command the arguments name (the first that is not --json), or null.
const QCliCommand* namedCommand(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "--json") != 0)
            return QCliCommand::find(QString::fromLocal8Bit(argv[i]));
    return nullptr;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("PF_CLI_DEBUG"))
        qInstallMessageHandler(quietMessages);
    const auto application = QCliCommand::makeApplication(namedCommand(argc, argv), argc, argv);
    QStderrPrompt stderrPrompt;
    QPrompt::install(&stderrPrompt);

    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool json = arguments.removeAll(QStringLiteral("--json")) > 0;
    if (arguments.isEmpty())
        return printHelp(QCliRun(arguments, json)) + QCliRun::exitUsage;

    const QString name = arguments.takeFirst();
    const QCliRun run(arguments, json);
    if (name == QLatin1String("--help") || name == QLatin1String("help"))
        return printHelp(run);
    const QCliCommand* command = QCliCommand::find(name);
    if (!command) {
        QTextStream(stderr) << "pugilforge-cli: unknown command '" << name
                            << "' (see pugilforge-cli --help)\n";
        return QCliRun::exitUsage;
    }
    const int result = command->run(run);
    QPrompt::install(nullptr);
    return result;
}
