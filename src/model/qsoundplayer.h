#pragma once

#include <QObject>
#include <QString>

#include <functional>

/**
 * Plays one WAV file for QSounds. The core links no audio library: the
 * window installs a maker of players (setFactory) that uses the system's
 * audio, and without one, or without an audio device, a sound simply does
 * not play. A player never blocks, and failing to play is no error.
 */
class QSoundPlayer : public QObject
{
    Q_OBJECT
public:
    using Factory = std::function<QSoundPlayer*()>;

    using QObject::QObject;

    /// Starts the file, again and again with `loop`; false when it can't play.
    virtual bool play(const QString& fileName, bool loop) = 0;
    virtual void stop() = 0;

    /// Installs how players are made; an empty factory plays nothing.
    static void setFactory(Factory factory);
    /// A new player owned by the caller, or null when none is installed.
    static QSoundPlayer* create();
};
