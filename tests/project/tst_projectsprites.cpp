#include "projectkit.h"
#include "tst_project.h"

#include "formats/qrgbpalette.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "qrecordingprompt.h"
#include "realdata.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString kfmDir()
{
    return realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/");
}

QString realStageSff()
{
    return realDataDir() + QStringLiteral("/fanyer__mugen/stages/kfm.sff");
}

/// What a reload has to give back of every sprite: its place, its axis, its pixels' size.
QStringList spriteSummary(const QSprites* sprites)
{
    QStringList rows;
    for (int i = 0; i < sprites->count(); ++i) {
        const QSprite* sprite = sprites->at(i);
        const QImageInfo info = sprite->imageInfo();
        rows << QStringLiteral("%1,%2 @%3,%4 %5x%6")
                    .arg(sprite->itemGroup())
                    .arg(sprite->itemIndex())
                    .arg(sprite->offsetX())
                    .arg(sprite->offsetY())
                    .arg(info.width)
                    .arg(info.height);
    }
    return rows;
}

/// An ACT file whose every colour is `grey`, so a palette shows where it came from.
void writeAct(const QString& fileName, uchar grey)
{
    QRGBATable colors;
    for (QRGBA& colour : colors)
        colour = QRGBA(grey, grey, grey, 255);
    QRGBPalette palette;
    palette.setPalette(&colors);
    QVERIFY(forcePath(fileName));
    QVERIFY(palette.toFile(fileName));
}

/// Counts the progress a project sends; from step `cancelAt` on (never for -1)
/// it cancels, as a progress dialog stays cancelled once the author said so.
struct ProgressCounter
{
    int calls = 0;
    int cancelAt = -1;
    void connectTo(QProject* project)
    {
        QObject::connect(project, &QProject::progress, project, [this](uint, uint, bool& allow) {
            if (cancelAt >= 0 && calls >= cancelAt)
                allow = false;
            ++calls;
        });
    }
};

} // namespace

void TestProject::openJoinsRealSprites()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    QSprites alone(nullptr, ctMemory, false, -1);
    QVERIFY(alone.fromFile(kfmDir() + QStringLiteral("kfm.sff")));

    QProject project;
    QVERIFY(project.open(kfmDir() + QStringLiteral("kfm.def"), 0, false, false));
    QSprites* sprites = project.sprites();
    QCOMPARE(sprites->count(), 281);
    QCOMPARE(sprites->fileName(), kfmDir() + QStringLiteral("kfm.sff"));
    QCOMPARE(spriteSummary(sprites), spriteSummary(&alone));
    // The DEF names no palette files: the palettes are the SFF's own.
    QCOMPARE(sprites->paletteCount(), alone.paletteCount());
    QVERIFY(sprites->findPalette(0, 1, 1) >= 0);
    QVERIFY(!sprites->isModified());
    QCOMPARE(project.sprites()->undoStack()->count(), 0);
    QCOMPARE(prompt.entries().size(), 0);

    // A stage names its SFF from the engine's folder ("stages/..."); the
    // file lies beside the DEF, here in another letter case.
    QTemporaryDir dir;
    kit::writeBytes(dir.filePath(QStringLiteral("stages/Arena.def")),
                    "[Info]\r\nname = \"Arena\"\r\n\r\n[BGdef]\r\nspr = stages/ARENA.sff\r\n");
    kit::writeBytes(dir.filePath(QStringLiteral("stages/arena.sff")), kit::readBytes(realStageSff()));
    QSprites stageAlone(nullptr, ctMemory, false, -1);
    QVERIFY(stageAlone.fromFile(realStageSff()));
    QProject stage;
    QVERIFY(stage.open(dir.filePath(QStringLiteral("stages/Arena.def")), 0, false, false));
    QCOMPARE(stage.type(), ptStage);
    QCOMPARE(stage.sprites()->fileName(), dir.filePath(QStringLiteral("stages/arena.sff")));
    QVERIFY(stage.sprites()->count() > 0);
    QCOMPARE(spriteSummary(stage.sprites()), spriteSummary(&stageAlone));
}

void TestProject::defPalettesComeBeforeSprites()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    // A version 1 character: its SFF holds the palettes that sprites brought.
    {
        QSprites source(nullptr, ctMemory, false, -1);
        QVERIFY(source.fromFile(kfmDir() + QStringLiteral("kfm.sff")));
        QVERIFY(source.toFile(dir.filePath(QStringLiteral("hero.sff")), QSprites::version101));
    }
    QSprites alone(nullptr, ctMemory, false, -1);
    QVERIFY(alone.fromFile(dir.filePath(QStringLiteral("hero.sff"))));
    writeAct(dir.filePath(QStringLiteral("pals/one.act")), 10);
    writeAct(dir.filePath(QStringLiteral("pals/Two.ACT")), 20);
    writeAct(dir.filePath(QStringLiteral("three.act")), 30);
    kit::writeBytes(dir.filePath(QStringLiteral("hero.def")),
                    "[Info]\r\nname = \"Hero\"\r\n\r\n[Files]\r\nsprite = hero.sff\r\n"
                    "pal1 = pals/one.act\r\npal2 = PALS\\two.act\r\npal3 = three.act\r\npal4 = missing.act\r\n");

    QProject project;
    ProgressCounter progress;
    progress.connectTo(&project);
    QVERIFY(project.open(dir.filePath(QStringLiteral("hero.def")), 0, false, false));
    QSprites* sprites = project.sprites();
    QCOMPARE(sprites->count(), alone.count());
    QVERIFY(sprites->paletteCount() > 3);
    const uchar greys[] = {10, 20, 30};
    for (int i = 0; i < 3; ++i) {
        const QSpritePalette* palette = sprites->paletteAt(i);
        QCOMPARE(palette->subItem(), QSubItem(1, i + 1));
        QCOMPARE(palette->colors()[5].r, greys[i]);
        QCOMPARE(palette->colors()[0].a, uchar(0));
    }
    // The character's sprites take the DEF's first palette, so the SFF adds
    // only the palettes of the others, after those of the DEF.
    QCOMPARE(sprites->at(sprites->find(0, 0, 0))->palette(), sprites->paletteAt(0));
    QCOMPARE(sprites->paletteCount(), 3 + alone.paletteCount() - 1);
    for (int i = 3; i < sprites->paletteCount(); ++i)
        QVERIFY(sprites->paletteAt(i)->subItem() != QSubItem(1, 1));
    QVERIFY(!sprites->isModified());
    QCOMPARE(sprites->undoStack()->count(), 0);
    QVERIFY(progress.calls >= 5); // the start, three palette files, the sprites

    // Loading the files again over the open project (a backup) renews the palettes, adding none.
    const int palettes = sprites->paletteCount();
    writeAct(dir.filePath(QStringLiteral("three.act")), 33);
    QVERIFY(project.open(dir.filePath(QStringLiteral("hero.def")), 0, false, true));
    QCOMPARE(sprites->paletteCount(), palettes);
    QCOMPARE(sprites->paletteAt(2)->colors()[5].r, uchar(33));
    QCOMPARE(sprites->count(), alone.count());

    // Twelve empty palette keys load nothing and send no palette progress.
    QByteArray empty = "[Info]\r\nname = \"Blank\"\r\n\r\n[Files]\r\n";
    for (int i = 1; i <= 12; ++i)
        empty += "pal" + QByteArray::number(i) + " =\r\n";
    kit::writeBytes(dir.filePath(QStringLiteral("blank.def")), empty);
    QProject blank;
    ProgressCounter blankProgress;
    blankProgress.connectTo(&blank);
    QVERIFY(blank.open(dir.filePath(QStringLiteral("blank.def")), 0, false, false));
    QCOMPARE(blank.sprites()->paletteCount(), 0);
    QCOMPARE(blankProgress.calls, 4); // the start and the (missing) sprites, sounds and commands
    QCOMPARE(prompt.entries().size(), 0);
}

void TestProject::characterPaletteComesFromTheDef()
{
    QTemporaryDir dir;
    writeAct(dir.filePath(QStringLiteral("second.act")), 20);
    writeAct(dir.filePath(QStringLiteral("third.act")), 30);
    kit::writeBytes(dir.filePath(QStringLiteral("hero.def")),
                    "[Info]\r\nname = \"Hero\"\r\n\r\n[Files]\r\npal3 = third.act\r\npal2 = second.act\r\n");
    QProject project;
    QRGBATable colors;
    // With no palette of its own, the project leaves the request unanswered.
    std::fill(std::begin(colors), std::end(colors), QRGBA(1, 2, 3, 4));
    emit project.sprites()->charPalette(&colors);
    QCOMPARE(colors[5], QRGBA(1, 2, 3, 4));

    // A version 1 character sprite without colours of its own asks for the
    // character's; without a first palette in the DEF the first it has answers.
    QVERIFY(project.open(dir.filePath(QStringLiteral("hero.def")), 0, false, false));
    QCOMPARE(project.sprites()->paletteCount(), 2);
    emit project.sprites()->charPalette(&colors);
    QCOMPARE(colors[5], QRGBA(20, 20, 20, 255));
    QCOMPARE(colors[0].a, uchar(0));
}

void TestProject::cancelledOpenReturnsFalse_data()
{
    QTest::addColumn<int>("cancelAt");
    QTest::newRow("at the start") << 0;
    QTest::newRow("at a palette") << 1;
    QTest::newRow("while reading the sprites") << 3;
}

void TestProject::cancelledOpenReturnsFalse()
{
    PF_REQUIRE_REALDATA();
    QFETCH(int, cancelAt);
    QTemporaryDir dir;
    kit::writeBytes(dir.filePath(QStringLiteral("kfm.sff")), kit::readBytes(kfmDir() + QStringLiteral("kfm.sff")));
    writeAct(dir.filePath(QStringLiteral("one.act")), 10);
    kit::writeBytes(dir.filePath(QStringLiteral("kfm.def")),
                    "[Info]\r\nname = \"KFM\"\r\n\r\n[Files]\r\nsprite = kfm.sff\r\npal1 = one.act\r\n");
    QProject project;
    ProgressCounter progress;
    progress.cancelAt = cancelAt;
    progress.connectTo(&project);
    QVERIFY(!project.open(dir.filePath(QStringLiteral("kfm.def")), 0, false, false));
    QVERIFY(progress.calls > cancelAt);
    // Sprites read only in part are no sprites at all.
    QCOMPARE(project.sprites()->count(), 0);
}

void TestProject::saveWritesChangedSprites()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    for (const QString& name : {QStringLiteral("kfm.def"), QStringLiteral("kfm.sff")})
        kit::writeBytes(dir.filePath(name), kit::readBytes(kfmDir() + name));
    const QString sff = dir.filePath(QStringLiteral("kfm.sff"));
    const QByteArray before = kit::readBytes(sff);

    QProject project;
    QVERIFY(project.open(dir.filePath(QStringLiteral("kfm.def")), 0, false, false));
    int versionAsks = 0;
    connect(&project, &QProject::spritesVersionToSave, &project, [&](quint32) {
        ++versionAsks;
        return quint32(0);
    });
    project.sprites()->at(3)->setOffset(QPoint(-7, 42));
    QVERIFY(project.sprites()->isModified());
    QVERIFY(project.save());
    QVERIFY(!project.sprites()->isModified());
    QVERIFY(kit::readBytes(sff) != before);
    QCOMPARE(versionAsks, 0); // a file with a name on disk keeps its version without a question

    QProject reloaded;
    QVERIFY(reloaded.open(dir.filePath(QStringLiteral("kfm.def")), 0, false, false));
    QCOMPARE(reloaded.sprites()->getVersion(), project.sprites()->getVersion());
    QCOMPARE(reloaded.sprites()->at(3)->offset(), QPoint(-7, 42));
    QCOMPARE(spriteSummary(reloaded.sprites()), spriteSummary(project.sprites()));
    for (int i = 0; i < project.sprites()->count(); i += 17)
        QCOMPARE(reloaded.sprites()->at(i)->image(sipOwn), project.sprites()->at(i)->image(sipOwn));
    QCOMPARE(prompt.entries().size(), 0);
}

void TestProject::newCharacterAsksForSpriteFile()
{
    PF_REQUIRE_REALDATA();
    QRecordingPrompt prompt;
    QTemporaryDir dir;
    QProject project;
    // Sprites taken in without a name, as a new character has them.
    QVERIFY(project.sprites()->fromFile(kfmDir() + QStringLiteral("kfm.sff"), true));
    QVERIFY(project.sprites()->fileName().isEmpty());
    project.paths().insert(QStringLiteral("proj_path"), dir.path());

    QList<quint32> versionsOffered;
    quint32 versionAnswer = 0;
    connect(&project, &QProject::spritesVersionToSave, &project, [&](quint32 current) {
        versionsOffered << current;
        return versionAnswer;
    });
    QList<QPair<QProjectFileType, QString>> asked;
    const QString target = dir.filePath(QStringLiteral("hero.sff"));
    connect(&project, &QProject::saveFileName, &project, [&](QProjectFileType file, const QString& path) {
        asked.append({file, path});
        return target;
    });

    // Refusing the version skips the sprites before any name is asked.
    QVERIFY(!project.save());
    QCOMPARE(versionsOffered, QList<quint32>{0x02000000});
    QVERIFY(asked.isEmpty());
    QVERIFY(!QFileInfo::exists(target));

    versionAnswer = QSprites::defaultVersion;
    QVERIFY(project.save());
    QCOMPARE(asked.size(), 1);
    QCOMPARE(asked.first().first, pftSprites);
    QCOMPARE(asked.first().second, dir.path());
    QCOMPARE(project.sprites()->fileName(), target);
    QCOMPARE(project.sprites()->getVersion(), QSprites::defaultVersion);
    QSprites written(nullptr, ctMemory, false, -1);
    QVERIFY(written.fromFile(target));
    QCOMPARE(written.getVersion(), QSprites::defaultVersion);
    QCOMPARE(spriteSummary(&written), spriteSummary(project.sprites()));

    // The next save writes to that name without asking again.
    QVERIFY(project.save());
    QCOMPARE(asked.size(), 1);

    // An empty SFF is never written, not even on request.
    QProject empty;
    connect(&empty, &QProject::saveFileName, &empty, [&](QProjectFileType file, const QString& path) {
        asked.append({file, path});
        return target;
    });
    QVERIFY(!empty.saveAs(pftSprites, false, 0));
    QCOMPARE(asked.size(), 1);
    QCOMPARE(prompt.entries().size(), 0);
}
