#pragma once

#include "model/qstreamcache.h"
#include "model/qstreamcachefilter.h"

#include <QPixmap>

/**
 * The pixels of one or more sprites: a payload in the sprite file's cache
 * and what is needed to decode it. Sprites that show equal pictures point to
 * one record (the SFF's linked sprites); the record and its payload die with
 * the last reference.
 *
 * The leading width, height and format come from QStreamImageParam: the
 * record itself is the filter parameter of its item, which is how the
 * headerless codecs learn the size, and how a cache item leads back to the
 * record that owns it.
 */
struct QSpriteImageData : QStreamImageParam
{
    int references = 0;
    QPixmap displayPixmap;   ///< kept by the views, dropped when the pixels change
    QPixmap thumbnailPixmap; ///< kept by the views, dropped when the pixels change
    QStreamCache* cache = nullptr;
    QStreamCacheItem* item = nullptr;

    /// The filter parameter that leads to this record.
    void* param() { return static_cast<QStreamImageParam*>(this); }
    /// The record whose param() an item of a sprite cache holds.
    static QSpriteImageData* fromParam(void* param)
    {
        return static_cast<QSpriteImageData*>(static_cast<QStreamImageParam*>(param));
    }
};
