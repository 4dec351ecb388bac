#include "qsoundcommands.h"

#include "model/qsounds.h"

SoundListCommand::SoundListCommand(QSounds* sounds, int position)
    : SoundUndoCommand(sounds)
    , m_position(position)
{
}

void SoundListCommand::capture()
{
    m_info = m_model->info(m_position);
    m_data.hold(m_model->sampleData(m_position));
}

void SoundListCommand::takeOut()
{
    capture();
    m_model->deleteSample(m_position);
}

void SoundListCommand::putBack()
{
    m_model->insertSample(m_position, m_info, m_data.data());
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
    m_model->moveSample(m_from, m_to);
}

void SoundMove::doUndo()
{
    m_model->moveSample(m_to, m_from);
}

SoundChangeInfo::SoundChangeInfo(QSounds* sounds, int position)
    : SoundSwap(sounds, position)
    , m_info(sounds->info(position))
{
    setText(QStringLiteral("changeInfo"));
}

void SoundChangeInfo::swap()
{
    const QSoundInfo present = m_model->info(m_position);
    m_model->storeInfo(m_position, m_info);
    m_info = present;
}

SoundChangeSample::SoundChangeSample(QSounds* sounds, int position)
    : SoundSwap(sounds, position)
{
    setText(QStringLiteral("changeSample"));
    m_data.hold(sounds->sampleData(position));
}

void SoundChangeSample::swap()
{
    const QByteArray present = m_model->sampleData(m_position);
    m_model->storeData(m_position, m_data.data());
    m_data.hold(present);
}
