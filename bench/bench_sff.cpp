// Opening SFF files (which decodes and hashes every picture), saving them
// unchanged (payloads copied) and saving them re-encoded, beside a memcpy of
// all their decoded pixels measured in the same run: into memory of each
// picture's own (the baseline), into memory already in use, and into memory
// fresh from the system. Times are the thread's processor time, so that other
// work on the machine does not count. An argument measures only the files
// whose name holds it ("x7").

#include "benchutil.h"

#include "model/qspriteimagedata.h"
#include "model/qsprites.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <cstring>
#include <sys/mman.h>
#include <memory>

namespace {

std::unique_ptr<QSprites> open(const QString& path)
{
    auto sprites = std::make_unique<QSprites>(nullptr, ctMemory, false, -1);
    if (!sprites->fromFile(path))
        return nullptr;
    return sprites;
}

/// The decoded pixels of every picture of the file, once each.
QList<QByteArray> decodedPictures(QSprites& sprites)
{
    QSet<const QSpriteImageData*> seen;
    QList<QByteArray> pictures;
    for (int i = 0; i < sprites.count(); ++i) {
        const QSpriteImageData* data = sprites.at(i)->imageData();
        if (data && !seen.contains(data)) {
            seen.insert(data);
            pictures.append(sprites.cache()->itemData(data->item));
        }
    }
    return pictures;
}

/// Replaces every payload by its decoded pixels, so that a save must encode each one.
void decodeAll(QSprites& sprites)
{
    QSet<QSpriteImageData*> seen;
    for (int i = 0; i < sprites.count(); ++i) {
        QSpriteImageData* data = sprites.at(i)->imageData();
        if (!data || seen.contains(data))
            continue;
        seen.insert(data);
        QStreamCacheItem* item = data->item;
        sprites.cache()->setItemData(item, sprites.cache()->itemData(item), cfNone, data->param(), item->crc);
    }
}

/// The files whose name holds this text, or every file when it is empty (the first argument).
QString onlyFiles;

void measure(const QString& root, const char* name, const QString& relative, const QString& directory)
{
    if (!QString::fromUtf8(name).contains(onlyFiles))
        return;
    const QString path = root.isEmpty() ? relative : root + QLatin1Char('/') + relative;
    auto sprites = open(path);
    if (!sprites) {
        std::printf("%s: not found or unreadable\n", name);
        return;
    }
    const QList<QByteArray> pictures = decodedPictures(*sprites);
    qsizetype total = 0;
    for (const QByteArray& picture : pictures)
        total += picture.size();
    // The floor: every picture written once into memory of its own, as a
    // decoder writes it; then the same bytes into memory already in use.
    const double floor = bench::bestCpuMs(20, [&] {
        for (const QByteArray& picture : pictures) {
            QByteArray copy(picture.size(), Qt::Uninitialized);
            std::memcpy(copy.data(), picture.constData(), size_t(picture.size()));
            bench::keep(copy);
        }
    });
    // Memory fresh from the system, as a decoder that keeps every picture it
    // gives out writes into: the page faults of the first touch included.
    const double fresh = bench::bestCpuMs(20, [&] {
        void* memory = mmap(nullptr, size_t(total), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            return;
        char* out = static_cast<char*>(memory);
        for (const QByteArray& picture : pictures) {
            std::memcpy(out, picture.constData(), size_t(picture.size()));
            out += picture.size();
        }
        bench::keep(out);
        munmap(memory, size_t(total));
    });
    QByteArray target(total, '\0');
    const double hot = bench::bestCpuMs(20, [&] {
        char* out = target.data();
        for (const QByteArray& picture : pictures) {
            std::memcpy(out, picture.constData(), size_t(picture.size()));
            out += picture.size();
        }
        bench::keep(target);
    });
    std::printf("\n%s: %lld sprites, %lld pictures, %.1f MB decoded, file %.1f MB\n", name,
                static_cast<long long>(sprites->count()), static_cast<long long>(pictures.size()), total / 1e6,
                QFileInfo(path).size() / 1e6);
    bench::report("memcpy of the decoded pixels (baseline)", floor, floor);
    bench::report("memcpy into memory already in use", hot, floor);
    bench::report("memcpy into fresh memory", fresh, floor);
    const double opening = bench::bestCpuMs(15, [&] { bench::keep(open(path)); });
    char ofFresh[64];
    std::snprintf(ofFresh, sizeof ofFresh, "(x%.2f of fresh memory)", opening / fresh);
    bench::report("open (decode and hash every picture)", opening, floor, ofFresh);
    const QString saved = directory + QStringLiteral("/saved.sff");
    bench::report("save unchanged (payloads copied)",
                  bench::bestCpuMs(5, [&] { bench::keep(sprites->toFile(saved, 0, true)); }), floor);
    decodeAll(*sprites);
    bench::report("save re-encoded (every picture encoded)",
                  bench::bestCpuMs(3, [&] { bench::keep(sprites->toFile(saved, 0, true)); }), floor);
}

/**
 * A large version 1 file of PCX sprites: the sprites of `source` saved as
 * 1.0.1.0 and repeated `copies` times, each copy a different picture (one
 * corner pixel changed) so that the reader cannot join them.
 */
QString largeVersion1(const QString& source, int copies, const QString& directory)
{
    auto original = open(source);
    if (!original)
        return QString();
    QSprites large(nullptr, ctMemory, false, -1);
    large.setVersion(QSprites::version101);
    {
        QSprites::ChangeLock lock(&large);
        for (int copy = 0; copy < copies; ++copy) {
            for (int i = 0; i < original->count(); ++i) {
                const QSprite* sprite = original->at(i);
                QImage image = sprite->image(sipOwn);
                if (image.isNull())
                    continue;
                if (copy > 0)
                    image.setPixel(0, 0, uint(copy));
                QSprite* added = large.add();
                added->setItem(sprite->itemGroup() + 10000 * copy, sprite->itemIndex());
                added->setOffset(sprite->offset());
                added->setImage(image, ssmPrivate, false, spmNew);
            }
        }
    }
    const QString path = directory + QStringLiteral("/large-v1.sff");
    return large.toFile(path, QSprites::version101, true) ? path : QString();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QSprites::init();
    if (argc > 1)
        onlyFiles = QString::fromLocal8Bit(argv[1]);
    const QString root = bench::realData();
    QTemporaryDir directory;
    const QString screenpack = QStringLiteral("ikemen-engine__Ikemen_GO-Elecbyte-Screenpack/");
    measure(root, "kfm.sff (1.0, 2.0.0.0, LZ5)", QStringLiteral("fanyer__mugen/chars/kfm/kfm.sff"), directory.path());
    measure(root, "kfm720.sff (screenpack, 2.0.1.0, PNG8)", screenpack + QStringLiteral("chars/kfm720/kfm720.sff"),
            directory.path());
    measure(root, "fight.sff (screenpack, 2.0.1.0, PNG32)", screenpack + QStringLiteral("data/fight.sff"),
            directory.path());
    measure(root, "mugen1/system.sff (2.0.0.0, RLE8)", QStringLiteral("fanyer__mugen/data/mugen1/system.sff"),
            directory.path());
    measure(root, "system.sff (1.0.1.0, PCX)", QStringLiteral("fanyer__mugen/data/system.sff"), directory.path());
    const char* largeName = "kfm.sff x7 (1.0.1.0, PCX)";
    if (QString::fromUtf8(largeName).contains(onlyFiles)) {
        const QString large =
            largeVersion1(root + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.sff"), 7, directory.path());
        measure(QString(), largeName, large, directory.path());
    }
    return 0;
}
