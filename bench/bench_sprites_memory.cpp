// Resident memory of a sprite file whose pixels live in the disk cache:
// 5,000 sprites of 200x200 pixels should cost a small fixed amount per
// sprite, not their 40,000 bytes of pixels. Figures beside the raw size of
// the pixels and beside memcpy of the same bytes.

#include "benchutil.h"

#include "model/qsprites.h"

#include <QCoreApplication>
#include <QFile>
#include <QRandomGenerator>
#include <unistd.h>

namespace {

constexpr int spriteCount = 5000;
constexpr int side = 200;

/// Resident set size in bytes, from /proc/self/statm.
qint64 residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

/// A picture like a sprite's: a flat background, a figure of runs, and a
/// band of noise so that payloads do not compress to nothing. `number`
/// makes every picture different.
void paint(QImage& image, int number, QRandomGenerator& random)
{
    image.fill(0);
    for (int y = 20; y < side - 20; ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 40 + (y % 17); x < side - 40; ++x)
            line[x] = uchar(1 + (x / 8 + y / 8 + number) % 60);
    }
    for (int y = 80; y < 110; ++y) {
        quint32* line = reinterpret_cast<quint32*>(image.scanLine(y) + 60);
        for (int x = 0; x < 20; ++x)
            line[x] = random.generate();
    }
    std::memcpy(image.scanLine(0), &number, sizeof(number));
}

void measure(QStreamCacheType type, const char* label)
{
    QRandomGenerator random(7);
    QImage image(side, side, QImage::Format_Indexed8);
    QVector<QRgb> table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = qRgb(i, 255 - i, i / 2);
    image.setColorTable(table);

    const qint64 before = residentBytes();
    auto* sprites = new QSprites(nullptr, type, true, -1);
    QElapsedTimer timer;
    timer.start();
    {
        // Loaders fill a file under the change lock: no undo history.
        QSprites::ChangeLock lock(sprites);
        for (int i = 0; i < spriteCount; ++i) {
            paint(image, i, random);
            QSprite* sprite = sprites->add();
            sprite->setItem(i / 10, i % 10);
            sprite->setImage(image);
        }
    }
    const double fillMs = double(timer.nsecsElapsed()) / 1e6;
    const qint64 after = residentBytes();

    const qint64 pixels = qint64(spriteCount) * image.sizeInBytes();
    const double perSprite = double(after - before) / spriteCount;
    std::printf("%s cache: %d sprites of %dx%d, raw pixels %.1f MB\n", label, spriteCount, side, side,
                double(pixels) / 1e6);
    std::printf("  resident growth %.2f MB = %.0f bytes a sprite (x%.4f of its %lld pixel bytes)\n",
                double(after - before) / 1e6, perSprite, perSprite / double(image.sizeInBytes()),
                static_cast<long long>(image.sizeInBytes()));
    if (type == ctHardDisk)
        std::printf("  temporary file %.1f MB\n", double(sprites->cache()->diskSize()) / 1e6);

    // Time of filling against copying the same pixels.
    QByteArray target(image.sizeInBytes(), 0);
    const double copyMs = bench::bestMs(3, [&] {
        for (int i = 0; i < spriteCount; ++i) {
            std::memcpy(target.data(), image.constBits(), size_t(image.sizeInBytes()));
            bench::keep(target);
        }
    });
    bench::report("  setImage of every sprite (dedup search)", fillMs, copyMs);
    const double readMs = bench::bestMs(1, [&] {
        for (int i = 0; i < spriteCount; ++i)
            bench::keep(sprites->at(i)->image());
    });
    bench::report("  image() of every sprite", readMs, copyMs);
    std::printf("  baseline: memcpy of %d pictures %.3f ms\n", spriteCount, copyMs);
    delete sprites;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QSprites::init();
    const qint64 start = residentBytes();
    measure(ctHardDisk, "disk");
    std::printf("resident after the disk model is gone: %.2f MB above the start\n",
                double(residentBytes() - start) / 1e6);
    measure(ctMemory, "memory");
    return 0;
}
