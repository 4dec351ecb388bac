#include "qsoundplayer.h"

namespace {

QSoundPlayer::Factory& factory()
{
    static QSoundPlayer::Factory installed;
    return installed;
}

} // namespace

void QSoundPlayer::setFactory(Factory maker)
{
    factory() = std::move(maker);
}

QSoundPlayer* QSoundPlayer::create()
{
    return factory() ? factory()() : nullptr;
}
