// The sound model: WAV headers, SND files read and written byte for byte,
// edits with undo, exports, playback, and the command-line tool's snd command.
#include "clirunner.h"
#include "projectkit.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "wavmaker.h"

#include "model/gui/qmultimediasoundplayer.h"
#include "model/qsoundplayer.h"
#include "model/qsounds.h"
#include "model/qwavpeaks.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtEndian>
#include <QBuffer>
#include <QRegularExpression>
#include <QtTest>

namespace {

using kit::readBytes;
using kit::writeBytes;

/// The group, number and first WAV bytes of every sound: what an edit must give back on undo.
QStringList state(QSounds& sounds)
{
    QStringList rows;
    for (int i = 0; i < sounds.count(); ++i)
        rows << QStringLiteral("%1,%2:%3")
                    .arg(sounds.info(i).group)
                    .arg(sounds.info(i).index)
                    .arg(QString::fromLatin1(sounds.sampleData(i).toHex().right(8)));
    return rows;
}

void addRaw(QSounds& sounds, qint32 group, qint32 number, const QByteArray& data)
{
    QSounds::ChangeLock lock(&sounds);
    sounds.insertSample(sounds.count(), QSoundInfo(group, number), data);
}

/// A player that hears nothing but says it plays.
class SilentPlayer : public QSoundPlayer
{
public:
    static inline int made = 0;
    static inline int stops = 0;
    SilentPlayer() { ++made; }
    bool play(const QString& fileName, bool) override { return QFileInfo(fileName).isFile(); }
    void stop() override { ++stops; }
};

} // namespace

class TestSounds : public QObject
{
    Q_OBJECT

private slots:
    void wavHeadersAreMeasured();
    void waveformPeaksAndFaults();
    void realSoundFilesRoundTrip();
    void realSamplesMatchPythonWave();
    void brokenFilesLeaveModelEmpty();
    void editsUndoAndRedo();
    void groupsAndOrganize();
    void checkErrorsAndEmptySave();
    void exportsComeBack();
    void playbackEndsOnTimeOrQuietly();
    void sndCommandBuildsTheEngineFile();
    void sndCommandInfoExtractAndFolderBuild();
};

void TestSounds::wavHeadersAreMeasured()
{
    QWAVInfo info;
    QVERIFY(getWAVInfoFromData(wav::make(1, 8000, 8, 800), info));
    QCOMPARE(info.channels, quint16(1));
    QCOMPARE(info.rate, quint32(8000));
    QCOMPARE(info.bits, quint8(8));
    QCOMPARE(info.duration, 0.1f);

    // Another chunk before the samples is stepped over, even when it holds the text "data".
    QVERIFY(getWAVInfoFromData(wav::make(2, 22050, 16, 4410, true), info));
    QCOMPARE(info.channels, quint16(2));
    QCOMPARE(info.bits, quint8(16));
    QCOMPARE(info.duration, 0.2f);

    // Broken chunk sizes fall back to the first "data" in the bytes: here the
    // one inside the other chunk, so the length comes out wrong, but nothing breaks.
    QByteArray broken = wav::make(2, 22050, 16, 4410, true);
    qToLittleEndian<quint32>(0x7FFFFFF0, broken.data() + 40);
    QVERIFY(getWAVInfoFromData(broken, info));
    QCOMPARE(info.rate, quint32(22050));
    QVERIFY(info.duration != 0.2f);

    // Not PCM, not a WAV, too short: all zero.
    QByteArray floating = wav::make(1, 8000, 32, 100);
    qToLittleEndian<quint16>(3, floating.data() + 20);
    QVERIFY(!getWAVInfoFromData(floating, info));
    QCOMPARE(info, QWAVInfo());
    QVERIFY(!getWAVInfoFromData(QByteArray("RIFF\0\0\0\0WAVE", 12), info));
    QVERIFY(!getWAVInfoFromData(wav::make(1, 8000, 8, 10).left(30), info));
    QVERIFY(!getWAVInfoFromData(QByteArray(), info));

    // Samples cut short count only what is there.
    QVERIFY(getWAVInfoFromData(wav::make(1, 8000, 8, 800).left(44 + 400), info));
    QCOMPARE(info.duration, 0.05f);
}

void TestSounds::waveformPeaksAndFaults()
{
    // 16-bit mono, four frames into two columns: the extremes of each pair.
    QByteArray mono = wav::make(1, 8000, 16, 4);
    for (const auto& [frame, value] : { std::pair { 0, -32768 }, { 1, 32767 }, { 2, 0 }, { 3, 16384 } })
        qToLittleEndian<qint16>(qint16(value), mono.data() + 44 + 2 * frame);
    QList<QWAVPeak> peaks = wavPeaks(mono, 2);
    QCOMPARE(peaks.size(), 2);
    QCOMPARE(peaks.at(0).low, -1.0f);
    QVERIFY(peaks.at(0).high > 0.999f);
    QCOMPARE(peaks.at(1).low, 0.0f);
    QCOMPARE(peaks.at(1).high, 0.5f);
    // More columns than frames: each column shows its nearest frame, none is empty.
    peaks = wavPeaks(mono, 8);
    QCOMPARE(peaks.size(), 8);
    QCOMPARE(peaks.at(7).high, 0.5f);

    // 8-bit is unsigned around 128; stereo columns take both channels.
    QByteArray stereo = wav::make(2, 8000, 8, 1);
    stereo[44] = char(0);
    stereo[45] = char(192);
    peaks = wavPeaks(stereo, 1);
    QCOMPARE(peaks.at(0).low, -1.0f);
    QCOMPARE(peaks.at(0).high, 0.5f);

    // 24-bit keeps its sign.
    QByteArray wide = wav::make(1, 8000, 24, 1);
    wide[44] = char(0x00);
    wide[45] = char(0x00);
    wide[46] = char(0xC0);
    QCOMPARE(wavPeaks(wide, 1).at(0).low, -0.5f);

    // Nothing to draw for no columns, no PCM, or no frame; a cut file shows what is there.
    QVERIFY(wavPeaks(mono, 0).isEmpty());
    QVERIFY(wavPeaks(QByteArray("not a wav"), 10).isEmpty());
    QVERIFY(wavPeaks(mono.left(44 + 1), 10).isEmpty());
    QCOMPARE(wavPeaks(mono.left(44 + 4), 1).at(0).low, -1.0f);

    // Faults: a whole WAV has none; a cut or foreign file is told in a few words.
    QVERIFY(wavFault(wav::make(2, 22050, 16, 100, true)).isEmpty());
    QVERIFY(wavFault(mono.left(50)).startsWith(QStringLiteral("truncated")));
    QVERIFY(!wavFault(QByteArray("RIFF")).isEmpty());
    QVERIFY(!wavFault(QByteArray()).isEmpty());
}

void TestSounds::realSoundFilesRoundTrip()
{
    PF_REQUIRE_REALDATA();
    const QStringList files = realDataFiles({ QStringLiteral("snd") });
    QVERIFY(!files.isEmpty());
    QTemporaryDir dir;
    for (const QString& fileName : files) {
        const QByteArray original = readBytes(fileName);
        QSounds sounds(nullptr, ctHardDisk, true, -1);
        QVERIFY2(sounds.fromFile(fileName), qPrintable(fileName));
        QCOMPARE(sounds.count(), int(qFromLittleEndian<quint32>(original.constData() + 16)));
        QVERIFY(!sounds.isModified());
        const QString copy = dir.filePath(QStringLiteral("copy.snd"));
        QVERIFY(sounds.toFile(copy, true));
        QVERIFY2(readBytes(copy) == original, qPrintable(fileName));
        QCOMPARE(sounds.fileName(), fileName);
    }
}

void TestSounds::realSamplesMatchPythonWave()
{
    PF_REQUIRE_REALDATA();
    if (QStandardPaths::findExecutable(QStringLiteral("python3")).isEmpty())
        QSKIP("python3 is not installed");
    QTemporaryDir dir;
    QStringList names;
    QList<QWAVInfo> ours;
    for (const QString& fileName : realDataFiles({ QStringLiteral("snd") })) {
        QSounds sounds(nullptr, ctMemory, false, -1);
        QVERIFY(sounds.fromFile(fileName));
        for (int i = 0; i < sounds.count(); ++i) {
            const QString name = dir.filePath(QStringLiteral("%1.wav").arg(names.size()));
            QVERIFY(sounds.saveSample(i, name));
            names << name;
            ours << sounds.wavInfo(i);
        }
    }
    QVERIFY(names.size() > 30);
    // Python's own reader measures each extracted WAV: channels, rate, bits, seconds.
    const QString script
        = QStringLiteral("import sys, wave\n"
                         "for n in sys.argv[1:]:\n"
                         "    w = wave.open(n)\n"
                         "    print(w.getnchannels(), w.getframerate(), w.getsampwidth() * 8,"
                         " w.getnframes() / w.getframerate())\n");
    QProcess python;
    python.start(QStringLiteral("python3"), QStringList { QStringLiteral("-c"), script } + names);
    QVERIFY(python.waitForFinished(60000));
    QCOMPARE(python.exitCode(), 0);
    const QList<QByteArray> lines = python.readAllStandardOutput().trimmed().split('\n');
    QCOMPARE(lines.size(), names.size());
    for (int i = 0; i < lines.size(); ++i) {
        const QList<QByteArray> fields = lines.at(i).split(' ');
        QCOMPARE(int(ours.at(i).channels), fields.at(0).toInt());
        QCOMPARE(int(ours.at(i).rate), fields.at(1).toInt());
        QCOMPARE(int(ours.at(i).bits), fields.at(2).toInt());
        QVERIFY2(
            qAbs(double(ours.at(i).duration) - fields.at(3).toDouble()) < 0.001, lines.at(i).constData());
    }
}

void TestSounds::brokenFilesLeaveModelEmpty()
{
    QTemporaryDir dir;
    QSounds sounds(nullptr, ctMemory, false, -1);
    addRaw(sounds, 0, 0, wav::make(1, 8000, 8, 100));
    addRaw(sounds, 0, 1, QByteArray());
    addRaw(sounds, 2, 5, wav::make(2, 11025, 16, 50));
    const QString good = dir.filePath(QStringLiteral("good.snd"));
    QVERIFY(sounds.toFile(good));
    const QByteArray bytes = readBytes(good);

    // The empty sound comes back empty; the chain's offsets lead from one to the next.
    QSounds back(nullptr, ctMemory, false, -1);
    QVERIFY(back.fromFile(good));
    QCOMPARE(state(back), state(sounds));
    QVERIFY(!back.at(1)->item);
    QCOMPARE(qFromLittleEndian<quint32>(bytes.constData() + 512), quint32(512 + 16 + 144));

    const QString bad = dir.filePath(QStringLiteral("bad.snd"));
    for (int cut : { 0, 11, 100, 520, 600, int(bytes.size()) - 1 }) {
        writeBytes(bad, bytes.left(cut));
        QVERIFY2(!back.fromFile(bad), qPrintable(QString::number(cut)));
        QCOMPARE(back.count(), 0);
    }
    // A next offset past the end is the file's fault, without a word from the device (the SND fuzz target's find).
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    QByteArray pastEnd = bytes;
    qToLittleEndian<quint32>(quint32(bytes.size() + 100), pastEnd.data() + 512);
    qToLittleEndian<quint32>(0, pastEnd.data() + 516); // an empty sound, so its length leaves no doubt
    QBuffer device(&pastEnd);
    QVERIFY(device.open(QIODevice::ReadOnly));
    QVERIFY(!back.read(device));
    QByteArray loop = bytes;
    qToLittleEndian<quint32>(512, loop.data() + 512); // the first subheader points to itself
    writeBytes(bad, loop);
    QVERIFY(!back.fromFile(bad));
    QCOMPARE(back.count(), 0);
    QVERIFY(!back.fromFile(dir.filePath(QStringLiteral("missing.snd"))));
}

void TestSounds::editsUndoAndRedo()
{
    QSounds sounds(nullptr, ctMemory, false, -1);
    addRaw(sounds, 0, 0, wav::make(1, 8000, 8, 100));
    addRaw(sounds, 0, 1, wav::make(1, 8000, 8, 200));
    addRaw(sounds, 5, 0, wav::make(2, 22050, 16, 300));
    const QStringList start = state(sounds);
    QCOMPARE(sounds.undoStack()->count(), 0);

    sounds.add();
    QCOMPARE(sounds.info(3), QSoundInfo(5, 1)); // the next number of the last group
    sounds.duplicate(0);
    QCOMPARE(sounds.info(1), QSoundInfo(0, 2));
    QCOMPARE(sounds.sampleData(1), sounds.sampleData(0));
    sounds.move(4, 0);
    sounds.setInfo(2, QSoundInfo(9, 9));
    sounds.setSampleData(3, wav::make(1, 44100, 16, 441));
    QCOMPARE(sounds.wavInfo(3).rate, quint32(44100));
    sounds.remove(1);
    const QStringList edited = state(sounds);
    QCOMPARE(sounds.undoStack()->count(), 6);

    while (sounds.undoStack()->canUndo())
        sounds.undoStack()->undo();
    QCOMPARE(state(sounds), start);
    QCOMPARE(sounds.wavInfo(1).duration, 0.025f);
    while (sounds.undoStack()->canRedo())
        sounds.undoStack()->redo();
    QCOMPARE(state(sounds), edited);
    QVERIFY(sounds.isModified());

    // Out of range does nothing and makes no command.
    sounds.remove(99);
    sounds.move(0, 99);
    QVERIFY(!sounds.duplicate(-1));
    QCOMPARE(sounds.undoStack()->count(), 6);
    QTemporaryDir dir;
    const QString wavFile = dir.filePath(QStringLiteral("new.wav"));
    writeBytes(wavFile, wav::make(1, 11025, 8, 11025));
    QVERIFY(sounds.change(0, wavFile));
    QCOMPARE(sounds.wavInfo(0).duration, 1.0f);
    QVERIFY(!sounds.change(0, dir.filePath(QStringLiteral("none.wav"))));
}

void TestSounds::groupsAndOrganize()
{
    QSounds sounds(nullptr, ctMemory, false, -1);
    for (const QSoundInfo& info : { QSoundInfo(5, 2), QSoundInfo(1, 0), QSoundInfo(5, 0), QSoundInfo(1, 0),
             QSoundInfo(3, 7), QSoundInfo(5, 1) })
        addRaw(sounds, info.group, info.index, wav::make(1, 8000, 8, quint32(10 + sounds.count())));
    const QStringList start = state(sounds);
    QCOMPARE(sounds.find(0, 5, 0), 2);
    QCOMPARE(sounds.find(3, 5, 0), -1);
    QCOMPARE(sounds.nextGroup(0), 1);
    QCOMPARE(sounds.previousGroup(2), 1);
    QCOMPARE(sounds.previousGroup(0), -1);

    sounds.autoOrganize();
    QStringList order;
    for (int i = 0; i < sounds.count(); ++i)
        order << QStringLiteral("%1,%2").arg(sounds.info(i).group).arg(sounds.info(i).index);
    QCOMPARE(order.join(u' '), QStringLiteral("1,0 1,0 3,7 5,0 5,1 5,2"));
    // Equal numbers keep their order: the first 1,0 was the second sound.
    QCOMPARE(state(sounds).at(0), start.at(1));
    sounds.undoStack()->undo();
    QCOMPARE(state(sounds), start);

    sounds.renameGroup(5, 8, false, 1, 2);
    QCOMPARE(sounds.info(0), QSoundInfo(8, 2));
    QCOMPARE(sounds.info(2), QSoundInfo(5, 0));
    sounds.removeGroup(8, true, 0, 0);
    QCOMPARE(sounds.count(), 4);
    QCOMPARE(sounds.find(0, 8, 1), -1);
    sounds.undoStack()->undo();
    sounds.undoStack()->undo();
    QCOMPARE(state(sounds), start);
}

void TestSounds::checkErrorsAndEmptySave()
{
    QRecordingPrompt prompt;
    QSounds sounds(nullptr, ctMemory, false, -1);
    QVERIFY(!sounds.canSave(0));
    QVERIFY(!sounds.canSave(0x01010000));
    QCOMPARE(prompt.count(QStringLiteral("warning")), 2);
    QCOMPARE(prompt.entries().first().text,
        QStringLiteral("You can't save an empty SND because M.U.G.E.N. will not open it."));

    addRaw(sounds, 1, 1, wav::make(1, 8000, 8, 10));
    addRaw(sounds, 1, 1, QByteArray());
    addRaw(sounds, 2, 0, wav::make(1, 8000, 8, 10));
    sounds.checkErrors();
    QCOMPARE(sounds.messages()->count(), 2);
    QCOMPARE(sounds.messages()->at(0).text, QStringLiteral("Empty sound!"));
    QCOMPARE(
        sounds.messages()->at(1).text, QStringLiteral("The group 1, index 1 is already in use by sound #0!"));
    QCOMPARE(sounds.messages()->at(1).index, 1);

    sounds.setModified(true);
    prompt.script({ QPrompt::Yes });
    QVERIFY(sounds.canDiscard());
    QVERIFY(!sounds.canDiscard()); // the default answer keeps the changes
    QCOMPARE(prompt.entries().last().text,
        QStringLiteral("Do you really want to discard the changes made in the sounds?"));
}

void TestSounds::exportsComeBack()
{
    QSounds sounds(nullptr, ctMemory, false, -1);
    addRaw(sounds, 0, 0, wav::make(1, 8000, 8, 100));
    addRaw(sounds, 7, -1, wav::make(2, 22050, 16, 30, true));
    addRaw(sounds, 7, 3, wav::make(1, 11025, 8, 20));
    QTemporaryDir dir;

    QVERIFY(sounds.exportAll(dir.filePath(QStringLiteral("all.pfe"))));
    QVERIFY(QFileInfo::exists(dir.filePath(QStringLiteral("7--1.wav"))));
    QSounds back(nullptr, ctMemory, false, -1);
    addRaw(back, 99, 0, wav::make(1, 8000, 8, 1));
    QCOMPARE(back.import(dir.filePath(QStringLiteral("all.pfe")), 0), 3);
    QCOMPARE(back.count(), 4);
    QCOMPARE(back.info(3), QSoundInfo(99, 0));
    back.remove(3);
    QCOMPARE(state(back), state(sounds));
    back.undoStack()->undo();
    back.undoStack()->undo(); // the import is one step
    QCOMPARE(back.count(), 1);

    // Into a folder that isn't there nothing can be written.
    QVERIFY(!sounds.exportGroup(7, dir.filePath(QStringLiteral("group/seven.pfe"))));
    QDir().mkpath(dir.filePath(QStringLiteral("group")));
    QVERIFY(sounds.exportGroup(7, dir.filePath(QStringLiteral("group/seven.pfe"))));
    QSounds seven(nullptr, ctMemory, false, -1);
    QCOMPARE(seven.import(dir.filePath(QStringLiteral("group/seven.pfe"))), 2);
    QCOMPARE(seven.info(0), QSoundInfo(7, -1));

    // The compiler script builds the same file again.
    QDir().mkpath(dir.filePath(QStringLiteral("script")));
    QVERIFY(sounds.exportAll(dir.filePath(QStringLiteral("script/sounds.def"))));
    QCOMPARE(readBytes(dir.filePath(QStringLiteral("script/sounds.def"))).left(23),
        QByteArray("sounds.snd\n0-0.wav\n0\n0\n"));
    QVERIFY(sounds.toFile(dir.filePath(QStringLiteral("model.snd"))));
    const QString previous = QDir::currentPath();
    QDir::setCurrent(dir.filePath(QStringLiteral("script")));
    const CliResult built = runCli({ QStringLiteral("snd"), QStringLiteral("build"),
        QStringLiteral("built.snd"), QStringLiteral("sounds.def") });
    QDir::setCurrent(previous);
    QCOMPARE(built.exitCode, 0);
    QCOMPARE(readBytes(dir.filePath(QStringLiteral("script/built.snd"))).mid(512),
        readBytes(dir.filePath(QStringLiteral("model.snd"))).mid(512));
}

void TestSounds::playbackEndsOnTimeOrQuietly()
{
    QSounds sounds(nullptr, ctMemory, false, -1);
    addRaw(sounds, 0, 0, wav::make(1, 8000, 8, 800)); // 0.1 s
    addRaw(sounds, 0, 1, QByteArray());
    QSignalSpy stopped(&sounds, &QSounds::stopped);

    // Nothing to play through: the sound ends at once, without a fault.
    QSoundPlayer::setFactory(nullptr);
    sounds.play(0, false);
    QVERIFY(stopped.wait(500));

    QSoundPlayer::setFactory([] { return new SilentPlayer; });
    QElapsedTimer clock;
    clock.start();
    sounds.play(0, false);
    QVERIFY(sounds.isPlaying());
    QVERIFY(stopped.wait(3000));
    QVERIFY(clock.elapsed() >= 1000); // a second after the end of the sound
    QCOMPARE(stopped.count(), 2);

    // A loop runs until stop(), which announces nothing.
    sounds.play(0, true);
    QVERIFY(!stopped.wait(200));
    sounds.stop();
    QVERIFY(!sounds.isPlaying());
    sounds.play(1, false); // an empty sound plays an empty file
    sounds.stop();
    QVERIFY(!stopped.wait(1200));
    sounds.play(5, false); // out of range
    QVERIFY(!sounds.isPlaying());
    QCOMPARE(SilentPlayer::made, 3);
    QSoundPlayer::setFactory(nullptr);

    // The real player on a machine that may have no audio: it returns at once either way.
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("a.wav"));
    writeBytes(file, wav::make(1, 8000, 8, 80));
    QMultimediaSoundPlayer player;
    clock.restart();
    player.play(file, false);
    player.stop();
    QVERIFY(clock.elapsed() < 5000);
}

void TestSounds::sndCommandBuildsTheEngineFile()
{
    PF_REQUIRE_REALDATA();
    // The engine's own script, run where the engine's compiler ran it: paths
    // are relative to the engine's folder.
    QTemporaryDir dir;
    const QString output = dir.filePath(QStringLiteral("kfm.snd"));
    const QString previous = QDir::currentPath();
    QDir::setCurrent(realDataDir() + QStringLiteral("/fanyer__mugen"));
    const CliResult built = runCli({ QStringLiteral("snd"), QStringLiteral("build"), output,
        QStringLiteral("work/kfm/sound/sound.txt") });
    QDir::setCurrent(previous);
    QCOMPARE(built.exitCode, 0);
    QByteArray ours = readBytes(output);
    QByteArray engine = readBytes(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.snd"));
    QCOMPARE(ours.size(), engine.size());
    // The engine's compiler leaves the comment area zero; this program writes its name there.
    QVERIFY(ours.mid(24, 488) != engine.mid(24, 488));
    ours.replace(24, 488, QByteArray(488, '\0'));
    QVERIFY(ours == engine);

    const CliResult missing = runCli({ QStringLiteral("snd"), QStringLiteral("build"), output,
        QStringLiteral("work/kfm/sound/sound.txt") });
    QCOMPARE(missing.exitCode, 1); // from here the WAV paths lead nowhere
    QCOMPARE(missing.faultLines(), 1);
}

void TestSounds::sndCommandInfoExtractAndFolderBuild()
{
    QTemporaryDir dir;
    QSounds sounds(nullptr, ctMemory, false, -1);
    addRaw(sounds, 10, 2, wav::make(2, 22050, 16, 2205, true));
    addRaw(sounds, 3, 0, wav::make(1, 8000, 8, 400));
    const QString file = dir.filePath(QStringLiteral("in.snd"));
    QVERIFY(sounds.toFile(file));

    const CliResult info
        = runCli({ QStringLiteral("--json"), QStringLiteral("snd"), QStringLiteral("info"), file });
    QCOMPARE(info.exitCode, 0);
    const QJsonArray list = info.json().value(QStringLiteral("sounds")).toArray();
    QCOMPARE(list.size(), 2);
    const QJsonObject first = list.at(0).toObject();
    QCOMPARE(first.value(QStringLiteral("group")).toInt(), 10);
    QCOMPARE(first.value(QStringLiteral("channels")).toInt(), 2);
    QCOMPARE(first.value(QStringLiteral("rate")).toInt(), 22050);
    QCOMPARE(first.value(QStringLiteral("bits")).toInt(), 16);
    QVERIFY(qAbs(first.value(QStringLiteral("duration")).toDouble() - 0.1) < 1e-6);
    QCOMPARE(first.value(QStringLiteral("size")).toInt(), sounds.sampleData(0).size());

    const QString folder = dir.filePath(QStringLiteral("wavs"));
    QCOMPARE(runCli({ QStringLiteral("snd"), QStringLiteral("extract"), file, folder }).exitCode, 0);
    QCOMPARE(readBytes(folder + QStringLiteral("/10-2.wav")), sounds.sampleData(0));
    writeBytes(folder + QStringLiteral("/notes.txt"), "not a sound");

    // From a folder the sounds go in group and number order.
    const QString rebuilt = dir.filePath(QStringLiteral("out.snd"));
    QCOMPARE(runCli({ QStringLiteral("snd"), QStringLiteral("build"), rebuilt, folder }).exitCode, 0);
    QSounds back(nullptr, ctMemory, false, -1);
    QVERIFY(back.fromFile(rebuilt));
    QCOMPARE(back.count(), 2);
    QCOMPARE(back.info(0), QSoundInfo(3, 0));
    QCOMPARE(back.sampleData(1), sounds.sampleData(0));

    QCOMPARE(runCli({ QStringLiteral("snd"), QStringLiteral("info"), dir.filePath(QStringLiteral("x.snd")) })
                 .exitCode,
        1);
    writeBytes(dir.filePath(QStringLiteral("bad.snd")), "ElecbyteSpr");
    const CliResult bad
        = runCli({ QStringLiteral("snd"), QStringLiteral("info"), dir.filePath(QStringLiteral("bad.snd")) });
    QCOMPARE(bad.exitCode, 1);
    QCOMPARE(bad.faultLines(), 1);
    QCOMPARE(runCli({ QStringLiteral("snd"), QStringLiteral("play") }).exitCode, 2);
}

QTEST_MAIN(TestSounds)
#include "tst_sounds.moc"
