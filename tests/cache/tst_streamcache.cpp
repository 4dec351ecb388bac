#include "tst_cache.h"

#include "testimages.h"

#include "formats/qimagefiles.h"
#include "formats/qpcx.h"
#include "model/qspritecodecs.h"
#include "model/qstreamcache.h"
#include "model/qstreamcachefilter.h"
#include "util/qcrc64.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <deque>

namespace {

/// An image and the filter parameter that describes it, which must outlive
/// the items that point to it.
struct Picture
{
    QImage image;
    QStreamImageParam param;

    explicit Picture(const QImage& indexed)
        : image(indexed)
    {
        QList<QRgb> colours;
        for (int i = 0; i < 256; ++i)
            colours.append(qRgb(i, 255 - i, i / 2));
        image.setColorTable(colours);
        param.width = quint16(image.width());
        param.height = quint16(image.height());
        param.format = image.format();
    }
    QByteArray pixels() const { return pixelsOf(image); }

    QByteArray encoded(QStreamCacheFilterType filter) const
    {
        switch (filter) {
        case cfNone:
            return pixels();
        case cfRLE8:
            return saveRLE8(image);
        case cfLZ5:
            return saveLZ5(image);
        case cfPNG:
            return savePNG(image);
        case cfPCX: {
            QByteArray data;
            QBuffer buffer(&data);
            buffer.open(QIODevice::WriteOnly);
            savePCX(image, &buffer);
            return data;
        }
        case cfRLE5:
            break;
        }
        return QByteArray();
    }
};

const QStreamCacheFilterType imageFilters[] = { cfNone, cfPCX, cfRLE8, cfLZ5, cfPNG };

/// The disk file has no holes: payloads end to end, in some order, from 0.
void verifyHoleFree(const QStreamCache& cache)
{
    QList<const QStreamCacheItem*> byOffset(cache.items().cbegin(), cache.items().cend());
    std::stable_sort(byOffset.begin(), byOffset.end(),
                     [](const QStreamCacheItem* a, const QStreamCacheItem* b) { return a->offset < b->offset; });
    qint64 end = 0;
    for (const QStreamCacheItem* item : byOffset) {
        QCOMPARE(qint64(item->offset), end);
        end += item->storedSize;
    }
    QCOMPARE(cache.diskSize(), end);
}

} // namespace

void TestCache::nullAndEmptyItems()
{
    for (const QStreamCacheType type : { ctMemory, ctHardDisk }) {
        QStreamCache cache(type, QStringLiteral("tst_cache"), true);
        QVERIFY(cache.itemData(nullptr).isEmpty());
        QVERIFY(cache.itemRawData(nullptr).isEmpty());
        QCOMPARE(cache.itemFilter(nullptr), cfNone);

        QStreamCacheItem* empty = cache.addItem(QByteArray());
        QCOMPARE(empty->storedSize, 0u);
        QCOMPARE(empty->crc, 0xFFFFFFFFFFFFFFFFull);
        QVERIFY(cache.itemData(empty).isEmpty());

        // A CRC handed in is trusted as it is; 0 asks the cache to compute it.
        const QByteArray bytes("some sound samples");
        QCOMPARE(cache.addItem(bytes, cfNone, nullptr, 42)->crc, 42ull);
        QCOMPARE(cache.addItem(bytes)->crc, crc64(bytes));
        // A payload whose filter cannot decode it decodes to nothing.
        QStreamCacheItem* broken = cache.addItem(QByteArray("not lz5"), cfLZ5, nullptr);
        QVERIFY(cache.itemData(broken).isEmpty());
        QCOMPARE(cache.itemRawData(broken), QByteArray("not lz5"));
        QCOMPARE(cache.itemFilter(broken), cfLZ5);
    }
}

void TestCache::memoryAndDiskGiveTheSameBytes_data()
{
    QTest::addColumn<bool>("compress");
    QTest::newRow("zlib") << true;
    QTest::newRow("plain") << false;
}

void TestCache::memoryAndDiskGiveTheSameBytes()
{
    QFETCH(bool, compress);
    QStreamCache memory(ctMemory, QStringLiteral("tst_cache"), compress, 9);
    QStreamCache disk(ctHardDisk, QStringLiteral("tst_cache"), compress, 9);
    std::deque<Picture> pictures;
    quint32 seed = 5;
    for (const auto& [name, pattern] : allPatterns())
        pictures.emplace_back(patternImage(pattern, 37, 11, 32, seed++));

    for (const Picture& picture : pictures) {
        for (const QStreamCacheFilterType filter : imageFilters) {
            const QByteArray payload = picture.encoded(filter);
            QVERIFY(!payload.isEmpty());
            void* param = const_cast<QStreamImageParam*>(&picture.param);
            QStreamCacheItem* m = memory.addItem(payload, filter, param);
            QStreamCacheItem* d = disk.addItem(payload, filter, param);
            QCOMPARE(memory.itemData(m), picture.pixels());
            QCOMPARE(disk.itemData(d), picture.pixels());
            QCOMPARE(m->crc, crc64(picture.pixels()));
            QCOMPARE(d->crc, m->crc);
            QCOMPARE(disk.itemRawData(d), memory.itemRawData(m));
            QCOMPARE(m->inputSize, quint32(payload.size()));
            QVERIFY(d->data.isEmpty());
            // Only payloads without a filter are compressed, and only when asked.
            if (filter == cfNone && compress)
                QCOMPARE(qUncompress(memory.itemRawData(m)), payload);
            else
                QCOMPARE(memory.itemRawData(m), payload);
            QCOMPARE(m->storedSize, quint32(memory.itemRawData(m).size()));
        }
    }
    verifyHoleFree(disk);
    QCOMPARE(memory.diskSize(), 0);
}

void TestCache::diskFileStaysHoleFree()
{
    QStreamCache cache(ctHardDisk, QStringLiteral("tst_cache"), true);
    QRandomGenerator random(99);
    QHash<QStreamCacheItem*, QByteArray> expected;
    auto payload = [&random](int n) {
        QByteArray bytes(1 + int(random.bounded(3000)), Qt::Uninitialized);
        for (char& c : bytes)
            c = char(random.bounded(n));
        return bytes;
    };
    auto verifyAll = [&]() {
        verifyHoleFree(cache);
        QCOMPARE(cache.items().size(), expected.size());
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QCOMPARE(cache.itemData(it.key()), it.value());
    };

    // Deleting the first of three leaves the file shorter by its stored size.
    for (int i = 0; i < 3; ++i) {
        const QByteArray bytes = payload(256);
        expected.insert(cache.addItem(bytes), bytes);
    }
    QStreamCacheItem* first = cache.items().first();
    const qint64 before = cache.diskSize();
    const quint32 firstSize = first->storedSize;
    expected.remove(first);
    cache.deleteItem(first);
    QCOMPARE(cache.diskSize(), before - firstSize);
    verifyAll();

    // Replacing an item in the middle moves it to the end of the file.
    for (int i = 0; i < 3; ++i) {
        const QByteArray bytes = payload(4);
        expected.insert(cache.addItem(bytes), bytes);
    }
    QStreamCacheItem* middle = cache.items().at(2);
    const QByteArray replacement = payload(2);
    cache.setItemData(middle, replacement, cfNone, nullptr);
    expected[middle] = replacement;
    QCOMPARE(cache.items().at(2), middle);
    QCOMPARE(qint64(middle->offset) + middle->storedSize, cache.diskSize());
    verifyAll();

    // Then a long seeded mix of additions, replacements and deletions.
    for (int step = 0; step < 300; ++step) {
        const int action = int(random.bounded(3));
        if (action == 0 || expected.isEmpty()) {
            const QByteArray bytes = payload(1 + int(random.bounded(255)));
            expected.insert(cache.addItem(bytes), bytes);
        } else {
            QStreamCacheItem* item = cache.items().at(int(random.bounded(cache.items().size())));
            if (action == 1) {
                const QByteArray bytes = payload(16);
                cache.setItemData(item, bytes, cfNone, nullptr);
                expected[item] = bytes;
            } else {
                cache.deleteItem(item);
                expected.remove(item);
            }
        }
        if (step % 25 == 0)
            verifyAll();
    }
    verifyAll();
}

void TestCache::findAcrossEncodings()
{
    for (const QStreamCacheType type : { ctMemory, ctHardDisk }) {
        QStreamCache cache(type, QStringLiteral("tst_cache"), true);
        const Picture a(patternImage(Pattern::Sprite, 23, 17, 32, 1));
        const Picture b(patternImage(Pattern::Noise, 23, 17, 32, 2));
        void* pa = const_cast<QStreamImageParam*>(&a.param);
        void* pb = const_cast<QStreamImageParam*>(&b.param);

        QStreamCacheItem* bAsRle8 = cache.addItem(b.encoded(cfRLE8), cfRLE8, pb);
        QStreamCacheItem* aAsLz5 = cache.addItem(a.encoded(cfLZ5), cfLZ5, pa);
        QStreamCacheItem* aAsPcx = cache.addItem(a.encoded(cfPCX), cfPCX, pa);
        QStreamCacheItem* aAsPixels = cache.addItem(a.pixels());

        QCOMPARE(cache.find(a.pixels()), aAsLz5);
        QCOMPARE(cache.find(a.pixels(), aAsLz5), aAsPcx);
        QCOMPARE(cache.find(b.pixels()), bAsRle8);
        QCOMPARE(cache.find(b.pixels(), bAsRle8), nullptr); // never the excluded one
        QCOMPARE(cache.find(QByteArray("nothing like it")), nullptr);

        // A CRC not yet known is computed on the way and kept.
        aAsPcx->crc = 0;
        QCOMPARE(cache.find(a.pixels(), aAsLz5), aAsPcx);
        QCOMPARE(aAsPcx->crc, crc64(a.pixels()));

        // An equal CRC is never taken for equal bytes.
        cache.deleteItem(aAsLz5);
        cache.deleteItem(aAsPcx);
        const QByteArray other = b.pixels();
        QStreamCacheItem* liar = cache.addItem(other, cfNone, nullptr, crc64(a.pixels()));
        QCOMPARE(cache.find(a.pixels()), aAsPixels);
        QCOMPARE(cache.find(a.pixels(), aAsPixels), nullptr);
        QCOMPARE(cache.itemData(liar), other);
    }
}

void TestCache::isEqualAcrossEncodings()
{
    QStreamCache cache(ctHardDisk, QStringLiteral("tst_cache"), false);
    const Picture a(patternImage(Pattern::Dither, 31, 9, 32, 3));
    const Picture b(patternImage(Pattern::Stripes, 31, 9, 32, 4));
    void* pa = const_cast<QStreamImageParam*>(&a.param);
    void* pb = const_cast<QStreamImageParam*>(&b.param);

    QStreamCacheItem* items[5];
    for (int i = 0; i < 5; ++i)
        items[i] = cache.addItem(a.encoded(imageFilters[i]), imageFilters[i], pa);
    for (QStreamCacheItem* x : items)
        for (QStreamCacheItem* y : items)
            QVERIFY(cache.isEqual(x, y));

    QStreamCacheItem* other = cache.addItem(b.encoded(cfLZ5), cfLZ5, pb);
    QVERIFY(!cache.isEqual(items[3], other));
    QVERIFY(!cache.isEqual(items[0], other));

    // One encoding, two streams for one picture: with the CRCs to compute,
    // the decoded bytes are compared and the two are equal.
    QStreamCacheItem* runsOnly = cache.addItem(saveLZ5(a.image, false), cfLZ5, pa);
    QVERIFY(cache.itemRawData(runsOnly) != cache.itemRawData(items[3]));
    runsOnly->crc = 0;
    items[3]->crc = 0;
    QVERIFY(cache.isEqual(runsOnly, items[3]));
    QCOMPARE(runsOnly->crc, crc64(a.pixels()));
}

void TestCache::clearRecyclesItems()
{
    auto& pool = QStreamCache::allocator();
    QStreamCache::flush();
    const int madeBefore = pool.allocated();
    QStreamCache cache(ctHardDisk, QStringLiteral("tst_cache"), true);
    for (int i = 0; i < 10; ++i)
        cache.addItem(QByteArray(100 + i, char(i)));
    QCOMPARE(pool.allocated(), madeBefore + 10);
    QVERIFY(cache.diskSize() > 0);

    cache.clear();
    QVERIFY(cache.items().isEmpty());
    QCOMPARE(cache.diskSize(), 0);
    QCOMPARE(pool.available(), 10);

    // Items come back from the pool with nothing of their past.
    QStreamCacheItem* reused = cache.addItem(QByteArray("fresh"));
    QCOMPARE(pool.allocated(), madeBefore + 10);
    QCOMPARE(cache.itemData(reused), QByteArray("fresh"));
    QCOMPARE(reused->offset, 0u);

    QStreamCache::flush();
    QCOMPARE(pool.available(), 0);
    QCOMPARE(pool.allocated(), madeBefore + 1);
}
