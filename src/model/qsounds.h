#pragma once

#include "model/qorganizableobject.h"
#include "model/qprojectfile.h"
#include "model/qsample.h"
#include "model/qsndrecords.h"
#include "model/qstreamcache.h"

#include <QIODevice>
#include <QList>
#include <QTemporaryFile>
#include <QTimer>
#include <QUndoStack>

class QSoundPlayer;

/**
 * The in-memory form of one SND file: the sounds in file order, each a
 * group, a number and the bytes of a WAV file kept in the file's stream
 * cache. It is the list model of the sound views, a file of its project and
 * an undo domain of its own.
 *
 * Each public edit is undoable. While the change lock is raised
 * (ChangeLock), edits make no undo commands: loading raises it, and so do
 * the undo commands while they replay a change. The header's version and
 * comment are kept as read, so an unchanged file saves byte for byte.
 *
 * Playing writes the sound to a scratch file and hands it to a QSoundPlayer
 * (see there); a sound that is not looped announces stopped() one second
 * after its end, whether or not it could be heard.
 */
class QSounds : public QOrganizableObject, public QProjectFile
{
    Q_OBJECT
public:
    /// Raises the change lock of a sound file for its lifetime.
    class ChangeLock
    {
    public:
        explicit ChangeLock(QSounds* sounds)
            : m_sounds(sounds)
        {
            ++m_sounds->m_changeLock;
        }
        ~ChangeLock() { --m_sounds->m_changeLock; }
        ChangeLock(const ChangeLock&) = delete;
        ChangeLock& operator=(const ChangeLock&) = delete;

    private:
        QSounds* m_sounds;
    };

    QSounds(QProject* project, QStreamCacheType cacheType, bool compress, int level);
    ~QSounds() override;

    // Access
    int count() const { return int(m_samples.size()); }
    const QSample* at(int position) const { return m_samples.value(position); }
    /// First position at or after `start` of the sound group,sample; -1 if none.
    int find(int start, qint32 group, qint32 sample) const;
    QSoundInfo info(int position) const;
    QWAVInfo wavInfo(int position) const;
    /// The WAV bytes of a sound; empty for an empty sound.
    QByteArray sampleData(int position);
    /// The position of the first sound of the group before (after) the group of `position`; -1 if none.
    int previousGroup(int position) const;
    int nextGroup(int position) const;
    QString fileName() const { return m_fileName; }
    QStreamCache* cache() { return &m_cache; }
    QUndoStack* undoStack() { return &m_undoStack; }
    /// The header's version, as read; new files get QSNDHeader::ownVersion.
    quint32 formatVersion() const { return m_header.version; }
    void setFormatVersion(quint32 version) { m_header.version = version; }
    /// Writes this program's comment into the header on the next save.
    void resetComment() { m_header.comment = QSNDHeader::ownComment(); }

    // Changes
    /// Appends an empty sound, numbered after the last one of its group.
    const QSample* add();
    /// Inserts an empty sound; a position out of range appends.
    const QSample* insert(int position);
    /// A copy of the sound, inserted after it; null out of range.
    const QSample* duplicate(int position);
    void move(unsigned int from, unsigned int to) override;
    void remove(unsigned int position) override;
    /// Deletes every sound; not undoable, so the undo history goes too.
    void clear();
    /// Removes the sounds of a group, or with `wholeGroup` false those numbered `first` to `last`.
    void removeGroup(qint32 group, bool wholeGroup, qint32 first, qint32 last);
    /// Moves sounds of a group to another, all or those numbered `first` to `last`.
    void renameGroup(qint32 group, qint32 newGroup, bool wholeGroup, qint32 first, qint32 last);
    void setInfo(int position, const QSoundInfo& info);
    /// Loads a WAV file into a sound, as it is; false when it can't be read.
    bool change(int position, const QString& path);
    void setSampleData(int position, const QByteArray& data);
    /// Sorts by group, then number.
    void autoOrganize() override;

    // Files
    /// Reads an SND file; false, with the model empty, when it can't be read.
    bool fromFile(const QString& path, bool keepName = false);
    /// Reads an SND file from an open device (the file name stays); as fromFile.
    bool read(QIODevice& device);
    /// Writes an SND file; a failed save leaves the previous file as it was.
    /// With `keepName` it writes a copy: name and modified flag stay.
    bool toFile(const QString& path, bool keepName = false);
    bool save() { return toFile(m_fileName, false); }
    /// Writes one sound's WAV file.
    bool saveSample(int position, const QString& path);
    /// Writes every sound as "group-number.wav" beside `path`, described by
    /// `path`: a script of the engine's sound compiler for "*.def", this
    /// program's export for any other suffix. False when a file failed.
    bool exportAll(const QString& path);
    bool exportGroup(qint32 group, const QString& path);
    /// As exportAll, for the sounds at the given positions.
    bool exportSamples(const QList<int>& positions, const QString& path);
    /// Adds the sounds of this program's export at `at` (the end for a
    /// negative position) as one undoable edit; the number added.
    int import(const QString& path, int at = -1);

    // Playback
    void play(int position, bool loop);
    void stop();
    bool isPlaying() const { return m_player != nullptr; }

    // Undo
    bool isChangeLocked() const { return m_changeLock > 0; }
    /// Adds a command for a change already made; dropped under the change lock.
    void pushCommand(class QUndoCommand* command);
    void beginMacro(const QString& name);
    void endMacro();

    // Project file
    bool isModified() const override { return m_modified; }
    bool isEmpty() const override { return m_samples.isEmpty(); }
    bool canDiscard() override;
    bool canSave(unsigned int version) const override;
    void checkErrors() override;
    void setModified(bool modified);

    void beginChange() override;
    void endChange() override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// A row reads "group, number".
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // The raw list operations beneath the undoable edits, for undo commands
    // and loaders: no undo, no check of the change lock.

    QSample* insertSample(int position, const QSoundInfo& info, const QByteArray& data);
    void deleteSample(int position);
    void moveSample(int from, int to);
    void storeInfo(int position, const QSoundInfo& info);
    void storeData(int position, const QByteArray& data);

signals:
    void changed();
    void stopped();
    void progress(uint position, uint maximum, bool& allow);

private:
    QList<int> positionsOf(qint32 group, bool wholeGroup, qint32 first, qint32 last) const;
    qint32 nextNumber(qint32 group) const;

    int m_changeLock = 0;
    QList<QSample*> m_samples;
    QStreamCache m_cache;
    QString m_fileName;
    QUndoStack m_undoStack;
    bool m_modified = false;
    int m_changing = 0;
    QSNDHeader m_header;
    QByteArray m_playing;
    QTimer m_timer;
    QTemporaryFile m_scratch; ///< in the temporary folder, with a ".wav" name players recognise
    QSoundPlayer* m_player = nullptr;
};
