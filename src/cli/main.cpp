// pugilforge-cli: the project's files without a window, for authors' scripts
// and continuous integration. Output is readable text, or JSON with --json;
// a fault is one line on standard error and a non-zero exit.
#include "qclicommand.h"
#include "qstderrprompt.h"

#include "text/qcodecs.h"

#include <QGuiApplication>
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

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("PF_CLI_DEBUG"))
        qInstallMessageHandler(quietMessages);
    // Images and text documents need the GUI library but never a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QStderrPrompt stderrPrompt;
    QPrompt::install(&stderrPrompt);
    initCodecs();

    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool json = arguments.removeAll(QStringLiteral("--json")) > 0;
    if (arguments.isEmpty())
        return printHelp(QCliRun(arguments, json)) + QCliRun::exitUsage;

    const QString name = arguments.takeFirst();
    const QCliRun run(arguments, json);
    if (name == QLatin1String("--help") || name == QLatin1String("help"))
        return printHelp(run);
    if (name == QLatin1String("--version")) {
        run.print(QStringLiteral("pugilforge-cli " PF_VERSION));
        return 0;
    }
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
