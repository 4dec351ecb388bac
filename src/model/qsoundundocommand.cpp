#include "qsoundundocommand.h"

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
