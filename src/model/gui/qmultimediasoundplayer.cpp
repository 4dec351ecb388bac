#include "qmultimediasoundplayer.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

QMultimediaSoundPlayer::QMultimediaSoundPlayer(QObject* parent)
    : QSoundPlayer(parent)
    , m_effect(new QSoundEffect(this))
{
}

bool QMultimediaSoundPlayer::play(const QString& fileName, bool loop)
{
    if (QMediaDevices::defaultAudioOutput().isNull())
        return false;
    m_effect->setSource(QUrl::fromLocalFile(fileName));
    m_effect->setLoopCount(loop ? int(QSoundEffect::Infinite) : 1);
    m_effect->play();
    return m_effect->status() != QSoundEffect::Error;
}

void QMultimediaSoundPlayer::stop()
{
    m_effect->stop();
}

void QMultimediaSoundPlayer::install()
{
    QSoundPlayer::setFactory([] { return new QMultimediaSoundPlayer; });
}
