// Start-up to a usable window: the managers, the configuration, the main
// window with its editors, shown and painted once; beside the baseline of a
// bare QApplication with one empty QMainWindow. Both are timed from the start
// of a fresh process (the window's registries live once per process), so the
// benchmark starts itself several times and keeps the best of each.
// The splash second of the real start-up is left out: it is a fixed wait.
#include "app/mainwindow.h"
#include "benchutil.h"
#include "interface/qinterface.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qiconmanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qprogramdirectory.h"
#include "managers/qstylesheetmanager.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest/QTest>

namespace {

double shownAfter(QWidget& window, const QElapsedTimer& since)
{
    window.show();
    if (!QTest::qWaitForWindowExposed(&window))
        return -1; // never shown: the run doesn't count
    QCoreApplication::processEvents();
    return double(since.nsecsElapsed()) / 1e6;
}

int bare(int argc, char** argv, const QElapsedTimer& since)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(960, 720);
    std::printf("%.3f\n", shownAfter(window, since));
    return 0;
}

int full(int argc, char** argv, const QElapsedTimer& since, const QString& sample)
{
    QApplication application(argc, argv);
    // A folder of its own, linked to the build's data, so the run leaves no settings behind.
    QTemporaryDir folder;
    const QDir bin(QStringLiteral(PF_BIN_DIR));
    for (const char* name : {"syntax_mugen.xml", "syntax_lua.xml", "iconsets", "styles", "colorsets", "presets",
                             "languages"})
        QFile::link(bin.absoluteFilePath(QLatin1String(name)), folder.filePath(QLatin1String(name)));
    setProgramDirectory(folder.path());
    const QString dir = folder.path();
    presetMan = new QPresetManager(dir + QStringLiteral("/presets"));
    iconMan = new QIconManager(dir + QStringLiteral("/iconsets"));
    styleMan = new QStylesheetManager(dir + QStringLiteral("/styles"));
    langMan = new QLanguageManager(&application, dir + QStringLiteral("/languages"));
    colorMan = new QColorsetManager(dir + QStringLiteral("/colorsets"));
    configMan = new QConfigManager;
    configMan->fromFile(dir + QStringLiteral("/config.xml"));
    {
        MainWindow window;
        if (!sample.isEmpty())
            intf->openProject(sample);
        std::printf("%.3f\n", shownAfter(window, since));
    }
    delete configMan;
    delete colorMan;
    delete styleMan;
    delete iconMan;
    delete presetMan;
    return 0;
}

double bestOf(const QString& mode, int runs)
{
    double best = 1e300;
    for (int i = 0; i < runs; ++i) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {mode});
        child.waitForFinished(60000);
        bool ok = false;
        const double ms = QString::fromLatin1(child.readAllStandardOutput().trimmed()).toDouble(&ok);
        if (ok && ms >= 0 && ms < best)
            best = ms;
    }
    return best;
}

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer since;
    since.start();
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (mode == QLatin1String("--bare"))
        return bare(argc, argv, since);
    if (mode == QLatin1String("--window"))
        return full(argc, argv, since, QString());
    if (mode == QLatin1String("--sample"))
        return full(argc, argv, since, QStringLiteral(PF_SOURCE_DIR "/samples/ember/ember.def"));

    QCoreApplication application(argc, argv);
    constexpr int runs = 5;
    const double baseline = bestOf(QStringLiteral("--bare"), runs);
    const double window = bestOf(QStringLiteral("--window"), runs);
    const double sample = bestOf(QStringLiteral("--sample"), runs);
    std::printf("start-up, best of %d fresh processes (platform %s)\n", runs,
                qPrintable(qEnvironmentVariable("QT_QPA_PLATFORM", QStringLiteral("default"))));
    bench::report("bare QApplication + empty QMainWindow", baseline, baseline);
    bench::report("main window, usable (no project)", window, baseline, window < 500 ? "(under 500 ms)" : "(OVER 500 ms)");
    bench::report("main window with the sample open", sample, baseline);
    return 0;
}
