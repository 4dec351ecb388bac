#pragma once

// One undo command per kind of change of a sound file.

#include "model/qsoundundocommand.h"

/// A sound and where it stood, kept to put it back or take it out again.
class SoundListCommand : public SoundUndoCommand
{
public:
    SoundListCommand(QSounds* sounds, int position);

protected:
    void capture();
    void takeOut();
    void putBack();

private:
    int m_position;
    QSoundInfo m_info;
    SoundUndoData m_data;
};

/// A sound inserted; make it after the insertion.
class SoundInsert : public SoundListCommand
{
public:
    SoundInsert(QSounds* sounds, int position);

protected:
    void doRedo() override { putBack(); }
    void doUndo() override { takeOut(); }
};

/// A sound removed; make it before the removal, which it records.
class SoundRemove : public SoundListCommand
{
public:
    SoundRemove(QSounds* sounds, int position);

protected:
    void doRedo() override { takeOut(); }
    void doUndo() override { putBack(); }
};

class SoundMove : public SoundUndoCommand
{
public:
    SoundMove(QSounds* sounds, int from, int to);

protected:
    void doRedo() override;
    void doUndo() override;

private:
    int m_from;
    int m_to;
};

/// A new group and number; make it before the change, with the old values.
class SoundChangeInfo : public SoundSwap
{
public:
    SoundChangeInfo(QSounds* sounds, int position);

protected:
    void swap() override;

private:
    QSoundInfo m_info;
};

/// New WAV bytes; make it before the change, with the old bytes.
class SoundChangeSample : public SoundSwap
{
public:
    SoundChangeSample(QSounds* sounds, int position);

protected:
    void swap() override;

private:
    SoundUndoData m_data;
};
