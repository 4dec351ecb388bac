#include "qsoundundocommand.h"

#include "model/qsounds.h"

SoundUndoCommand::SoundUndoCommand(QSounds* sounds)
    : m_sounds(sounds)
{
}

void SoundUndoCommand::redo()
{
    if (m_first) {
        m_first = false;
        return;
    }
    QSounds::ChangeLock lock(m_sounds);
    doRedo();
    m_sounds->setModified(true);
}

void SoundUndoCommand::undo()
{
    QSounds::ChangeLock lock(m_sounds);
    doUndo();
    m_sounds->setModified(true);
}

QStreamCache& SoundUndoCommand::undoCache()
{
    static QStreamCache cache(ctHardDisk, QStringLiteral("sndUndo"), true, -1);
    return cache;
}

SoundUndoData::~SoundUndoData()
{
    if (m_item)
        SoundUndoCommand::undoCache().deleteItem(m_item);
}

void SoundUndoData::hold(const QByteArray& data)
{
    if (m_item)
        SoundUndoCommand::undoCache().setItemData(m_item, data, cfNone);
    else
        m_item = SoundUndoCommand::undoCache().addItem(data, cfNone);
}

QByteArray SoundUndoData::data() const
{
    return m_item ? SoundUndoCommand::undoCache().itemData(m_item) : QByteArray();
}
