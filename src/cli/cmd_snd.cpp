// pugilforge-cli snd info|extract|build: sound files without a window.
#include "qclicommand.h"

#include "model/qsounds.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>

namespace {

const char* const usageText = "snd info FILE | snd extract FILE DIR | snd build OUT.snd (DIR | SCRIPT)";

/// One sound to build: its WAV file, group and number.
struct SoundSource
{
    QString path;
    qint32 group = 0;
    qint32 sample = 0;
};

bool openSounds(const QCliRun& run, QSounds& sounds, const QString& fileName)
{
    if (!QFileInfo(fileName).isFile()) {
        run.fail(fileName, QStringLiteral("no such file"));
        return false;
    }
    if (!sounds.fromFile(fileName)) {
        run.fail(fileName, QStringLiteral("not a readable SND file"));
        return false;
    }
    return true;
}

int info(const QCliRun& run, const QString& fileName)
{
    QSounds sounds(nullptr, ctMemory, false, -1);
    if (!openSounds(run, sounds, fileName))
        return QCliRun::exitUnreadable;
    if (run.json()) {
        QJsonArray list;
        for (int i = 0; i < sounds.count(); ++i) {
            const QSample* sample = sounds.at(i);
            list.append(QJsonObject { { QStringLiteral("group"), sample->group },
                { QStringLiteral("number"), sample->sample },
                { QStringLiteral("channels"), sample->information.channels },
                { QStringLiteral("rate"), qint64(sample->information.rate) },
                { QStringLiteral("bits"), sample->information.bits },
                { QStringLiteral("duration"), double(sample->information.duration) },
                { QStringLiteral("size"), sounds.sampleData(i).size() } });
        }
        run.printJson(QJsonObject { { QStringLiteral("file"), fileName },
            { QStringLiteral("soundCount"), sounds.count() }, { QStringLiteral("sounds"), list } });
        return 0;
    }
    run.print(QStringLiteral("%1: SND, %2 sounds").arg(fileName).arg(sounds.count()));
    for (int i = 0; i < sounds.count(); ++i) {
        const QSample* sample = sounds.at(i);
        const QWAVInfo& wav = sample->information;
        run.print(QStringLiteral("%1: %2,%3 %4 ch %5 Hz %6 bit %7 s %8 bytes")
                      .arg(i)
                      .arg(sample->group)
                      .arg(sample->sample)
                      .arg(wav.channels)
                      .arg(wav.rate)
                      .arg(wav.bits)
                      .arg(double(wav.duration), 0, 'f', 3)
                      .arg(sounds.sampleData(i).size()));
    }
    return 0;
}

int extract(const QCliRun& run, const QString& fileName, const QString& directory)
{
    QSounds sounds(nullptr, ctMemory, false, -1);
    if (!openSounds(run, sounds, fileName))
        return QCliRun::exitUnreadable;
    if (!QDir().mkpath(directory))
        return run.fail(directory, QStringLiteral("can't make the folder"));
    const QDir target(directory);
    int written = 0;
    for (int i = 0; i < sounds.count(); ++i) {
        const QSample* sample = sounds.at(i);
        if (!sample->item)
            continue;
        const QString name
            = target.filePath(QStringLiteral("%1-%2.wav").arg(sample->group).arg(sample->sample));
        if (!sounds.saveSample(i, name))
            return run.fail(name, QStringLiteral("could not be written"));
        ++written;
    }
    if (!run.json())
        run.print(QStringLiteral("%1: %2 WAV files written to %3").arg(fileName).arg(written).arg(directory));
    return 0;
}

/// The WAV files of a folder named "group-number.wav", in group and number order.
QList<SoundSource> folderSources(const QString& directory)
{
    static const QRegularExpression name(
        QStringLiteral("^(-?\\d+)-(-?\\d+)\\.wav$"), QRegularExpression::CaseInsensitiveOption);
    QList<SoundSource> sources;
    const QDir dir(directory);
    for (const QString& entry : dir.entryList(QDir::Files)) {
        const QRegularExpressionMatch match = name.match(entry);
        if (match.hasMatch())
            sources.append(
                SoundSource { dir.filePath(entry), match.captured(1).toInt(), match.captured(2).toInt() });
    }
    std::stable_sort(sources.begin(), sources.end(), [](const SoundSource& a, const SoundSource& b) {
        return a.group != b.group ? a.group < b.group : a.sample < b.sample;
    });
    return sources;
}

/// A script of the engine's sound compiler: the output name on the first
/// line, then for each sound its WAV path, group and number, one a line.
/// Paths stay relative to the current directory, as the compiler reads them.
bool scriptSources(const QCliRun& run, const QString& script, QList<SoundSource>& sources)
{
    QFile file(script);
    if (!file.open(QIODevice::ReadOnly)) {
        run.fail(script, QStringLiteral("can't read the file"));
        return false;
    }
    QStringList lines;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QString text = QString::fromLocal8Bit(line).trimmed();
        if (!text.isEmpty())
            lines.append(text);
    }
    if (lines.size() < 1 || (lines.size() - 1) % 3 != 0) {
        run.fail(script, QStringLiteral("a sound needs three lines: WAV file, group and number"));
        return false;
    }
    for (int i = 1; i < lines.size(); i += 3) {
        bool groupOk = false;
        bool numberOk = false;
        SoundSource source { lines.at(i), lines.at(i + 1).toInt(&groupOk), lines.at(i + 2).toInt(&numberOk) };
        if (!groupOk || !numberOk) {
            run.fail(script, QStringLiteral("the group and number of %1 are no numbers").arg(source.path));
            return false;
        }
        source.path.replace(QLatin1Char('\\'), QLatin1Char('/'));
        sources.append(source);
    }
    return true;
}

int build(const QCliRun& run, const QString& output, const QString& input)
{
    QList<SoundSource> sources;
    if (QFileInfo(input).isDir())
        sources = folderSources(input);
    else if (!scriptSources(run, input, sources))
        return QCliRun::exitUnreadable;
    if (sources.isEmpty())
        return run.fail(input, QStringLiteral("names no sound"));

    QSounds sounds(nullptr, ctMemory, false, -1);
    // The file stands in for one the engine's compiler would make.
    sounds.setFormatVersion(QSNDHeader::compilerVersion);
    {
        QSounds::ChangeLock lock(&sounds);
        for (const SoundSource& source : std::as_const(sources)) {
            QFile wav(source.path);
            if (!wav.open(QIODevice::ReadOnly))
                return run.fail(source.path, QStringLiteral("can't read the WAV file"));
            const QByteArray bytes = wav.readAll();
            // The engine plays what the file holds; anything but a RIFF WAVE would be noise or silence.
            if (!bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
                return run.fail(source.path, QStringLiteral("not a WAV file: no RIFF WAVE header at its start"));
            sounds.insertSample(sounds.count(), QSoundInfo(source.group, source.sample), bytes);
        }
    }
    if (!sounds.toFile(output))
        return run.fail(output, QStringLiteral("could not be written"));
    if (!run.json())
        run.print(QStringLiteral("%1: SND, %2 sounds").arg(output).arg(sounds.count()));
    return 0;
}

int runSnd(const QCliRun& run)
{
    const QStringList& arguments = run.arguments();
    const QString action = arguments.value(0);
    if (action == QLatin1String("info") && arguments.size() == 2)
        return info(run, arguments.at(1));
    if (action == QLatin1String("extract") && arguments.size() == 3)
        return extract(run, arguments.at(1), arguments.at(2));
    if (action == QLatin1String("build") && arguments.size() == 3)
        return build(run, arguments.at(1), arguments.at(2));
    return run.usage(QLatin1String(usageText));
}

const QCliCommand command("snd", usageText,
    "show an SND sound file, extract its WAV files, or build one from WAV files named "
    "group-number.wav or from a script of the engine's sound compiler",
    runSnd);

} // namespace
