// The bundled sample character: its generated files come out of their
// scripts byte for byte, the sprite file is what the program's own writer
// makes of them, and the text files use what the binary files hold.

#include "airoutline.h"
#include "clirunner.h"
#include "qrecordingprompt.h"
#include "sffcompare.h"

#include "model/qsprite.h"
#include "model/qsprites.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString sampleDir()
{
    return qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/samples/ember");
}

QString sampleFile(const QString& name)
{
    return sampleDir() + QLatin1Char('/') + name;
}

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Every file under a folder, by its path relative to it.
QStringList filesUnder(const QString& root)
{
    QStringList names;
    QDirIterator it(root, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        names.append(QDir(root).relativeFilePath(it.next()));
    names.sort();
    return names;
}

/// The (group, number) pairs of the sound-compiler script: output name, then
/// file, group and number per sound.
QSet<QPair<int, int>> scriptSounds(const QString& script, QStringList& files)
{
    const QStringList lines = QString::fromLatin1(readAll(script)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QSet<QPair<int, int>> sounds;
    for (int i = 1; i + 2 < lines.size(); i += 3) {
        files.append(lines.at(i));
        sounds.insert({lines.at(i + 1).toInt(), lines.at(i + 2).toInt()});
    }
    return sounds;
}

} // namespace

class TestSample : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QSprites::init();
        QVERIFY2(QFile::exists(sampleFile(QStringLiteral("ember.def"))), qPrintable(sampleDir()));
    }

    void everyFileTheDefinitionNamesIsThere()
    {
        const CliResult info = runCli({QStringLiteral("info"), sampleFile(QStringLiteral("ember.def")), QStringLiteral("--json")});
        QCOMPARE(info.exitCode, 0);
        const QJsonObject project = info.json();
        QCOMPARE(project.value(QStringLiteral("spriteCount")).toInt(), 101);
        QStringList roles;
        for (const QJsonValue& value : project.value(QStringLiteral("files")).toArray()) {
            const QJsonObject file = value.toObject();
            const QString name = file.value(QStringLiteral("name")).toString();
            roles.append(file.value(QStringLiteral("role")).toString());
            // The common states are the engine's own file, found in its data folder.
            if (name == QLatin1String("common1.cns"))
                continue;
            QVERIFY2(file.value(QStringLiteral("exists")).toBool(), qPrintable(name));
            QVERIFY2(!file.value(QStringLiteral("caseDiffers")).toBool(), qPrintable(name));
        }
        for (const char* role : {"sprites", "animations", "sounds", "commands", "states", "pal1", "pal2"})
            QVERIFY2(roles.contains(QLatin1String(role)), role);
    }

    void generatedSourcesComeOutTheSame()
    {
        const QString python = QStandardPaths::findExecutable(QStringLiteral("python3"));
        if (python.isEmpty())
            QSKIP("python3 is not installed: the sample's generators cannot run");
        QTemporaryDir out;
        QProcess process;
        process.start(python, {qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/scripts/sample/make_ember.py"),
                               out.path()});
        QVERIFY(process.waitForFinished(120000));
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());

        const QStringList made = filesUnder(out.path());
        QVERIFY(made.contains(QStringLiteral("ember1.act")));
        QVERIFY(made.contains(QStringLiteral("work/sprites/9000-1.png")));
        QVERIFY(made.contains(QStringLiteral("work/sounds/11-0.wav")));
        for (const QString& name : made)
            QVERIFY2(readAll(out.filePath(name)) == readAll(sampleFile(name)), qPrintable(name));
        // Nothing stale in the committed sources that the scripts no longer make.
        QStringList committed = filesUnder(sampleFile(QStringLiteral("work")));
        for (QString& name : committed)
            name.prepend(QStringLiteral("work/"));
        for (const QString& name : std::as_const(committed))
            QVERIFY2(made.contains(name), qPrintable(name));
    }

    void spriteFileIsWhatTheWriterMakesOfTheSources()
    {
        QRecordingPrompt prompt;
        QTemporaryDir out;
        const QString target = out.filePath(QStringLiteral("ember.sff"));
        auto sprites = newSprites();
        sprites->import(sampleFile(QStringLiteral("work/ember-sff.pfe")), -1);
        QVERIFY(sprites->canSave(QSprites::defaultVersion));
        QVERIFY(sprites->toFile(target, QSprites::defaultVersion));
        QCOMPARE(prompt.entries().size(), 0);
        QVERIFY2(readAll(target) == readAll(sampleFile(QStringLiteral("ember.sff"))),
                 "ember.sff differs from a fresh build: run scripts/sample/build_ember.sh");

        // The portraits have the sizes the select screens are laid out for.
        auto saved = loadSprites(sampleFile(QStringLiteral("ember.sff")));
        QVERIFY(saved);
        QCOMPARE(saved->getVersion(), QSprites::defaultVersion);
        const int smallAt = saved->find(0, 9000, 0);
        const int largeAt = saved->find(0, 9000, 1);
        QVERIFY(smallAt >= 0 && largeAt >= 0);
        const QSprite* small = saved->at(smallAt);
        const QSprite* large = saved->at(largeAt);
        QCOMPARE(small->image(sipOwn).size(), QSize(25, 25));
        QCOMPARE(large->image(sipOwn).size(), QSize(120, 140));
        QCOMPARE(saved->paletteCount(), 2);
    }

    void versionOneCopyShowsTheSamePixels()
    {
        QRecordingPrompt prompt;
        QTemporaryDir out;
        auto original = loadSprites(sampleFile(QStringLiteral("ember.sff")));
        QVERIFY(original);
        auto converted = loadSprites(sampleFile(QStringLiteral("ember.sff")));
        QVERIFY(converted);
        const QString target = out.filePath(QStringLiteral("ember-v1.sff"));
        QSignalSpy reorder(converted.get(), &QSprites::orderMustBeChanged);
        QVERIFY(converted->toFile(target, QSprites::version101));
        // The sprite order suits the character palette of version 1: nothing to move.
        QCOMPARE(reorder.count(), 0);
        auto reread = loadSprites(target);
        QVERIFY(reread);
        QCOMPARE(reread->getVersion(), QSprites::version101);
        QCOMPARE(spriteDifferences(*original, *reread, false), QStringList());
        QCOMPARE(prompt.entries().size(), 0);
    }

    void animationsUseTheSpritesAndCarryBoxes()
    {
        auto sprites = loadSprites(sampleFile(QStringLiteral("ember.sff")));
        QVERIFY(sprites);
        const AirOutline air = AirOutline::read(sampleFile(QStringLiteral("ember.air")));
        QVERIFY(air.actions.size() >= 60);

        for (const AirOutline::Action& action : air.actions) {
            QVERIFY2(!action.frames.isEmpty(), qPrintable(QString::number(action.number)));
            for (const AirOutline::Frame& frame : action.frames) {
                const QString where = QStringLiteral("action %1 line %2").arg(action.number).arg(frame.line);
                QVERIFY2(sprites->find(0, frame.group, frame.index) >= 0, qPrintable(where + QStringLiteral(": no sprite")));
                QVERIFY2(frame.hurtBoxes > 0, qPrintable(where + QStringLiteral(": no Clsn2")));
            }
        }
        // Every attack strikes with a Clsn1 box on at least one frame, and
        // nothing else does.
        const QList<int> attacks{200, 230, 400, 600, 1000};
        for (const AirOutline::Action& action : air.actions) {
            int striking = 0;
            for (const AirOutline::Frame& frame : action.frames)
                striking += frame.hitBoxes > 0;
            QCOMPARE(striking > 0, attacks.contains(action.number));
        }

        // The actions the common states change to are all there.
        const QList<int> common{0,    5,    6,    10,   11,   12,   20,   21,   40,   41,   42,   43,   44,
                                45,   46,   47,   100,  105,  120,  121,  122,  130,  131,  132,  140,  141,
                                142,  150,  151,  152,  5000, 5001, 5002, 5005, 5006, 5007, 5010, 5011, 5012,
                                5015, 5016, 5017, 5020, 5021, 5022, 5025, 5026, 5027, 5030, 5040, 5050, 5060,
                                5070, 5080, 5090, 5100, 5110, 5120, 5160, 5170, 5200, 5210};
        for (int number : common)
            QVERIFY2(air.find(number), qPrintable(QString::number(number)));
    }

    void statesUseTheirAnimationsAndSounds()
    {
        const AirOutline air = AirOutline::read(sampleFile(QStringLiteral("ember.air")));
        const QString states = QString::fromLatin1(readAll(sampleFile(QStringLiteral("ember.cns"))));
        static const QRegularExpression anim(QStringLiteral("^\\s*anim\\s*=\\s*(\\d+)"),
                                             QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
        int animations = 0;
        for (auto it = anim.globalMatch(states); it.hasNext(); ++animations) {
            const int number = it.next().captured(1).toInt();
            QVERIFY2(air.find(number), qPrintable(QString::number(number)));
        }
        QCOMPARE(animations, 5);

        // Sounds played from the character's own file: PlaySnd values without
        // F, hit sounds with S.
        QStringList files;
        const QSet<QPair<int, int>> sounds = scriptSounds(sampleFile(QStringLiteral("work/ember-snd.txt")), files);
        QCOMPARE(sounds.size(), 7);
        for (const QString& file : std::as_const(files))
            QVERIFY2(QFile::exists(sampleFile(file)), qPrintable(file));
        static const QRegularExpression own(
            QStringLiteral("^\\s*(?:value|hitsound|guardsound)\\s*=\\s*(S?)(\\d+)\\s*,\\s*(\\d+)"),
            QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
        int played = 0;
        bool inPlaySnd = false;
        for (const QString& line : states.split(QLatin1Char('\n'))) {
            if (line.startsWith(QLatin1Char('[')))
                inPlaySnd = false;
            if (line.simplified().compare(QLatin1String("type = PlaySnd"), Qt::CaseInsensitive) == 0)
                inPlaySnd = true;
            const QRegularExpressionMatch match = own.match(line);
            if (!match.hasMatch())
                continue;
            const bool isValue = line.trimmed().startsWith(QLatin1String("value"), Qt::CaseInsensitive);
            if ((isValue && !inPlaySnd) || (!isValue && match.captured(1).isEmpty()))
                continue;
            QVERIFY2(sounds.contains({match.captured(2).toInt(), match.captured(3).toInt()}), qPrintable(line));
            ++played;
        }
        QCOMPARE(played, 15);
    }

    void soundFileIsWhatTheWriterMakesOfTheSources()
    {
        const CliResult help = runCli({QStringLiteral("--help")});
        if (!help.out.contains("snd build"))
            QSKIP("this pugilforge-cli cannot build SND files yet");
        QTemporaryDir out;
        // The sound compiler's script names its files relative to where it runs.
        const QString previous = QDir::currentPath();
        QDir::setCurrent(sampleDir());
        const QString target = out.filePath(QStringLiteral("ember.snd"));
        const CliResult built = runCli({QStringLiteral("snd"), QStringLiteral("build"), target,
                                        QStringLiteral("work/ember-snd.txt")});
        QDir::setCurrent(previous);
        QVERIFY2(built.exitCode == 0, built.err.constData());
        QVERIFY2(readAll(target) == readAll(sampleFile(QStringLiteral("ember.snd"))),
                 "ember.snd differs from a fresh build: run scripts/sample/build_ember.sh");
    }
};

QTEST_GUILESS_MAIN(TestSample)
#include "tst_sample.moc"
