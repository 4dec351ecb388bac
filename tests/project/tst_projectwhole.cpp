// A project opens every one of its files, saves them all, and neither a
// cancelled open nor a failed save leaves anything half done.
#include "tst_project.h"

#include "clirunner.h"
#include "projectkit.h"
#include "qrecordingprompt.h"
#include "realdata.h"

#include "model/qcommand.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"

#include <QDir>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>

namespace {

/// What a project holds, file by file, as a comparable list of lines.
QStringList census(QProject& project)
{
    QStringList lines;
    lines << QStringLiteral("sprites %1 palettes %2 messages %3")
                 .arg(project.sprites()->count())
                 .arg(project.sprites()->paletteCount())
                 .arg(project.sprites()->messages()->count());
    lines << QStringLiteral("sounds %1 messages %2")
                 .arg(project.sounds()->count())
                 .arg(project.sounds()->messages()->count());
    lines << QStringLiteral("commands %1 messages %2")
                 .arg(project.commands()->count())
                 .arg(project.commands()->messages()->count());
    for (int i = 0; i < project.statesCount(); ++i)
        lines << QStringLiteral("states %1 lines %2 messages %3")
                     .arg(QFileInfo(project.states(i)->fileName()).fileName())
                     .arg(project.states(i)->document()->blockCount())
                     .arg(project.states(i)->messages()->count());
    return lines;
}

/// Every DEF of the real files that makes a character with files of its own.
QStringList realCharacters()
{
    QStringList found;
    for (const QString& fileName : realDataFiles({ QStringLiteral("def") })) {
        QProject project;
        if (!project.open(fileName, 0, false, false) || project.type() != ptCharacter)
            continue;
        const QProjectFiles files = project.definitions()->files();
        if (!files.sprites.isEmpty() || !files.commands.isEmpty() || !files.states.isEmpty())
            found << fileName;
    }
    return found;
}

/// Answers the project's questions of a save-as with the files' own names under `directory`.
void answerWithDefNames(QProject& project, const QString& directory)
{
    const QProjectFiles files = project.definitions()->files();
    QStringList states;
    for (int i = 0; i < project.statesCount(); ++i)
        states << QDir(files.baseDir).relativeFilePath(project.states(i)->fileName());
    auto statesAsked = std::make_shared<int>(0);
    QObject::connect(
        &project, &QProject::spritesVersionToSave, &project, [](quint32 present) { return present; });
    QObject::connect(&project, &QProject::saveFileName, &project,
        [files, states, directory, statesAsked](QProjectFileType type, const QString&) {
            const QString name = type == pftSprites ? files.sprites
                : type == pftCommands               ? files.commands
                : type == pftSounds                 ? files.sounds
                : type == pftStates                 ? states.value((*statesAsked)++)
                                                    : QString();
            const QString path = directory + QLatin1Char('/') + name;
            forcePath(path);
            return name.isEmpty() ? QString() : path;
        });
}

/// A character of the real files in a folder of its own: DEF, SFF, SND, CMD, CNS.
QString copyKfm(const QString& directory, const QString& baseName)
{
    const QString source = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.");
    QByteArray def = kit::readBytes(source + QStringLiteral("def"));
    for (const char* suffix : { "sff", "snd", "cmd", "cns" }) {
        kit::writeBytes(directory + QLatin1Char('/') + baseName + QLatin1Char('.') + QLatin1String(suffix),
            kit::readBytes(source + QLatin1String(suffix)));
        const QByteArray from = QByteArray("kfm.") + suffix;
        const QByteArray to = baseName.toLatin1() + '.' + suffix;
        def.replace(from, to);
    }
    const QString defPath = directory + QLatin1Char('/') + baseName + QStringLiteral(".def");
    kit::writeBytes(defPath, def);
    return defPath;
}

} // namespace

void TestProject::everyRealCharacterOpensWholeAndSaves()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    const QStringList characters = realCharacters();
    QVERIFY(characters.size() >= 5);
    for (const QString& fileName : characters) {
        QProject project;
        QVERIFY(project.open(fileName, 0, false, false));
        const QProjectFiles files = project.definitions()->files();
        if (!files.sounds.isEmpty() && resolvePath(files.baseDir, files.sounds).exists)
            QVERIFY2(project.sounds()->count() > 0, qPrintable(fileName));
        if (!files.commands.isEmpty() && resolvePath(files.baseDir, files.commands).exists)
            QVERIFY2(project.commands()->count() > 0, qPrintable(fileName));
        const QStringList before = census(project);

        QTemporaryDir dir;
        answerWithDefNames(project, dir.path());
        const QString copy = dir.filePath(QFileInfo(fileName).fileName());
        QVERIFY2(project.saveAs(copy, false), qPrintable(fileName));
        QCOMPARE(project.definitions()->fileName(), copy);
        QVERIFY(!project.sounds()->isModified());

        QProject reopened;
        QVERIFY(reopened.open(copy, 0, false, false));
        QCOMPARE(census(reopened), before);
        if (project.sounds()->count() > 0)
            QCOMPARE(kit::readBytes(reopened.sounds()->fileName()),
                kit::readBytes(resolvePath(files.baseDir, files.sounds).path));
    }
    QCOMPARE(prompt.count(QStringLiteral("warning")), 0);
}

void TestProject::cancelledOpenLeavesNothingHalfDone()
{
    PF_REQUIRE_REALDATA();
    QTemporaryDir dir;
    const QString def = copyKfm(dir.path(), QStringLiteral("hero"));
    // The steps: start, sprites, sounds, commands, the state file.
    for (int cancelAt = 1; cancelAt <= 4; ++cancelAt) {
        QProject project;
        int calls = 0;
        connect(&project, &QProject::progress, &project, [&](uint, uint, bool& allow) {
            if (++calls > cancelAt)
                allow = false;
        });
        QVERIFY(!project.open(def, 0, true, false));
        QVERIFY2(project.isEmpty(), qPrintable(QString::number(cancelAt)));
        QCOMPARE(project.sprites()->paletteCount(), 0);
        QCOMPARE(project.statesCount(), 0);
        QVERIFY(!project.sounds()->isModified());
        QVERIFY(QDir(dir.filePath(QStringLiteral("backup")))
                    .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                    .isEmpty());
    }
    QProject whole;
    QVERIFY(whole.open(def, 0, true, false));
    QCOMPARE(whole.sounds()->count(), 12);
    QCOMPARE(whole.commands()->count(), 37);
    const QStringList backups
        = QDir(dir.filePath(QStringLiteral("backup"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(backups.size(), 1);
    const QDir backup(dir.filePath(QStringLiteral("backup/") + backups.first()));
    for (const char* name : { "hero.def", "hero.sff", "hero.snd", "hero.cmd", "hero.cns" })
        QCOMPARE(kit::readBytes(backup.filePath(QLatin1String(name))),
            kit::readBytes(dir.filePath(QLatin1String(name))));
}

void TestProject::failedSaveKeepsEveryFile()
{
    PF_REQUIRE_REALDATA();
    QTemporaryDir dir;
    // With the longest names a folder allows, no temporary file can be made
    // beside them, so every write fails.
    const QString def = copyKfm(dir.path(), QString(251, QLatin1Char('k')));
    QMap<QString, QByteArray> before;
    for (const QString& name : QDir(dir.path()).entryList(QDir::Files))
        before.insert(name, kit::readBytes(dir.filePath(name)));
    QCOMPARE(before.size(), 5);

    QProject project;
    QVERIFY(project.open(def, 0, false, false));
    QTextCursor(project.definitions()->document()).insertText(QStringLiteral("; edited\n"));
    project.sprites()->at(0)->setOffset(QPoint(3, 4));
    project.sounds()->setInfo(0, QSoundInfo(77, 7));
    project.commands()->add();
    QTextCursor(project.states(0)->document()).insertText(QStringLiteral("; edited\n"));
    QVERIFY(!project.save());
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        QVERIFY2(kit::readBytes(dir.filePath(it.key())) == it.value(), qPrintable(it.key().right(4)));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files).size(), 5);
    QVERIFY(project.sounds()->isModified());
    QVERIFY(project.commands()->isModified());
}

void TestProject::saveToRunAndBackupWriteCopies()
{
    PF_REQUIRE_REALDATA();
    QTemporaryDir dir;
    const QString def = copyKfm(dir.filePath(QStringLiteral("hero")), QStringLiteral("hero"));
    QProject project;
    QVERIFY(project.open(def, 0, false, false));
    project.sounds()->setInfo(0, QSoundInfo(55, 5));
    project.commands()->at(0)->setName(QStringLiteral("Renamed"), false);

    QStringList created;
    const QString run = dir.filePath(QStringLiteral("engine/chars/pf3_1"));
    QVERIFY(project.saveToRun(run, QStringLiteral("pf3_1"), created));
    QVERIFY(created.isEmpty()); // a character's folder goes as a whole
    QSounds sounds(nullptr, ctMemory, false, -1);
    QVERIFY(sounds.fromFile(run + QStringLiteral("/hero.snd")));
    QCOMPARE(sounds.info(0), QSoundInfo(55, 5));
    QVERIFY(kit::readBytes(run + QStringLiteral("/hero.cmd")).contains("name = \"Renamed\""));
    QVERIFY(QFileInfo::exists(run + QStringLiteral("/pf3_1.def")));
    QVERIFY(QFileInfo::exists(run + QStringLiteral("/hero.sff")));
    QVERIFY(QFileInfo::exists(run + QStringLiteral("/hero.cns")));
    // The author's files and the models' names are untouched.
    QCOMPARE(project.sounds()->fileName(), dir.filePath(QStringLiteral("hero/hero.snd")));
    QVERIFY(project.sounds()->isModified());
    QVERIFY(!kit::readBytes(dir.filePath(QStringLiteral("hero/hero.cmd"))).contains("Renamed"));

    QVERIFY(project.backup());
    const QStringList stamps
        = QDir(dir.filePath(QStringLiteral("hero/backup"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(stamps.size(), 1);
    const QDir backup(dir.filePath(QStringLiteral("hero/backup/") + stamps.first()));
    QVERIFY(backup.exists(QStringLiteral("hero.def")));
    QVERIFY(backup.exists(QStringLiteral("hero.sff")));
    QCOMPARE(project.definitions()->fileName(), def);

    // A new project takes the kind it is given through the text of its DEF.
    QProject stage;
    stage.setType(ptStage);
    QCOMPARE(stage.type(), ptStage);
    QVERIFY(stage.definitions()->document()->toPlainText().contains(QStringLiteral("[BGdef]")));
}

void TestProject::infoCommandListsEveryFile()
{
    PF_REQUIRE_REALDATA();
    QTemporaryDir dir;
    const QString def = copyKfm(dir.path(), QStringLiteral("hero"));
    const CliResult json = runCli({ QStringLiteral("--json"), QStringLiteral("info"), def });
    QCOMPARE(json.exitCode, 0);
    QCOMPARE(json.json().value(QStringLiteral("soundCount")).toInt(), 12);
    QCOMPARE(json.json().value(QStringLiteral("commandCount")).toInt(), 37);
    QCOMPARE(json.json().value(QStringLiteral("stateFileCount")).toInt(), 1);
    QMap<QString, QJsonObject> files;
    for (const QJsonValue& value : json.json().value(QStringLiteral("files")).toArray())
        files.insert(value.toObject().value(QStringLiteral("name")).toString(), value.toObject());
    QCOMPARE(files.value(QStringLiteral("hero.snd")).value(QStringLiteral("count")).toInt(), 12);
    QCOMPARE(files.value(QStringLiteral("hero.cmd")).value(QStringLiteral("count")).toInt(), 37);
    QCOMPARE(files.value(QStringLiteral("hero.sff")).value(QStringLiteral("count")).toInt(), 281);
    QVERIFY(files.value(QStringLiteral("hero.cns")).value(QStringLiteral("count")).toInt() > 3000);
    QCOMPARE(files.value(QStringLiteral("hero.snd")).value(QStringLiteral("messages")).toArray().size(), 0);

    // A sound file that can't be read says so under its name.
    kit::writeBytes(dir.filePath(QStringLiteral("hero.snd")), "ElecbyteSnd");
    const CliResult text = runCli({ QStringLiteral("info"), def });
    QCOMPARE(text.exitCode, 0);
    QVERIFY(text.out.contains("sounds: hero.snd -> "));
    QVERIFY(text.out.contains(", 0 sounds\n  SND: The sound file "));
    QVERIFY(text.out.contains(", 37 commands\n"));
}

void TestProject::saveWritesSoundsAndCommands()
{
    PF_REQUIRE_REALDATA();
    QTemporaryDir dir;
    const QString def = copyKfm(dir.path(), QStringLiteral("hero"));
    {
        QProject project;
        QVERIFY(project.open(def, 0, false, false));
        project.sounds()->setInfo(1, QSoundInfo(42, 4));
        project.commands()->at(2)->setName(QStringLiteral("Saved"), false);
        QVERIFY(project.save());
        QVERIFY(!project.sounds()->isModified());
        QVERIFY(!project.commands()->isModified());
    }
    QProject reopened;
    QVERIFY(reopened.open(def, 0, false, false));
    QCOMPARE(reopened.sounds()->info(1), QSoundInfo(42, 4));
    QCOMPARE(reopened.commands()->at(2)->name(false), QStringLiteral("Saved"));

    // A new character's sounds have no file yet: the project asks for one, and
    // gets no question for the commands, which are empty.
    QProject fresh;
    QTextCursor(fresh.definitions()->document()).insertText(QStringLiteral("[Info]\nname = \"New\"\n"));
    QVERIFY(fresh.sounds()->add());
    fresh.sounds()->setSampleData(0, reopened.sounds()->sampleData(0));
    QList<QProjectFileType> asked;
    const QString target = dir.filePath(QStringLiteral("new/new.snd"));
    connect(&fresh, &QProject::saveFileName, &fresh, [&](QProjectFileType type, const QString&) {
        asked << type;
        forcePath(target);
        return type == pftSounds ? target : QString();
    });
    fresh.save();
    QCOMPARE(asked, (QList<QProjectFileType> { pftDefinitions, pftSounds }));
    QSounds written(nullptr, ctMemory, false, -1);
    QVERIFY(written.fromFile(target));
    QCOMPARE(written.sampleData(0), reopened.sounds()->sampleData(0));
    QCOMPARE(fresh.sounds()->fileName(), target);
}
