#include "projectkit.h"
#include "tst_project.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "qrecordingprompt.h"
#include "util/qengineversion.h"
#include "util/qpathresolver.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

namespace {

/// A character as authors leave them: names in other letter cases and with
/// backslashes, a state file named twice and one that isn't there.
void writeCharacter(const QTemporaryDir& dir)
{
    kit::writeBytes(dir.filePath(QStringLiteral("Hero.def")),
                    "[Info]\r\nname = \"Hero\"\r\nmugenversion = 1.1\r\n\r\n[Files]\r\n"
                    "cmd = hero.cmd\r\nst = States\\Moves.CNS\r\ncns = hero.cns\r\nstcommon = common1.cns\r\n"
                    "st1 = states/moves.cns\r\nst2 = hero.cns\r\n");
    kit::writeBytes(dir.filePath(QStringLiteral("Hero.CNS")), "[Data]\r\nlife = 1000\r\n");
    kit::writeBytes(dir.filePath(QStringLiteral("states/moves.cns")), "[Statedef 200]\r\ntype = S\r\n");
}

} // namespace

void TestProject::resolvesWindowsNames()
{
    QTemporaryDir dir;
    kit::writeBytes(dir.filePath(QStringLiteral("Sub/Kfm.CNS")), "x");
    kit::writeBytes(dir.filePath(QStringLiteral("exact.cns")), "x");
    kit::writeBytes(dir.filePath(QStringLiteral("EXACT.cns")), "x");

    const QResolvedPath asWritten = resolvePath(dir.path(), QStringLiteral("Sub/Kfm.CNS"));
    QVERIFY(asWritten.exists && !asWritten.caseDiffers && !asWritten.backslashes);
    const QResolvedPath windows = resolvePath(dir.path(), QStringLiteral("sub\\kfm.cns"));
    QVERIFY(windows.exists && windows.caseDiffers && windows.backslashes);
    QCOMPARE(windows.path, dir.filePath(QStringLiteral("Sub/Kfm.CNS")));
    const QResolvedPath dotted = resolvePath(dir.filePath(QStringLiteral("Sub")), QStringLiteral("./../SUB/kfm.cns"));
    QVERIFY(dotted.exists);
    QCOMPARE(dotted.path, dir.filePath(QStringLiteral("Sub/Kfm.CNS")));
    // Of two files differing in case only, the one written so is taken.
    QCOMPARE(resolvePath(dir.path(), QStringLiteral("EXACT.cns")).path, dir.filePath(QStringLiteral("EXACT.cns")));
    QVERIFY(!resolvePath(dir.path(), QStringLiteral("exact.cns")).caseDiffers);

    const QResolvedPath missing = resolvePath(dir.path(), QStringLiteral("sub/none.cns"));
    QVERIFY(!missing.exists);
    QCOMPARE(missing.path, dir.filePath(QStringLiteral("sub/none.cns")));
    QVERIFY(!resolvePath(dir.path(), QString()).exists);
    QVERIFY(!resolvePath(dir.path(), QStringLiteral("sub")).exists); // a folder is no file
}

void TestProject::openLoadsStatesInDefOrder()
{
    QTemporaryDir dir;
    writeCharacter(dir);
    QRecordingPrompt prompt;
    QProject project;
    QVERIFY(project.isEmpty());
    QVERIFY(project.open(dir.filePath(QStringLiteral("Hero.def")), 0, false, false));
    QVERIFY(!project.isEmpty());
    QCOMPARE(project.type(), ptCharacter);
    QCOMPARE(project.definitions()->files().states,
             (QStringList{QStringLiteral("States/Moves.CNS"), QStringLiteral("hero.cns"), QStringLiteral("common1.cns"),
                          QStringLiteral("states/moves.cns")}));
    // Missing common1.cns is skipped without a word; the differently written names find their files.
    QCOMPARE(prompt.entries().size(), 0);
    QCOMPARE(project.statesCount(), 3);
    QCOMPARE(project.states(0)->fileName(), dir.filePath(QStringLiteral("states/moves.cns")));
    QCOMPARE(project.states(1)->fileName(), dir.filePath(QStringLiteral("Hero.CNS")));
    QCOMPARE(project.states(0)->document()->toPlainText(), QStringLiteral("[Statedef 200]\ntype = S\n"));
    for (int i = 0; i < project.statesCount(); ++i) {
        QCOMPARE(project.states(i)->messages()->fileIndex(), i);
        QCOMPARE(project.states(i)->syntaxVersion(), engineVersion::v1_1);
        QVERIFY(!project.states(i)->isModified());
    }
}

void TestProject::unreadableDefLeavesProjectUntouched()
{
    QTemporaryDir dir;
    writeCharacter(dir);
    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("Hero.def")), 0, false, false));
    const QString text = project.definitions()->document()->toPlainText();

    QVERIFY(!project.open(dir.filePath(QStringLiteral("missing.def")), 0, true, false));
    QVERIFY(!project.open(dir.path(), 0, true, false));
    QCOMPARE(project.definitions()->document()->toPlainText(), text);
    QCOMPARE(project.definitions()->fileName(), dir.filePath(QStringLiteral("Hero.def")));
    QCOMPARE(project.definitions()->baseDirectory(), dir.path());
    QCOMPARE(project.statesCount(), 3);
    QCOMPARE(project.definitions()->name(), QStringLiteral("Hero"));
    QVERIFY(!QFileInfo::exists(dir.filePath(QStringLiteral("backup"))));

    QProject fresh;
    QVERIFY(!fresh.open(dir.filePath(QStringLiteral("missing.def")), 0, false, false));
    QVERIFY(fresh.isEmpty());
}

void TestProject::openWithBackupCopiesWhatItReads()
{
    QTemporaryDir dir;
    writeCharacter(dir);
    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("Hero.def")), 0, true, false));
    const QStringList stamps = QDir(dir.filePath(QStringLiteral("backup"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(stamps.size(), 1);
    const QString backup = dir.filePath(QStringLiteral("backup/") + stamps.first() + QLatin1Char('/'));
    QCOMPARE(kit::readBytes(backup + QStringLiteral("Hero.def")), kit::readBytes(dir.filePath(QStringLiteral("Hero.def"))));
    QCOMPARE(kit::readBytes(backup + QStringLiteral("States/Moves.CNS")),
             kit::readBytes(dir.filePath(QStringLiteral("states/moves.cns"))));
    QCOMPARE(kit::readBytes(backup + QStringLiteral("hero.cns")), kit::readBytes(dir.filePath(QStringLiteral("Hero.CNS"))));
    // The project keeps working on the author's files, not on the copies.
    QCOMPARE(project.definitions()->fileName(), dir.filePath(QStringLiteral("Hero.def")));
}

void TestProject::statesAddRemoveMove()
{
    QTemporaryDir dir;
    writeCharacter(dir);
    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("Hero.def")), 0, false, false));
    QSyntaxTextEditor* added = project.addStates(QStringLiteral("new.cns"));
    QCOMPARE(project.statesCount(), 4);
    QCOMPARE(project.states(3), added);
    QCOMPARE(added->title(), QStringLiteral("new.cns"));
    QVERIFY(added->isEmpty());
    QCOMPARE(added->syntaxVersion(), engineVersion::v1_1);
    QCOMPARE(added->messages()->fileIndex(), 3);

    QSyntaxTextEditor* first = project.states(0);
    project.moveStates(0, 3);
    QCOMPARE(project.states(3), first);
    QCOMPARE(project.states(2), added);
    project.removeStates(2);
    QCOMPARE(project.statesCount(), 3);
    QCOMPARE(project.states(2), first);
    project.removeStates(7);
    project.moveStates(0, 9);
    QCOMPARE(project.statesCount(), 3);
    for (int i = 0; i < project.statesCount(); ++i)
        QCOMPARE(project.states(i)->messages()->fileIndex(), i);
    // Removing a state file from the project leaves it on disk.
    QVERIFY(QFileInfo::exists(dir.filePath(QStringLiteral("states/moves.cns"))));
}

void TestProject::canDiscardAsksEveryStateFile()
{
    QTemporaryDir dir;
    writeCharacter(dir);
    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("Hero.def")), 0, false, false));
    QRecordingPrompt prompt;
    QVERIFY(project.canDiscard());
    QCOMPARE(prompt.entries().size(), 0);

    for (int i = 0; i < 2; ++i)
        QTextCursor(project.states(i)->document()).insertText(QStringLiteral("; typed\n"));
    QTextCursor(project.definitions()->document()).insertText(QStringLiteral("; typed\n"));
    project.addStates(QStringLiteral("empty.cns")); // empty: nothing to lose

    prompt.script({QPrompt::No, QPrompt::Yes});
    QVERIFY(!project.canDiscard());
    QCOMPARE(prompt.count(QStringLiteral("question")), 2); // both state files, then no further
    QCOMPARE(prompt.entries().first().title, QStringLiteral("Discard changes"));

    prompt.clear();
    prompt.script({QPrompt::Yes, QPrompt::Yes, QPrompt::Yes});
    QVERIFY(project.canDiscard());
    QCOMPARE(prompt.count(QStringLiteral("question")), 3);
}

void TestProject::saveWritesModifiedFilesAndAsksForNew()
{
    QTemporaryDir dir;
    writeCharacter(dir);
    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("Hero.def")), 0, false, false));
    const QByteArray def = kit::readBytes(dir.filePath(QStringLiteral("Hero.def")));
    QTextCursor(project.states(1)->document()).insertText(QStringLiteral("; typed\n"));
    QSyntaxTextEditor* added = project.addStates(QStringLiteral("new.cns"));
    QTextCursor(added->document()).insertText(QStringLiteral("[Statedef 300]\n"));

    QStringList asked;
    connect(&project, &QProject::saveFileName, this, [&](QProjectFileType file, const QString&) {
        asked << QString::number(file);
        return dir.filePath(QStringLiteral("chosen.cns"));
    });
    QVERIFY(project.save());
    QCOMPARE(asked, QStringList{QString::number(pftStates)});
    QCOMPARE(kit::readBytes(dir.filePath(QStringLiteral("Hero.CNS"))), QByteArray("; typed\r\n[Data]\r\nlife = 1000\r\n"));
    QCOMPARE(kit::readBytes(dir.filePath(QStringLiteral("chosen.cns"))), QByteArray("[Statedef 300]\r\n"));
    QCOMPARE(added->fileName(), dir.filePath(QStringLiteral("chosen.cns")));
    QCOMPARE(kit::readBytes(dir.filePath(QStringLiteral("Hero.def"))), def);
    for (int i = 0; i < project.statesCount(); ++i)
        QVERIFY(!project.states(i)->isModified());

    // Save as: the DEF goes where it is told, every other file where the answer says.
    asked.clear();
    QTemporaryDir other;
    int answer = 0;
    disconnect(&project, &QProject::saveFileName, this, nullptr);
    connect(&project, &QProject::saveFileName, this, [&](QProjectFileType file, const QString&) {
        asked << QString::number(file);
        return other.filePath(QStringLiteral("s%1.cns").arg(answer++));
    });
    QVERIFY(project.saveAs(other.filePath(QStringLiteral("Copy.def")), true));
    QCOMPARE(asked.size(), project.statesCount());
    QCOMPARE(project.definitions()->fileName(), other.filePath(QStringLiteral("Copy.def")));
    QCOMPARE(kit::readBytes(other.filePath(QStringLiteral("s1.cns"))), QByteArray("; typed\r\n[Data]\r\nlife = 1000\r\n"));

    // Refusing a name skips the file.
    disconnect(&project, &QProject::saveFileName, this, nullptr);
    QVERIFY(!project.saveAs(pftStates, false, 0));
}
