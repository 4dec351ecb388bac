#pragma once

#include <QByteArray>
#include <QtGlobal>

/// Where a stream cache keeps its payloads.
enum QStreamCacheType {
    ctMemory = 0, ///< in each item's data
    ctHardDisk = 1, ///< in the cache's temporary file; items hold no bytes
};

/// How a payload is encoded; also the slot of its filter in the cache's table.
enum QStreamCacheFilterType {
    cfNone = 0, ///< the decoded bytes themselves (zlib-compressed when the cache compresses)
    cfPCX = 1,
    cfRLE8 = 2,
    cfRLE5 = 3,
    cfLZ5 = 4,
    cfPNG = 5,
};

/**
 * One payload of a QStreamCache. Items are pooled and reused: only the cache
 * that made one may change or give it back, and it is valid from addItem to
 * deleteItem, clear or the cache's end.
 */
struct QStreamCacheItem
{
    QByteArray data; ///< the stored bytes in memory mode; empty on disk
    quint64 crc = 0; ///< crc64 of the decoded bytes; 0 until known
    QStreamCacheFilterType filter = cfNone;
    void* filterParam = nullptr; ///< handed to the filter on each decode; not owned
    quint32 offset = 0; ///< place in the temporary file (disk mode)
    quint32 storedSize = 0; ///< bytes stored, after compression if any
    quint32 inputSize = 0; ///< bytes handed to the cache
};
