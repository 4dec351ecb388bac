#pragma once

#include "model/qsoundplayer.h"

class QSoundEffect;

/**
 * Plays a sound through Qt Multimedia. QSoundEffect loads and plays on its
 * own, so play() returns at once; on a machine without an audio device the
 * effect ends in an error state and nothing is heard.
 */
class QMultimediaSoundPlayer : public QSoundPlayer
{
    Q_OBJECT
public:
    explicit QMultimediaSoundPlayer(QObject* parent = nullptr);

    bool play(const QString& fileName, bool loop) override;
    void stop() override;

    /// Makes every QSounds play through Qt Multimedia.
    static void install();

private:
    QSoundEffect* m_effect;
};
