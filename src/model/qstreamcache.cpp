#include "model/qstreamcache.h"

#include "model/qstreamcachefilter.h"
#include "util/qcrc64.h"

#include <QDir>

QStreamCacheFilter* QStreamCache::filters[6] = {};
QRecycleAllocator<QStreamCacheItem> QStreamCache::cacheAlloc;

QStreamCache::QStreamCache(QStreamCacheType type, const QString& name, bool compress, int level)
    : m_type(type)
    , m_file(QDir::tempPath() + QLatin1Char('/') + name)
    , m_compress(compress)
    , m_level(level)
{
    if (m_type == ctHardDisk)
        m_file.open();
}

QStreamCache::~QStreamCache()
{
    m_file.close();
    for (QStreamCacheItem* item : qAsConst(m_items))
        recycle(item);
}

void QStreamCache::registerFilter(QStreamCacheFilterType type, QStreamCacheFilter* filter)
{
    if (type <= cfNone || type > cfPNG) {
        delete filter;
        return;
    }
    delete filters[type];
    filters[type] = filter;
}

void QStreamCache::flush()
{
    cacheAlloc.flush();
}

void QStreamCache::release()
{
    cacheAlloc.flush();
    cacheAlloc.release();
    for (QStreamCacheFilter*& filter : filters) {
        delete filter;
        filter = nullptr;
    }
}

QByteArray QStreamCache::decode(const QStreamCacheItem* item, const QByteArray& raw, bool compressed)
{
    if (item->filter != cfNone) {
        QStreamCacheFilter* filter = filters[item->filter];
        return filter ? filter->process(raw, item->filterParam) : QByteArray();
    }
    if (compressed && !raw.isEmpty())
        return qUncompress(raw);
    return raw;
}

void QStreamCache::store(QStreamCacheItem* item, const QByteArray& data, QStreamCacheFilterType filter,
                         void* param, quint64 crc)
{
    item->filter = filter;
    item->filterParam = param;
    item->data.clear();
    if (crc == 0) {
        QStreamCacheFilter* decoder = filter != cfNone ? filters[filter] : nullptr;
        crc = decoder ? decoder->checksum(data, param) : crc64(decode(item, data, false));
    }
    item->crc = crc;

    // Only payloads of no format are worth zlib: the others are compressed already.
    const bool compress = m_compress && filter == cfNone && !data.isEmpty();
    QByteArray stored = data;
    if (compress) {
        stored = qCompress(data, m_level);
        // zlib's output buffer is sized for the worst case; in memory mode
        // the item would otherwise keep that whole allocation alive.
        stored.squeeze();
    }
    item->storedSize = quint32(stored.size());
    item->inputSize = quint32(data.size());

    if (m_type == ctHardDisk) {
        item->offset = quint32(m_file.size());
        m_file.seek(item->offset);
        m_file.write(stored);
        m_file.flush();
    } else {
        item->offset = 0;
        item->data = stored;
    }
}

QStreamCacheItem* QStreamCache::addItem(const QByteArray& data, QStreamCacheFilterType filter, void* param,
                                        quint64 crc)
{
    QStreamCacheItem* item = cacheAlloc.alloc();
    store(item, data, filter, param, crc);
    m_items.append(item);
    return item;
}

void QStreamCache::setItemData(QStreamCacheItem* item, const QByteArray& data, QStreamCacheFilterType filter,
                               void* param, quint64 crc)
{
    if (!item)
        return;
    if (m_type == ctHardDisk)
        removeData(item);
    store(item, data, filter, param, crc);
}

void QStreamCache::removeData(QStreamCacheItem* item)
{
    // The tail of the file moves down over the payload, so the file never
    // has holes and stays as long as the live payloads.
    m_file.seek(qint64(item->offset) + item->storedSize);
    const QByteArray tail = m_file.readAll();
    m_file.resize(item->offset);
    if (!tail.isEmpty()) {
        m_file.seek(item->offset);
        m_file.write(tail);
        m_file.flush();
    }
    for (QStreamCacheItem* other : qAsConst(m_items))
        if (other->offset > item->offset)
            other->offset -= item->storedSize;
}

void QStreamCache::deleteItem(QStreamCacheItem* item)
{
    if (!item)
        return;
    if (m_type == ctHardDisk)
        removeData(item);
    m_items.removeOne(item);
    recycle(item);
}

void QStreamCache::recycle(QStreamCacheItem* item)
{
    item->data.clear();
    cacheAlloc.clean(item);
}

QByteArray QStreamCache::itemRawData(const QStreamCacheItem* item)
{
    if (!item)
        return QByteArray();
    if (m_type == ctMemory)
        return item->data;
    if (!m_file.seek(item->offset))
        return QByteArray();
    return m_file.read(item->storedSize);
}

QByteArray QStreamCache::itemData(const QStreamCacheItem* item)
{
    if (!item)
        return QByteArray();
    return decode(item, itemRawData(item), m_compress);
}

QStreamCacheFilterType QStreamCache::itemFilter(const QStreamCacheItem* item) const
{
    return item ? item->filter : cfNone;
}

QByteArray QStreamCache::decodedData(QStreamCacheItem* item)
{
    QByteArray decoded = itemData(item);
    item->crc = crc64(decoded);
    return decoded;
}

QStreamCacheItem* QStreamCache::find(const QByteArray& data, const QStreamCacheItem* exclude)
{
    const quint64 crc = crc64(data);
    for (QStreamCacheItem* item : qAsConst(m_items)) {
        if (item == exclude)
            continue;
        QByteArray decoded;
        const bool fetched = item->crc == 0;
        if (fetched)
            decoded = decodedData(item);
        if (item->crc != crc)
            continue;
        if (!fetched)
            decoded = itemData(item);
        if (decoded == data)
            return item;
    }
    return nullptr;
}

bool QStreamCache::isEqual(QStreamCacheItem* a, QStreamCacheItem* b)
{
    if (!a || !b)
        return a == b;
    QByteArray decodedA, decodedB;
    const bool fetchedA = a->crc == 0;
    const bool fetchedB = b->crc == 0;
    if (fetchedA)
        decodedA = decodedData(a);
    if (fetchedB)
        decodedB = decodedData(b);
    if (a->crc != b->crc)
        return false;
    // One encoding on both sides: the stored bytes tell without decoding.
    if (!fetchedA && !fetchedB && a->filter == b->filter)
        return itemRawData(a) == itemRawData(b);
    if (!fetchedA)
        decodedA = itemData(a);
    if (!fetchedB)
        decodedB = itemData(b);
    return decodedA == decodedB;
}

void QStreamCache::clear()
{
    for (QStreamCacheItem* item : qAsConst(m_items))
        recycle(item);
    m_items.clear();
    if (m_type == ctHardDisk)
        m_file.resize(0);
}
