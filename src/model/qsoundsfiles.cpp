// Reading and writing SND files, single WAV files, and the exports of the
// sounds with their import.

#include "qsounds.h"

#include "model/qsoundcommands.h"
#include "text/qtokenizer.h"
#include "util/qsavebytes.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

QString sampleFileName(const QSample* sample)
{
    return QStringLiteral("%1-%2.wav").arg(sample->group).arg(sample->sample);
}

/// A signed number behind "key =", reading a leading minus.
qint32 readNumber(QTokenizer& tokens)
{
    QToken token = tokens.getToken();
    const bool negative = token == tokMinus;
    if (negative)
        token = tokens.getToken();
    const qint32 value = token == tokInteger ? tokens.getTokenInt() : 0;
    return negative ? -value : value;
}

} // namespace

bool QSounds::fromFile(const QString& path, bool keepName)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !read(file))
        return false;
    if (!keepName)
        m_fileName = path;
    return true;
}

bool QSounds::read(QIODevice& file)
{
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    // From here a failure leaves the model empty: the file was meant to replace it.
    clear();
    QSNDHeader header;
    stream >> header;
    if (stream.status() != QDataStream::Ok || !header.hasSignature()) {
        setModified(false);
        return false;
    }
    ChangeLock lock(this);
    const qint64 fileSize = file.size();
    bool allow = true;
    emit progress(0, header.count, allow);
    // The subheaders are a chain: each gives the place of the next, and the
    // first stands right after the header whatever the header says.
    qint64 position = QSNDHeader::size;
    bool read = true;
    for (quint32 i = 0; i < header.count && allow && read; ++i) {
        QSNDSubHeader sub;
        // A place past the end is a fault of the file, not a seek for the device to complain of.
        read = position <= fileSize - QSNDSubHeader::size && file.seek(position)
            && (stream >> sub).status() == QDataStream::Ok;
        const qint64 start = position + QSNDSubHeader::size;
        // The bytes up to the next subheader belong to the sound, so that a
        // file with gaps saves back as it was; the last may give no next one.
        qint64 length = sub.nextOffset > start ? qint64(sub.nextOffset) - start : qint64(sub.length);
        if (sub.length == 0)
            length = 0;
        read = read && length <= fileSize - start;
        QByteArray bytes;
        if (read && length > 0) {
            bytes = file.read(length);
            read = bytes.size() == length;
        }
        if (!read)
            break;
        insertSample(count(), QSoundInfo(qint32(sub.group), qint32(sub.sample)), bytes);
        emit progress(i + 1, header.count, allow);
        // A chain that does not go forward before the last sound is broken.
        if (i + 1 < header.count && sub.nextOffset <= position)
            read = false;
        position = sub.nextOffset;
    }
    if (!read || !allow) {
        clear();
        setModified(false);
        return false;
    }
    m_header = header;
    setModified(false);
    return true;
}

bool QSounds::toFile(const QString& path, bool keepName)
{
    stop();
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    QSNDHeader header = m_header;
    header.setSignature();
    header.count = quint32(count());
    header.firstOffset = QSNDHeader::size;
    stream << header;
    bool allow = true;
    emit progress(0, header.count, allow);
    quint32 position = QSNDHeader::size;
    for (int i = 0; i < count(); ++i) {
        const QSample* sample = m_samples.at(i);
        const QByteArray bytes = sample->item ? m_cache.itemData(sample->item) : QByteArray();
        QSNDSubHeader sub;
        sub.length = quint32(bytes.size());
        sub.nextOffset = position + QSNDSubHeader::size + sub.length;
        sub.group = quint32(sample->group);
        sub.sample = quint32(sample->sample);
        stream << sub;
        stream.writeRawData(bytes.constData(), int(bytes.size()));
        position = sub.nextOffset;
        emit progress(quint32(i) + 1, header.count, allow);
    }
    if (stream.status() != QDataStream::Ok || !file.commit())
        return false;
    // A copy (a backup, a run of the engine) leaves the model as it is.
    if (!keepName) {
        m_fileName = path;
        setModified(false);
    }
    return true;
}

bool QSounds::saveSample(int position, const QString& path)
{
    const QSample* sample = at(position);
    return sample && sample->item && saveBytes(path, m_cache.itemData(sample->item));
}

bool QSounds::exportAll(const QString& path)
{
    QList<int> positions;
    for (int i = 0; i < count(); ++i)
        positions.append(i);
    return exportSamples(positions, path);
}

bool QSounds::exportGroup(qint32 group, const QString& path)
{
    return exportSamples(positionsOf(group, true, 0, 0), path);
}

bool QSounds::exportSamples(const QList<int>& positions, const QString& path)
{
    const QFileInfo target(path);
    const QDir directory = target.absoluteDir();
    const bool compilerScript = target.suffix().compare(QLatin1String("def"), Qt::CaseInsensitive) == 0;
    // The engine's compiler reads the name of the file to make first.
    QString text = compilerScript ? target.completeBaseName() + QStringLiteral(".snd\n") : QString();
    bool written = true;
    for (int position : positions) {
        const QSample* sample = m_samples.at(position);
        const QString name = sampleFileName(sample);
        written = (!sample->item || saveSample(position, directory.filePath(name))) && written;
        if (compilerScript)
            text += QStringLiteral("%1\n%2\n%3\n").arg(name).arg(sample->group).arg(sample->sample);
        else
            text += QStringLiteral("\n[SoundDef]\ngroup = %1\nsample = %2\nfile = %3\n")
                        .arg(sample->group)
                        .arg(sample->sample)
                        .arg(name);
    }
    return saveBytes(path, compilerScript ? text.toLatin1() : text.toUtf8()) && written;
}

int QSounds::import(const QString& path, int at)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QString text = QString::fromUtf8(file.readAll());
    const QDir directory = QFileInfo(path).absoluteDir();
    int position = at < 0 || at > count() ? count() : at;
    const int first = position;

    QSoundInfo info;
    QString fileName;
    bool inSound = false;
    auto finish = [&]() {
        if (!inSound)
            return;
        QByteArray bytes;
        QFile wav(directory.filePath(fileName));
        if (!fileName.isEmpty() && wav.open(QIODevice::ReadOnly))
            bytes = wav.readAll();
        {
            ChangeLock lock(this);
            insertSample(position, info, bytes);
        }
        pushCommand(new SoundInsert(this, position));
        ++position;
        info = QSoundInfo();
        fileName.clear();
    };

    beginMacro(QStringLiteral("import"));
    QTokenizer tokens(text);
    for (QToken token = tokens.getToken(); token != tokEnd; token = tokens.getToken()) {
        if (token == tokLeftBracket) {
            finish();
            inSound = tokens.getToken() == tokIdentifier
                && tokens.getTokenString().compare(QLatin1String("sounddef"), Qt::CaseInsensitive) == 0;
            tokens.skipLine(QLatin1Char('\n'));
        } else if (token == tokIdentifier && inSound) {
            const QString key = tokens.getTokenString().toLower();
            if (tokens.getToken() != tokAssign)
                continue;
            if (key == QLatin1String("group"))
                info.group = readNumber(tokens);
            else if (key == QLatin1String("sample"))
                info.index = readNumber(tokens);
            else if (key == QLatin1String("file")) {
                tokens.skipLine(fileName, QLatin1Char('\n'));
                fileName = fileName.trimmed();
            }
        }
    }
    finish();
    endMacro();
    if (position > first)
        setModified(true);
    return position - first;
}
