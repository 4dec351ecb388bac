// Throughput of the sprite codecs and of crc64 on the sprites of the real
// engine files: every sprite is decoded and hashed when a file opens. Each
// figure stands beside memcpy of the same pixels, sprite by sprite, in the
// same run (processor time of the thread); decoders should stay within four
// times the memcpy time.
#include "benchutil.h"

#include "../tests/cache/sffsprites.h"

#include "formats/qpcx.h"
#include "model/qspritecodecs.h"
#include "model/qstreamcachefilter.h"
#include "model/qstreamcachefilters.h"
#include "util/qcrc64.h"

#include <QDirIterator>
#include <cstring>
#include <vector>

namespace {

struct Sprite
{
    QByteArray payload;
    QImage image; ///< decoded once, for sizes, the baseline and encoding
    QStreamImageParam param;
};

struct Set
{
    const char* name;
    std::vector<Sprite> sprites;
    double pixelBytes = 0; ///< decoded bytes, row padding included

    QImage decode(const Sprite& s) const
    {
        switch (name[0]) {
        case 'L':
            return loadLZ5(s.param.width, s.param.height, s.payload);
        case 'R':
            return loadRLE8(s.param.width, s.param.height, QImage::Format_Indexed8, s.payload);
        default:
            return loadPCX(s.payload);
        }
    }
};

Set collect(const char* name, int codec)
{
    Set set { name, {} };
    QDirIterator it(bench::realData(), { QStringLiteral("*.sff") }, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        for (const SffSprite& s : readSffSprites(it.next())) {
            if (s.codec != codec || s.payload.isEmpty())
                continue;
            Sprite sprite;
            sprite.payload = s.payload;
            sprite.param.width = s.width;
            sprite.param.height = s.height;
            sprite.image = set.decode(sprite);
            if (sprite.image.isNull())
                continue;
            sprite.param.width = quint16(sprite.image.width());
            sprite.param.height = quint16(sprite.image.height());
            sprite.param.format = sprite.image.format();
            set.pixelBytes += double(sprite.image.sizeInBytes());
            set.sprites.push_back(sprite);
        }
    }
    return set;
}

/// memcpy of every sprite's decoded bytes into buffers made beforehand.
double memcpyMs(const Set& set)
{
    std::vector<QByteArray> targets;
    for (const Sprite& s : set.sprites)
        targets.emplace_back(s.image.sizeInBytes(), Qt::Uninitialized);
    return bench::bestCpuMs(25, [&] {
        for (size_t i = 0; i < set.sprites.size(); ++i)
            std::memcpy(targets[i].data(), set.sprites[i].image.constBits(), size_t(targets[i].size()));
        bench::keep(targets);
    });
}

void line(const char* label, double ms, double baseline, double bytes)
{
    char extra[96];
    std::snprintf(extra, sizeof extra, "%8.0f MB/s (memcpy %6.0f MB/s)", bench::mbPerSecond(bytes, ms),
                  bench::mbPerSecond(bytes, baseline));
    bench::report(label, ms, baseline, extra);
}

void decodeBench(const Set& set, QStreamCacheFilter& filter)
{
    if (set.sprites.empty()) {
        std::printf("%s: no sprites found\n", set.name);
        return;
    }
    std::printf("\n%s: %zu sprites, %.1f MB of pixels, %.1f MB encoded\n", set.name, set.sprites.size(),
                set.pixelBytes / 1e6, [&] {
                    double total = 0;
                    for (const Sprite& s : set.sprites)
                        total += double(s.payload.size());
                    return total / 1e6;
                }());
    const double baseline = memcpyMs(set);
    const double toImage = bench::bestCpuMs(25, [&] {
        for (const Sprite& s : set.sprites)
            bench::keep(set.decode(s));
    });
    const double throughFilter = bench::bestCpuMs(25, [&] {
        for (const Sprite& s : set.sprites)
            bench::keep(filter.process(s.payload, const_cast<QStreamImageParam*>(&s.param)));
    });
    const QByteArray imageLabel = QByteArray(set.name) + " decode into QImage";
    const QByteArray filterLabel = QByteArray(set.name) + " decode by cache filter";
    line(imageLabel.constData(), toImage, baseline, set.pixelBytes);
    line(filterLabel.constData(), throughFilter, baseline, set.pixelBytes);
}

} // namespace

int main()
{
    if (bench::realData().isEmpty() || !QDir(bench::realData()).exists()) {
        std::printf("real engine files not found: nothing to measure\n");
        return 0;
    }
    const Set lz5 = collect("LZ5", scLZ5);
    const Set rle8 = collect("RLE8", scRLE8);
    const Set pcx = collect("PCX", SffSprite::Pcx);

    QLZ5CacheFilter lz5Filter;
    QRLE8CacheFilter rle8Filter;
    QPCXCacheFilter pcxFilter;
    decodeBench(lz5, lz5Filter);
    decodeBench(rle8, rle8Filter);
    decodeBench(pcx, pcxFilter);

    if (!lz5.sprites.empty()) {
        std::printf("\nLZ5 encode of the %zu LZ5 sprites\n", lz5.sprites.size());
        const double baseline = memcpyMs(lz5);
        double encoded = 0;
        const double ms = bench::bestCpuMs(3, [&] {
            encoded = 0;
            for (const Sprite& s : lz5.sprites)
                encoded += double(saveLZ5(s.image, true).size());
        });
        line("LZ5 encode (saveLZ5)", ms, baseline, lz5.pixelBytes);
        double original = 0;
        for (const Sprite& s : lz5.sprites)
            original += double(s.payload.size());
        std::printf("   encoded %.0f bytes, the engine's %.0f (%.2f%%)\n", encoded, original,
                    100.0 * encoded / original);
    }

    std::printf("\ncrc64 of every decoded sprite above\n");
    Set all { "all", {} };
    for (const Set* set : { &lz5, &rle8, &pcx })
        for (const Sprite& s : set->sprites) {
            all.sprites.push_back(s);
            all.pixelBytes += double(s.image.sizeInBytes());
        }
    const double baseline = memcpyMs(all);
    quint64 sum = 0;
    const double ms = bench::bestCpuMs(25, [&] {
        for (const Sprite& s : all.sprites)
            sum += crc64(reinterpret_cast<const char*>(s.image.constBits()), quint32(s.image.sizeInBytes()));
        bench::keep(sum);
    });
    line("crc64 per sprite", ms, baseline, all.pixelBytes);

    // One large buffer, beyond the caches, against memcpy of it.
    QByteArray big(64 << 20, Qt::Uninitialized);
    for (qsizetype i = 0; i < big.size(); ++i)
        big[i] = char(i * 2654435761u >> 24);
    QByteArray copy(big.size(), Qt::Uninitialized);
    const double bigBaseline = bench::bestCpuMs(15, [&] {
        std::memcpy(copy.data(), big.constData(), size_t(big.size()));
        bench::keep(copy);
    });
    const double bigMs = bench::bestCpuMs(15, [&] { bench::keep(crc64(big)); });
    line("crc64 of one 64 MB buffer", bigMs, bigBaseline, double(big.size()));
    return 0;
}
