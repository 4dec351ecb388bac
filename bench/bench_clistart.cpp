// The start of the command-line tool: `pugilforge-cli --version` (answered
// by the launcher), `--help`, and real commands on the sample character's
// small files, beside a bare QCoreApplication program that prints one line.
// Each is started as a process of its own, the best of many runs; the runs
// take turns so that a slow moment of the machine hits all alike. Beside the
// wall time, the processor time the child used (user and system, from
// wait4) is shown: on a machine busy with other work it is the steadier of
// the two. The files are small on purpose: what is measured is what a
// command pays before it reads anything, which a script calling it once per
// file pays each time.
//
// bench_clistart [REPETITIONS [OTHER_CLI]]: with the pugilforge-cli of
// another build, each command is measured with both in the same run.

#include "benchutil.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <vector>

extern char** environ;

namespace {

struct Start
{
    QByteArray label;
    QList<QByteArray> arguments; ///< program first
    double best = 1e300;
    double bestCpu = 1e300;
};

struct Times
{
    double wall = -1; ///< milliseconds from the start of the program to its end; negative when it could not run
    double cpu = -1; ///< milliseconds of processor time, user and system
};

double milliseconds(const timeval& time)
{
    return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
}

Times runOnce(const QList<QByteArray>& arguments)
{
    std::vector<char*> argv;
    for (const QByteArray& argument : arguments)
        argv.push_back(const_cast<char*>(argument.constData()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    QElapsedTimer timer;
    timer.start();
    pid_t child = 0;
    const int failed = posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage usage {};
    if (failed != 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return {};
    return { double(timer.nsecsElapsed()) / 1e6, milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime) };
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QString here = QCoreApplication::applicationDirPath();
    const QByteArray bare = QFile::encodeName(here + QStringLiteral("/bare_application"));
    const QByteArray cli = QFile::encodeName(QDir::cleanPath(here + QStringLiteral("/../bin/pugilforge-cli")));
    const QString sample = QStringLiteral(PF_SOURCE_DIR "/samples/ember/");
    const auto file = [&](const char* name) { return QFile::encodeName(sample + QLatin1String(name)); };
    const QByteArray config = QFile::encodeName(QStringLiteral(PF_SOURCE_DIR "/data/config.xml"));
    const int repetitions = argc > 1 ? QByteArray(argv[1]).toInt() : 40;
    const QByteArray other = argc > 2 ? QByteArray(argv[2]) : QByteArray();

    std::vector<Start> commands = {
        { "bare QCoreApplication (baseline)", { bare } },
        { "pugilforge-cli --version", { cli, "--version" } },
        { "pugilforge-cli --help", { cli, "--help" } },
        { "pugilforge-cli config config.xml", { cli, "config", config } },
        { "pugilforge-cli palette ember1.act", { cli, "palette", file("ember1.act") } },
        { "pugilforge-cli sff info ember.sff", { cli, "sff", "info", file("ember.sff") } },
        { "pugilforge-cli snd info ember.snd", { cli, "snd", "info", file("ember.snd") } },
        { "pugilforge-cli tokens ember.cmd", { cli, "tokens", file("ember.cmd") } },
        { "pugilforge-cli cmd ember.cmd", { cli, "cmd", file("ember.cmd") } },
        { "pugilforge-cli air ember.air", { cli, "air", file("ember.air") } },
        { "pugilforge-cli check ember.cns", { cli, "check", file("ember.cns") } },
        { "pugilforge-cli info ember.def", { cli, "info", file("ember.def") } },
    };
    std::vector<Start> starts;
    for (const Start& command : commands) {
        starts.push_back(command);
        if (!other.isEmpty() && command.arguments.front() == cli) {
            Start before = command;
            before.label = "  other: " + command.label.mid(int(qstrlen("pugilforge-cli ")));
            before.arguments.front() = other;
            starts.push_back(before);
        }
    }
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round) {
        for (Start& start : starts) {
            for (int i = 0; i < qMax(1, repetitions / rounds); ++i) {
                const Times times = runOnce(start.arguments);
                if (times.wall < 0) {
                    std::printf("could not run %s\n", start.label.constData());
                    return 1;
                }
                start.best = qMin(start.best, times.wall);
                start.bestCpu = qMin(start.bestCpu, times.cpu);
            }
        }
    }
    std::printf("best of %d starts of each: wall time\n", repetitions);
    for (const Start& start : starts)
        bench::report(start.label.constData(), start.best, starts.front().best);
    std::printf("processor time (user and system) of the same starts\n");
    for (const Start& start : starts)
        bench::report(start.label.constData(), start.bestCpu, starts.front().bestCpu);
    return 0;
}
