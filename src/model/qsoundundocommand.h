#pragma once

#include "model/qmodelundocommand.h"
#include "model/qsample.h"
#include "model/qsounds.h"
#include "model/qstreamcache.h"

/**
 * Base of the undo commands of a sound file (see QModelUndoCommand): the
 * first redo() does nothing, both directions run under the file's change lock.
 */
class SoundUndoCommand : public QModelUndoCommand<QSounds>
{
public:
    using QModelUndoCommand::QModelUndoCommand;

    /// Where commands keep WAV bytes off the model: one process-wide cache
    /// on disk, zlib-compressed.
    static QStreamCache& undoCache();
};

/// A command on one sound, whose redo and undo are the same step: it
/// exchanges the value it holds with the sound's.
class SoundSwap : public SoundUndoCommand
{
public:
    SoundSwap(QSounds* sounds, int position)
        : SoundUndoCommand(sounds)
        , m_position(position)
    {
    }

protected:
    virtual void swap() = 0;
    void doRedo() final { swap(); }
    void doUndo() final { swap(); }

    const int m_position;
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
