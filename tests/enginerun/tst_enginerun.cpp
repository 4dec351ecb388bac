// Runs of the engine through a stand-in launcher, the faults read from its
// logs, the backups of a project and the command-line run.
#include "clirunner.h"
#include "enginekit.h"
#include "projectkit.h"
#include "qrecordingprompt.h"

#include "managers/qmugenlog.h"
#include "managers/qmugenpresets.h"
#include "managers/qmugenrun.h"
#include "model/qbakmanager.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"

#include <QTemporaryDir>
#include <QTextCursor>
#include <QTimer>
#include <QtTest>

namespace {

const QByteArray heroDef = "[Info]\r\nname = \"Hero\"\r\nmugenversion = 1.0\r\n\r\n[Files]\r\n"
                           "cmd = hero.cmd\r\ncns = hero.cns\r\nst = hero.cns\r\nsprite = hero.sff\r\n";
const QByteArray heroCns
    = "[Statedef 0]\r\ntype = S\r\n\r\n[State 0, 1]\r\ntype = VelSet\r\ntrigger1 = 1\r\nx = 0\r\n";
const QByteArray heroCmd = "[Command]\r\nname = \"x\"\r\ncommand = x\r\n";

} // namespace

class TestEngineRun : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void presetsAndProjectNumbers();
    void characterCopiesHoldUnsavedEditsAndGoAfterTheRun();
    void stagesAndMotifsGoToTheirFolders();
    void launcherMissingCrashingOrFailing();
    void secondRunRefusedAndCancelCleansUp();
    void unwritableTargetsLeaveNothing();
    void engineLogFaultsPointAtTheProject();
    void backupsHoldEditsAndLoadOverTheRealFiles();
    void commandLineRun();

private:
    /// A project folder holding `files`, opened.
    QProject* openProject(
        const QString& folder, const QString& defName, const QMap<QString, QByteArray>& files);
    QString engineDir() const { return m_root.filePath(QStringLiteral("engine")); }
    QString executable() const { return engineDir() + QStringLiteral("/mugen.exe"); }
    QString record() const { return m_root.filePath(QStringLiteral("record.txt")); }

    QTemporaryDir m_root;
    QList<QProject*> m_projects;
};

void TestEngineRun::initTestCase()
{
    initCodecs();
    QProject::init();
    enginekit::installLauncher(m_root.filePath(QStringLiteral("bin")), record());
}

void TestEngineRun::init()
{
    // An engine installation with files of its own, which a run must leave as they are.
    QDir(engineDir()).removeRecursively();
    kit::writeBytes(executable(), "MZ");
    kit::writeBytes(engineDir() + QStringLiteral("/chars/kfm/kfm.def"), "[Info]\r\nname = \"kfm\"\r\n");
    kit::writeBytes(engineDir() + QStringLiteral("/data/system.def"), "[Info]\r\n");
    kit::writeBytes(engineDir() + QStringLiteral("/mugen.log"), "an old log\n");
    QFile::remove(record());
    for (const char* name : { "STANDIN_EXIT", "STANDIN_SLEEP", "STANDIN_CRASH", "STANDIN_LOG" })
        qunsetenv(name);
}

void TestEngineRun::cleanup()
{
    qDeleteAll(m_projects);
    m_projects.clear();
}

QProject* TestEngineRun::openProject(
    const QString& folder, const QString& defName, const QMap<QString, QByteArray>& files)
{
    const QString dir = m_root.filePath(folder);
    QDir(dir).removeRecursively();
    for (auto it = files.cbegin(); it != files.cend(); ++it)
        kit::writeBytes(dir + QLatin1Char('/') + it.key(), it.value());
    auto* project = new QProject;
    m_projects.append(project);
    if (!project->open(dir + QLatin1Char('/') + defName, 0, false, false))
        qWarning("can't open %s", qPrintable(defName));
    return project;
}

void TestEngineRun::presetsAndProjectNumbers()
{
    QCOMPARE(mugenPresets().size(), 7);
    QCOMPARE(defaultMugenParameters(), QStringLiteral("%0 %0"));
    QCOMPARE(mugenPresets().at(5).label, QStringLiteral("Current motif"));
    QCOMPARE(mugenPresets().at(6).parameters, QStringLiteral("kfm kfm -r %0"));
    QCOMPARE(
        QMugenRun::projectNumbers(QStringLiteral("%0 %1 -s %0 %10 %123")), (QList<int> { 0, 1, 10, 12 }));
    QVERIFY(QMugenRun::projectNumbers(QStringLiteral("kfm kfm")).isEmpty());

    // Without a project token there is nothing to test; a token past the open
    // projects goes through as it stands, and "%1" leaves "%10" alone.
    QRecordingPrompt prompt;
    QProject* hero = openProject(
        QStringLiteral("hero"), QStringLiteral("hero.def"), { { QStringLiteral("hero.def"), heroDef } });
    QMugenRun none(executable(), QStringLiteral("kfm kfm"), { hero });
    QVERIFY(!none.prepare());
    QCOMPARE(prompt.entries().last().text,
        QStringLiteral(
            "Oops, wrong parameters on the M.U.G.E.N. configuration. Check it in the Tools / Options."));
    QMugenRun twoTabs(executable(), QStringLiteral("%1 %10 %0"), { hero, hero });
    QVERIFY(twoTabs.prepare());
    QCOMPARE(twoTabs.arguments(),
        (QStringList {
            executable(), QStringLiteral("pf3_1"), QStringLiteral("%10"), QStringLiteral("pf3_0") }));
    QCOMPARE(twoTabs.copies().size(), 2);

    // A storyboard can't be started: said once, left out, the rest goes on.
    QProject* story = openProject(QStringLiteral("story"), QStringLiteral("intro.def"),
        { { QStringLiteral("intro.def"), "[SceneDef]\r\nspr = intro.sff\r\n" } });
    prompt.clear();
    QMugenRun mixed(executable(), QStringLiteral("%0 %1"), { story, hero });
    QVERIFY(mixed.prepare());
    QCOMPARE(prompt.entries().size(), 1);
    QCOMPARE(
        prompt.entries().first().text, QStringLiteral("Oops, you can't run Storyboard, Font or Fight FX."));
    QCOMPARE(mixed.arguments().mid(1), (QStringList { QStringLiteral("%0"), QStringLiteral("pf3_1") }));
}

void TestEngineRun::characterCopiesHoldUnsavedEditsAndGoAfterTheRun()
{
    QRecordingPrompt prompt;
    QProject* hero = openProject(QStringLiteral("hero"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), heroDef }, { QStringLiteral("hero.cns"), heroCns },
            { QStringLiteral("hero.cmd"), heroCmd } });
    QCOMPARE(hero->statesCount(), 1);
    QTextCursor(hero->states(0)->document()).insertText(QStringLiteral("; unsaved edit\n"));
    const QMap<QString, QByteArray> projectBefore
        = enginekit::snapshot(m_root.filePath(QStringLiteral("hero")));
    const QMap<QString, QByteArray> engineBefore = enginekit::snapshot(engineDir());

    QMugenRun run(executable(), QStringLiteral("%0 %0"), { hero });
    bool copiesGoneAtTheEnd = false;
    connect(&run, &QMugenRun::finished, this, [&](int exitCode) {
        copiesGoneAtTheEnd = exitCode == 0 && !QFileInfo::exists(engineDir() + QStringLiteral("/chars/pf3_0"));
    });
    QCOMPARE(run.exec(), 0);
    QVERIFY(copiesGoneAtTheEnd);
    QVERIFY(prompt.entries().isEmpty());

    const enginekit::Record seen = enginekit::readRecord(record());
    QCOMPARE(
        seen.arguments, (QStringList { executable(), QStringLiteral("pf3_0"), QStringLiteral("pf3_0") }));
    QCOMPARE(
        QFileInfo(seen.workingDirectory).canonicalFilePath(), QFileInfo(engineDir()).canonicalFilePath());
    // Written once, under the engine's names, equal to what the models write.
    QTemporaryDir reference;
    QStringList created;
    QVERIFY(hero->saveToRun(reference.path(), QStringLiteral("pf3_0"), created));
    QVERIFY(kit::readBytes(reference.filePath(QStringLiteral("hero.cns"))).contains("; unsaved edit"));
    QMap<QString, QByteArray> expected;
    const QMap<QString, QByteArray> sums = enginekit::checksums(reference.path());
    for (auto it = sums.cbegin(); it != sums.cend(); ++it)
        expected.insert(QStringLiteral("chars/pf3_0/") + it.key(), it.value());
    expected.insert(QStringLiteral("data/system.def"),
        enginekit::checksums(engineDir() + QStringLiteral("/data")).value(QStringLiteral("system.def")));
    QCOMPARE(seen.files, expected);

    // Afterwards the engine's folder and the author's are as they were, and the edit is still unsaved.
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    QCOMPARE(enginekit::snapshot(m_root.filePath(QStringLiteral("hero"))), projectBefore);
    QVERIFY(hero->states(0)->isModified());
    QVERIFY(!QMugenRun::isActive());

    // An engine without a "chars" folder gets one for the run, and loses it again.
    QDir(engineDir() + QStringLiteral("/chars")).removeRecursively();
    const QMap<QString, QByteArray> bare = enginekit::snapshot(engineDir());
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { hero }).exec(), 0);
    QVERIFY(enginekit::readRecord(record()).files.contains(QStringLiteral("chars/pf3_0/pf3_0.def")));
    QCOMPARE(enginekit::snapshot(engineDir()), bare);
}

void TestEngineRun::stagesAndMotifsGoToTheirFolders()
{
    QRecordingPrompt prompt;
    const QMap<QString, QByteArray> engineBefore = enginekit::snapshot(engineDir());
    QProject* stage = openProject(QStringLiteral("yard"), QStringLiteral("yard.def"),
        { { QStringLiteral("yard.def"),
            "[Info]\r\nname = \"Yard\"\r\n\r\n[BGdef]\r\n"
            "spr = yard.sff\r\n" } });
    QCOMPARE(stage->type(), ptStage);
    QCOMPARE(QMugenRun(executable(), QStringLiteral("-r %0"), { stage }).exec(), 0);
    enginekit::Record seen = enginekit::readRecord(record());
    QCOMPARE(seen.arguments, (QStringList { executable(), QStringLiteral("-r"), QStringLiteral("pf3_0") }));
    QVERIFY(seen.files.contains(QStringLiteral("stages/pf3_0.def")));
    QVERIFY(!seen.files.contains(QStringLiteral("chars/pf3_0/pf3_0.def")));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    QVERIFY(kit::readBytes(m_root.filePath(QStringLiteral("yard/yard.def"))).contains("spr = yard.sff"));

    QProject* motif = openProject(QStringLiteral("menu"), QStringLiteral("system.def"),
        { { QStringLiteral("system.def"),
            "[Info]\r\nname = \"Menu\"\r\n\r\n[Files]\r\n"
            "spr = system.sff\r\n\r\n[TitleBGdef]\r\n" } });
    QCOMPARE(motif->type(), ptMotif);
    QCOMPARE(QMugenRun(executable(), QStringLiteral("kfm kfm -r %0"), { motif }).exec(), 0);
    seen = enginekit::readRecord(record());
    QCOMPARE(seen.arguments.mid(1),
        (QStringList { QStringLiteral("kfm"), QStringLiteral("kfm"), QStringLiteral("-r"),
            QStringLiteral("pf3_0/system.def") }));
    QVERIFY(seen.files.contains(QStringLiteral("data/pf3_0/system.def")));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    QVERIFY(prompt.entries().isEmpty());
}

void TestEngineRun::launcherMissingCrashingOrFailing()
{
    QProject* hero = openProject(QStringLiteral("hero"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), heroDef }, { QStringLiteral("hero.cns"), heroCns } });
    const QMap<QString, QByteArray> engineBefore = enginekit::snapshot(engineDir());
    QRecordingPrompt prompt;

    // An engine that exits at once with a fault: its code comes back, the copies go.
    qputenv("STANDIN_EXIT", "3");
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { hero }).exec(), 3);
    QCOMPARE(prompt.count(QStringLiteral("warning")), 1);
    QCOMPARE(prompt.entries().first().text,
        QStringLiteral("\"wine ") + executable()
            + QStringLiteral("\" ended with the code 3.\nthe stand-in refuses ") + executable());
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    qunsetenv("STANDIN_EXIT");
    prompt.clear();

    // A crash: said, and cleaned up all the same.
    qputenv("STANDIN_CRASH", "1");
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { hero }).exec(), -1);
    QCOMPARE(prompt.count(QStringLiteral("warning")), 1);
    QVERIFY(prompt.entries().last().text.startsWith(QStringLiteral("The engine stopped unexpectedly")));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    qunsetenv("STANDIN_CRASH");

    // No launcher on the system: a message naming the command, and the wait doesn't hang.
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", m_root.filePath(QStringLiteral("nothing")).toLocal8Bit());
    prompt.clear();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { hero }).exec(), -1);
    qputenv("PATH", path);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(prompt.count(QStringLiteral("critical")), 1);
    QVERIFY2(
        prompt.entries().first().text.contains(QStringLiteral("\"wine ") + executable() + QLatin1Char('"')),
        qPrintable(prompt.entries().first().text));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);

    // A missing executable stops before anything is written, without a word.
    prompt.clear();
    QFile::remove(record());
    QCOMPARE(QMugenRun(engineDir() + QStringLiteral("/none.exe"), QStringLiteral("%0"), { hero }).exec(), -1);
    QVERIFY(prompt.entries().isEmpty());
    QVERIFY(!QFileInfo::exists(record()));
}

void TestEngineRun::secondRunRefusedAndCancelCleansUp()
{
    QProject* hero = openProject(QStringLiteral("hero"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), heroDef }, { QStringLiteral("hero.cns"), heroCns } });
    const QMap<QString, QByteArray> engineBefore = enginekit::snapshot(engineDir());
    QRecordingPrompt prompt;
    qputenv("STANDIN_SLEEP", "30");
    QMugenRun first(executable(), QStringLiteral("%0"), { hero });
    bool sawCopies = false;
    int second = 0;
    // The wait keeps events flowing: timers fire while the engine runs.
    connect(&first, &QMugenRun::started, this, [&] {
        QTimer::singleShot(50, this, [&] {
            sawCopies = QFileInfo::exists(engineDir() + QStringLiteral("/chars/pf3_0/pf3_0.def"));
            second = QMugenRun(executable(), QStringLiteral("%0"), { hero }).exec();
            first.cancel();
        });
    });
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(first.exec(), -1);
    QVERIFY(timer.elapsed() < 10000);
    QVERIFY(sawCopies);
    QCOMPARE(second, -1);
    QCOMPARE(prompt.entries().size(), 1);
    QCOMPARE(prompt.entries().first().title, QStringLiteral("Warning!"));
    QCOMPARE(prompt.entries().first().text,
        QStringLiteral("Oops, you can run only one instance of M.U.G.E.N. at the same time."));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    QVERIFY(!QMugenRun::isActive());
}

void TestEngineRun::unwritableTargetsLeaveNothing()
{
    QProject* hero = openProject(QStringLiteral("hero"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), heroDef }, { QStringLiteral("hero.cns"), heroCns } });
    QRecordingPrompt prompt;

    // A read-only engine folder.
    const QString chars = engineDir() + QStringLiteral("/chars");
    const QFile::Permissions writable = QFile(chars).permissions();
    QFile::setPermissions(chars, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup);
    QMap<QString, QByteArray> engineBefore = enginekit::snapshot(engineDir());
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { hero }).exec(), -1);
    QFile::setPermissions(chars, writable);
    QCOMPARE(prompt.count(QStringLiteral("critical")), 1);
    QVERIFY2(prompt.entries().first().text.contains(QStringLiteral("read-only")),
        qPrintable(prompt.entries().first().text));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    QVERIFY(!QFileInfo::exists(record()));

    // A copy already in the place of the run's: not ours to overwrite or remove.
    kit::writeBytes(chars + QStringLiteral("/pf3_0/mine.def"), "mine");
    engineBefore = enginekit::snapshot(engineDir());
    prompt.clear();
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { hero }).exec(), -1);
    QVERIFY(prompt.entries().first().text.contains(QStringLiteral("is already in the engine's folder")));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    QDir(chars + QStringLiteral("/pf3_0")).removeRecursively();

    // A file of the project whose copy can't be written (its folder would
    // be the copy's own DEF) stops the run after the DEF was written: that goes again.
    QProject* broken = openProject(QStringLiteral("broken"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), "[Files]\r\nsprite = pf3_0.def/hero.sff\r\n" },
            { QStringLiteral("pf3_0.def/hero.sff"), "not a sprite file" } });
    engineBefore = enginekit::snapshot(engineDir());
    prompt.clear();
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { broken }).exec(), -1);
    QCOMPARE(prompt.count(QStringLiteral("critical")), 1);
    QVERIFY(prompt.entries().first().text.contains(QStringLiteral("couldn't be written")));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);

    // A character naming a file outside its folder would write outside the copy.
    QProject* escaping = openProject(QStringLiteral("escaping"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), "[Files]\r\ncns = ../common/hero.cns\r\n" } });
    prompt.clear();
    QCOMPARE(QMugenRun(executable(), QStringLiteral("%0"), { escaping }).exec(), -1);
    QVERIFY(prompt.entries().first().text.contains(QStringLiteral("outside its folder")));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);
    QVERIFY(!QFileInfo::exists(record()));
}

void TestEngineRun::engineLogFaultsPointAtTheProject()
{
    QList<QMugenLogError> errors = mugenLog::parse(
        QStringLiteral("Loading chars\\pf3_0\\pf3_0.def\r\nError loading chars\\pf3_0\\pf3_0.def\r\n"
                       "Error in chars/pf3_0/hero.cns:\r\nLine 7: unknown state controller type\r\n\r\n"
                       "Error: out of memory\r\nstages/pf3_1.sff(3): bad header\r\nall fine\r\n"));
    QCOMPARE(errors.size(), 3);
    QCOMPARE(errors.at(0).copyFile, QStringLiteral("chars/pf3_0/pf3_0.def"));
    QCOMPARE(errors.at(0).line, 0);
    QCOMPARE(errors.at(1).copyFile, QStringLiteral("chars/pf3_0/hero.cns"));
    QCOMPARE(errors.at(1).line, 7);
    QCOMPARE(errors.at(1).text,
        QStringLiteral("Error in chars/pf3_0/hero.cns: Line 7: unknown state controller type"));
    QCOMPARE(errors.at(2).copyFile, QStringLiteral("stages/pf3_1.sff"));
    QCOMPARE(errors.at(2).number, 1);
    QCOMPARE(errors.at(2).line, 3);
    QVERIFY(mugenLog::parse(QStringLiteral("Loading kfm\nDone\n")).isEmpty());

    // Through a run: the log the engine writes now is read, mapped to the
    // project's own file; an old log alone says nothing.
    QProject* hero = openProject(QStringLiteral("hero"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), heroDef }, { QStringLiteral("Hero.CNS"), heroCns } });
    QRecordingPrompt prompt;
    QMugenRun quiet(executable(), QStringLiteral("%0"), { hero });
    QCOMPARE(quiet.exec(), 0);
    QVERIFY(quiet.logErrors().isEmpty());
    qputenv("STANDIN_LOG", "Error in chars/pf3_0/hero.cns:5 invalid value");
    QMugenRun run(executable(), QStringLiteral("%0 %0"), { hero });
    QCOMPARE(run.exec(), 0);
    QCOMPARE(run.logErrors().size(), 1);
    QCOMPARE(run.logErrors().first().file, m_root.filePath(QStringLiteral("hero/Hero.CNS")));
    QCOMPARE(run.logErrors().first().line, 5);
    QCOMPARE(prompt.count(QStringLiteral("warning")), 1);
    QVERIFY(prompt.entries().first().text.contains(
        m_root.filePath(QStringLiteral("hero/Hero.CNS")) + QStringLiteral(", line 5")));
}

void TestEngineRun::backupsHoldEditsAndLoadOverTheRealFiles()
{
    QProject* hero = openProject(QStringLiteral("hero"), QStringLiteral("hero.def"),
        { { QStringLiteral("hero.def"), heroDef }, { QStringLiteral("hero.cns"), heroCns } });
    const QString def = m_root.filePath(QStringLiteral("hero/hero.def"));
    // Folders of other names and hidden ones: listed last, and not at all.
    QDir().mkpath(m_root.filePath(QStringLiteral("hero/backup/01-02-2025 9-5-3 am")));
    QDir().mkpath(m_root.filePath(QStringLiteral("hero/backup/01-02-2025 10-0-0 am")));
    QDir().mkpath(m_root.filePath(QStringLiteral("hero/backup/old")));
    QDir().mkpath(m_root.filePath(QStringLiteral("hero/backup/.hidden")));

    QTextCursor(hero->definitions()->document()).insertText(QStringLiteral("; unsaved in the DEF\n"));
    QVERIFY(hero->backup());
    QVERIFY(!kit::readBytes(def).contains("unsaved"));

    QBakManager backups(def);
    QCOMPARE(backups.rowCount(), 4);
    QCOMPARE(backups.index(1).data().toString(), QStringLiteral("01-02-2025 10-0-0 am"));
    QCOMPARE(backups.index(2).data().toString(), QStringLiteral("01-02-2025 9-5-3 am"));
    QCOMPARE(backups.index(3).data().toString(), QStringLiteral("old"));
    const QString newest = backups.getFileName(backups.index(0));
    QVERIFY(QDateTime::fromString(backups.index(0).data().toString(), QBakManager::stampFormat()).isValid());
    QCOMPARE(QFileInfo(newest).fileName(), QStringLiteral("hero.def"));
    const QByteArray saved = kit::readBytes(newest);
    QVERIFY(saved.contains("; unsaved in the DEF"));
    QVERIFY(backups.getFileName(QModelIndex()).isEmpty());

    // Loaded over the project with the models' names kept, a save writes the real files.
    QVERIFY(hero->open(newest, 0, false, true));
    QCOMPARE(hero->definitions()->fileName(), def);
    // What came from the backup differs from the project's own files until
    // saved, also where only changed files are saved.
    QVERIFY(hero->definitions()->isModified());
    QVERIFY(!hero->states(0)->isModified()); // the backup holds no state file
    QVERIFY(hero->save());
    QCOMPARE(kit::readBytes(def), saved);
    QCOMPARE(kit::readBytes(newest), saved);
}

void TestEngineRun::commandLineRun()
{
    kit::writeBytes(m_root.filePath(QStringLiteral("cli/hero.def")), heroDef);
    kit::writeBytes(m_root.filePath(QStringLiteral("cli/hero.cns")), heroCns);
    const QString def = m_root.filePath(QStringLiteral("cli/hero.def"));
    const QMap<QString, QByteArray> engineBefore = enginekit::snapshot(engineDir());

    CliResult result = runCli({ QStringLiteral("run"), def, QStringLiteral("--engine"), executable(),
        QStringLiteral("--params"), QStringLiteral("%0 kfm -p2.ai 1"), QStringLiteral("--dry-run") });
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.out.contains(
                 QByteArray("command: wine " + executable().toLocal8Bit() + " pf3_0 kfm -p2.ai 1\n")),
        result.out.constData());
    QVERIFY(
        result.out.contains(QByteArray("writes: " + engineDir().toLocal8Bit() + "/chars/pf3_0/pf3_0.def\n")));
    QVERIFY(
        result.out.contains(QByteArray("writes: " + engineDir().toLocal8Bit() + "/chars/pf3_0/hero.cns\n")));
    QVERIFY(!QFileInfo::exists(record()));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);

    result = runCli(
        { QStringLiteral("--json"), QStringLiteral("run"), def, QStringLiteral("--engine"), executable() });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.json().value(QStringLiteral("exitCode")).toInt(), 0);
    QCOMPARE(enginekit::readRecord(record()).arguments.mid(1),
        (QStringList { QStringLiteral("pf3_0"), QStringLiteral("pf3_0") }));
    QCOMPARE(enginekit::snapshot(engineDir()), engineBefore);

    qputenv("STANDIN_EXIT", "2");
    QCOMPARE(runCli({ QStringLiteral("run"), def, QStringLiteral("--engine"), executable() }).exitCode, 4);
    qunsetenv("STANDIN_EXIT");
    result = runCli(
        { QStringLiteral("run"), def, QStringLiteral("--engine"), engineDir() + QStringLiteral("/x.exe") });
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.faultLines(), 1);
    QCOMPARE(runCli({ QStringLiteral("run"), def }).exitCode, 2);
}

QTEST_GUILESS_MAIN(TestEngineRun)
#include "tst_enginerun.moc"
