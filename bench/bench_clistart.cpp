// The start of the command-line tool: `pugilforge-cli --version` (answered
// by the launcher) and `pugilforge-cli --help` (the commands program, with the
// libraries every command loads) beside a bare QCoreApplication program that
// prints one line, each started as a process of its own, the best of many runs.

#include "benchutil.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace {

/// Milliseconds from the start of the program to its end; negative when it could not run.
double runOnce(const QByteArray& program, const QByteArray& argument)
{
    char* arguments[] = { const_cast<char*>(program.constData()), const_cast<char*>(argument.constData()), nullptr };
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    QElapsedTimer timer;
    timer.start();
    pid_t child = 0;
    const int failed = posix_spawn(&child, program.constData(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failed != 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return -1;
    return double(timer.nsecsElapsed()) / 1e6;
}

double bestOf(int repetitions, const QByteArray& program, const QByteArray& argument)
{
    double best = 1e300;
    for (int i = 0; i < repetitions; ++i) {
        const double ms = runOnce(program, argument);
        if (ms < 0)
            return -1;
        best = qMin(best, ms);
    }
    return best;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QString here = QCoreApplication::applicationDirPath();
    const QByteArray bare = QFile::encodeName(here + QStringLiteral("/bare_application"));
    const QByteArray cli = QFile::encodeName(QDir::cleanPath(here + QStringLiteral("/../bin/pugilforge-cli")));
    const int repetitions = argc > 1 ? QByteArray(argv[1]).toInt() : 40;
    // Alternate the two so that a slow moment of the machine hits both alike.
    double bareBest = 1e300;
    double cliBest = 1e300;
    double commandsBest = 1e300;
    for (int round = 0; round < 4; ++round) {
        bareBest = qMin(bareBest, bestOf(repetitions / 4, bare, QByteArray()));
        cliBest = qMin(cliBest, bestOf(repetitions / 4, cli, QByteArrayLiteral("--version")));
        commandsBest = qMin(commandsBest, bestOf(repetitions / 4, cli, QByteArrayLiteral("--help")));
    }
    if (bareBest < 0 || cliBest < 0 || commandsBest < 0) {
        std::printf("could not start %s or %s\n", bare.constData(), cli.constData());
        return 1;
    }
    std::printf("best of %d starts of each\n", repetitions);
    bench::report("bare QCoreApplication (baseline)", bareBest, bareBest);
    bench::report("pugilforge-cli --version", cliBest, bareBest);
    bench::report("pugilforge-cli --help (commands program)", commandsBest, bareBest);
    return 0;
}
