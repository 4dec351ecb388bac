#pragma once

#include "model/qsample.h"
#include "model/qstreamcache.h"

#include <QUndoCommand>

class QSounds;

/**
 * Base of the undo commands of a sound file. A command is pushed after the
 * change it stands for, which the caller has already made, so the first
 * redo() does nothing; later ones replay the change through doRedo(). Both
 * directions run under the file's change lock, so the edits they replay
 * make no commands of their own.
 */
class SoundUndoCommand : public QUndoCommand
{
public:
    explicit SoundUndoCommand(QSounds* sounds);

    void redo() final;
    void undo() final;

    /// Where commands keep WAV bytes off the model: one process-wide cache
    /// on disk, zlib-compressed.
    static QStreamCache& undoCache();

protected:
    virtual void doRedo() = 0;
    virtual void doUndo() = 0;

    QSounds* m_sounds;

private:
    bool m_first = true;
};

/// WAV bytes held by a command in the undo cache, freed with the holder.
class SoundUndoData
{
public:
    SoundUndoData() = default;
    ~SoundUndoData();
    SoundUndoData(const SoundUndoData&) = delete;
    SoundUndoData& operator=(const SoundUndoData&) = delete;

    void hold(const QByteArray& data);
    QByteArray data() const;

private:
    QStreamCacheItem* m_item = nullptr;
};
