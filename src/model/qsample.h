#pragma once

#include "model/qstreamcacheitem.h"
#include "model/qsubitem.h"
#include "model/qwavinfo.h"

/// The group and number by which the engine names a sound.
using QSoundInfo = QSubItem;

/**
 * One sound of an SND file: its group and number, and the bytes of its WAV
 * file, kept in the file's stream cache. An empty sound has no item.
 */
struct QSample
{
    QStreamCacheItem* item = nullptr;
    qint32 group = 0;
    qint32 sample = 0; ///< the number within the group
    QWAVInfo information;

    QSoundInfo info() const { return QSoundInfo(group, sample); }
};
