#include "qsoundcommands.h"

#include "model/qsounds.h"

SoundListCommand::SoundListCommand(QSounds* sounds, int position)
    : SoundUndoCommand(sounds)
    , m_position(position)
{
}

void SoundListCommand::capture()
{
    m_info = m_sounds->info(m_position);
    m_data.hold(m_sounds->sampleData(m_position));
}

void SoundListCommand::takeOut()
{
    capture();
    m_sounds->deleteSample(m_position);
}

void SoundListCommand::putBack()
{
    m_sounds->insertSample(m_position, m_info, m_data.data());
}

SoundInsert::SoundInsert(QSounds* sounds, int position)
    : SoundListCommand(sounds, position)
{
    setText(QStringLiteral("insert"));
}

SoundRemove::SoundRemove(QSounds* sounds, int position)
    : SoundListCommand(sounds, position)
{
    setText(QStringLiteral("remove"));
    capture();
}

SoundMove::SoundMove(QSounds* sounds, int from, int to)
    : SoundUndoCommand(sounds)
    , m_from(from)
    , m_to(to)
{
    setText(QStringLiteral("move"));
}

void SoundMove::doRedo()
{
    m_sounds->moveSample(m_from, m_to);
}

void SoundMove::doUndo()
{
    m_sounds->moveSample(m_to, m_from);
}

SoundChangeInfo::SoundChangeInfo(QSounds* sounds, int position)
    : SoundUndoCommand(sounds)
    , m_position(position)
    , m_info(sounds->info(position))
{
    setText(QStringLiteral("changeInfo"));
}

void SoundChangeInfo::swap()
{
    const QSoundInfo present = m_sounds->info(m_position);
    m_sounds->storeInfo(m_position, m_info);
    m_info = present;
}

SoundChangeSample::SoundChangeSample(QSounds* sounds, int position)
    : SoundUndoCommand(sounds)
    , m_position(position)
{
    setText(QStringLiteral("changeSample"));
    m_data.hold(sounds->sampleData(position));
}

void SoundChangeSample::swap()
{
    const QByteArray present = m_sounds->sampleData(m_position);
    m_sounds->storeData(m_position, m_data.data());
    m_data.hold(present);
}
