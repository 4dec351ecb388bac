#pragma once

#include "model/qstreamcacheitem.h"
#include "util/qrecycleallocator.h"

#include <QList>
#include <QTemporaryFile>

class QStreamCacheFilter;

/**
 * Keeps the payloads of sprites and sounds encoded, exactly as their files
 * held them, and decodes one only when it is asked for. A payload goes back
 * to a file untouched while its encoding is still the one wanted.
 *
 * In memory mode the bytes stay in the items; in disk mode they live end to
 * end in one temporary file with no holes: removing a payload moves the
 * tail of the file down, so the file is always exactly as long as the live
 * payloads. Payloads without a filter may be zlib-compressed.
 *
 * Beside each payload stands the crc64 of its decoded bytes, which find()
 * and isEqual() compare first; equal CRCs are always confirmed byte by byte.
 *
 * Decoding goes through a process-wide table of filters, one per encoding,
 * that must be registered once (registerFilter) before payloads of that
 * encoding are added. Failures are not reported: a failed read, write or
 * decode shows up as empty or short data.
 */
class QStreamCache
{
public:
    QStreamCache(QStreamCacheType type, const QString& name, bool compress = true, int level = -1);
    ~QStreamCache();
    QStreamCache(const QStreamCache&) = delete;
    QStreamCache& operator=(const QStreamCache&) = delete;

    /// Installs the filter of an encoding for all caches; the table owns it.
    static void registerFilter(QStreamCacheFilterType type, QStreamCacheFilter* filter);
    /// Destroys the pooled items that no cache uses.
    static void flush();
    /// Destroys every pooled item and the filters; for the end of the process.
    static void release();
    /// The pool of items shared by all caches.
    static QRecycleAllocator<QStreamCacheItem>& allocator() { return cacheAlloc; }

    QStreamCacheType type() const { return m_type; }
    bool isCompressed() const { return m_compress; }
    const QList<QStreamCacheItem*>& items() const { return m_items; }
    /// Bytes in the temporary file: the sum of the stored sizes in disk mode.
    qint64 diskSize() const { return m_file.size(); }

    /**
     * Stores a payload. A non-zero `crc` is taken as the crc64 of the
     * decoded bytes without checking; 0 makes the cache decode once to
     * compute it.
     */
    QStreamCacheItem* addItem(const QByteArray& data, QStreamCacheFilterType filter = cfNone,
                              void* param = nullptr, quint64 crc = 0);
    /// Replaces an item's payload; the item keeps its identity and its place
    /// in items(), and on disk its bytes move to the end of the file.
    void setItemData(QStreamCacheItem* item, const QByteArray& data, QStreamCacheFilterType filter,
                     void* param = nullptr, quint64 crc = 0);
    /// Frees the payload and gives the item back to the pool.
    void deleteItem(QStreamCacheItem* item);

    /// The stored bytes, as they are (compressed if the cache compressed them).
    QByteArray itemRawData(const QStreamCacheItem* item);
    /// The decoded bytes.
    QByteArray itemData(const QStreamCacheItem* item);
    QStreamCacheFilterType itemFilter(const QStreamCacheItem* item) const;

    /// The first item other than `exclude` that decodes to `data`, or null.
    QStreamCacheItem* find(const QByteArray& data, const QStreamCacheItem* exclude = nullptr);
    /// Whether two items decode to the same bytes, whatever their encodings.
    bool isEqual(QStreamCacheItem* a, QStreamCacheItem* b);

    /// Gives every item back to the pool; empties the file in disk mode.
    void clear();

private:
    static QByteArray decode(const QStreamCacheItem* item, const QByteArray& raw, bool compressed);
    QByteArray decodedData(QStreamCacheItem* item);
    void store(QStreamCacheItem* item, const QByteArray& data, QStreamCacheFilterType filter, void* param,
               quint64 crc);
    void removeData(QStreamCacheItem* item);
    void recycle(QStreamCacheItem* item);

    static QStreamCacheFilter* filters[6];
    static QRecycleAllocator<QStreamCacheItem> cacheAlloc;

    QStreamCacheType m_type;
    QList<QStreamCacheItem*> m_items;
    QTemporaryFile m_file;
    bool m_compress;
    int m_level;
};
