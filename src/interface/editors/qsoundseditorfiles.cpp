// The sounds editor's work with files: adding and replacing WAV files,
// exporting and importing, each with the dialog that asks for the names.
#include "qsoundseditor.h"

#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qwavinfo.h"
#include "util/qprompt.h"

#include <QCollator>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>

namespace {

const char* const wavFilter = QT_TRANSLATE_NOOP("QSoundsEditor", "WAV files (*.wav)");
const char* const exportFilter
    = QT_TRANSLATE_NOOP("QSoundsEditor", "Sound export (*.txt);;Elecbyte SndMaker (*.def)");

} // namespace

void QSoundsEditor::warn(const QString& text) const
{
    prompt().warning(tr("Sounds"), text);
}

QList<QByteArray> QSoundsEditor::readWAVs(const QStringList& files) const
{
    QList<QByteArray> wavs;
    for (const QString& name : files) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly)) {
            warn(tr("%1: %2").arg(QDir::toNativeSeparators(name), file.errorString()));
            return {};
        }
        const QByteArray bytes = file.readAll();
        const QString fault = wavFault(bytes);
        if (!fault.isEmpty()) {
            warn(tr("%1: %2").arg(QDir::toNativeSeparators(name), fault));
            return {};
        }
        wavs.append(bytes);
    }
    return wavs;
}

qint32 QSoundsEditor::nextFreeNumber(qint32 group) const
{
    qint32 next = 0;
    for (int i = 0; i < sounds()->count(); ++i) {
        if (sounds()->at(i)->group == group)
            next = qMax(next, sounds()->at(i)->sample + 1);
    }
    return next;
}

void QSoundsEditor::insertSounds(int position, const QList<QByteArray>& wavs, qint32 group, qint32 first)
{
    // One macro: adding a batch is one step to undo.
    sounds()->beginChange();
    for (int i = 0; i < wavs.size(); ++i) {
        sounds()->insert(position + i);
        sounds()->setInfo(position + i, QSoundInfo(group, first + i));
        sounds()->setSampleData(position + i, wavs.at(i));
    }
    sounds()->endChange();
    setCurrentPosition(position + int(wavs.size()) - 1);
}

bool QSoundsEditor::addFiles(const QStringList& files)
{
    if (!sounds() || files.isEmpty())
        return false;
    const QList<QByteArray> wavs = readWAVs(files);
    if (wavs.isEmpty())
        return false;
    const int current = currentPosition();
    const qint32 group = current >= 0 ? sounds()->info(current).group : 0;
    insertSounds(current >= 0 ? current + 1 : sounds()->count(), wavs, group, nextFreeNumber(group));
    return true;
}

bool QSoundsEditor::addBatch(const QStringList& files, qint32 group, qint32 first)
{
    if (!sounds() || files.isEmpty())
        return false;
    const QList<QByteArray> wavs = readWAVs(files);
    if (wavs.isEmpty())
        return false;
    insertSounds(sounds()->count(), wavs, group, first);
    return true;
}

bool QSoundsEditor::replaceCurrent(const QString& file)
{
    const int position = currentPosition();
    if (!sounds() || position < 0)
        return false;
    const QList<QByteArray> wavs = readWAVs({ file });
    if (wavs.isEmpty())
        return false;
    sounds()->stop();
    sounds()->setSampleData(position, wavs.first());
    return true;
}

bool QSoundsEditor::exportSelection(const QString& path)
{
    if (!sounds() || selectedPositions().isEmpty())
        return false;
    if (sounds()->exportSamples(selectedPositions(), path))
        return true;
    warn(tr("%1: the export could not be written completely.").arg(QDir::toNativeSeparators(path)));
    return false;
}

bool QSoundsEditor::exportCurrentGroup(const QString& path)
{
    const int position = currentPosition();
    if (!sounds() || position < 0)
        return false;
    if (sounds()->exportGroup(sounds()->info(position).group, path))
        return true;
    warn(tr("%1: the export could not be written completely.").arg(QDir::toNativeSeparators(path)));
    return false;
}

bool QSoundsEditor::importExport(const QString& path)
{
    if (!sounds())
        return false;
    const int current = currentPosition();
    const int at = current >= 0 ? current + 1 : sounds()->count();
    const int added = sounds()->import(path, at);
    if (added == 0) {
        warn(tr("%1: no sound could be imported.").arg(QDir::toNativeSeparators(path)));
        return false;
    }
    setCurrentPosition(at + added - 1);
    return true;
}

QString QSoundsEditor::askExportName(const QString& title)
{
    return QFileDialog::getSaveFileName(
        view(), title, m_project->paths().value(QStringLiteral("proj_path")), tr(exportFilter));
}

void QSoundsEditor::askAddFiles()
{
    const QStringList files = QFileDialog::getOpenFileNames(view(), tr("Add WAV files"),
        m_project ? m_project->paths().value(QStringLiteral("proj_path")) : QString(), tr(wavFilter));
    addFiles(files);
}

void QSoundsEditor::askAddBatch()
{
    QStringList files = QFileDialog::getOpenFileNames(
        view(), tr("Add WAV files as a numbered group"), QString(), tr(wavFilter));
    if (files.isEmpty())
        return;
    // "hit2.wav" before "hit10.wav": the numbers follow the names as an author reads them.
    QCollator collator;
    collator.setNumericMode(true);
    std::sort(files.begin(), files.end(), collator);
    bool ok = false;
    const int group = QInputDialog::getInt(view(), tr("Numbered group"), tr("Group of the new sounds:"), 0, 0,
        std::numeric_limits<qint32>::max(), 1, &ok);
    if (!ok)
        return;
    const int first = QInputDialog::getInt(view(), tr("Numbered group"), tr("Number of the first sound:"),
        nextFreeNumber(group), 0, std::numeric_limits<qint32>::max(), 1, &ok);
    if (ok)
        addBatch(files, group, first);
}

void QSoundsEditor::askReplace()
{
    const QString file
        = QFileDialog::getOpenFileName(view(), tr("Replace with a WAV file"), QString(), tr(wavFilter));
    if (!file.isEmpty())
        replaceCurrent(file);
}

void QSoundsEditor::askRenameGroup()
{
    const int position = currentPosition();
    if (!sounds() || position < 0)
        return;
    bool ok = false;
    const int group = QInputDialog::getInt(view(), tr("Move group"), tr("New number of the group:"),
        sounds()->info(position).group, 0, std::numeric_limits<qint32>::max(), 1, &ok);
    if (ok)
        renameCurrentGroup(group);
}

void QSoundsEditor::askExportSelection()
{
    const QString path = askExportName(tr("Export the selected sounds"));
    if (!path.isEmpty())
        exportSelection(path);
}

void QSoundsEditor::askExportGroup()
{
    const QString path = askExportName(tr("Export the group"));
    if (!path.isEmpty())
        exportCurrentGroup(path);
}

void QSoundsEditor::askImport()
{
    const QString path = QFileDialog::getOpenFileName(
        view(), tr("Import sounds"), QString(), tr("Sound export (*.txt *.pfe);;All files (*)"));
    if (!path.isEmpty())
        importExport(path);
}
