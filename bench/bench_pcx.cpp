// Decoding and encoding every PCX of the engine's sample work folder, beside
// copying the same decoded bytes (the floor of any decoder) and Qt's PNG codec.
#include "benchutil.h"

#include "formats/qimagefiles.h"
#include "formats/qpcx.h"

#include <QBuffer>
#include <QDirIterator>
#include <QFile>

#include <cstring>
#include <vector>

int main()
{
    const QString root = bench::realData() + QStringLiteral("/fanyer__mugen/work");
    QList<QByteArray> files;
    QDirIterator it(root, { QStringLiteral("*.pcx") }, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly))
            files.append(file.readAll());
    }
    if (files.isEmpty()) {
        std::printf("no PCX files under %s\n", qPrintable(root));
        return 0;
    }
    QList<QImage> images;
    qint64 pixelBytes = 0;
    for (const QByteArray& data : files) {
        images.append(loadPCX(data));
        pixelBytes += images.last().sizeInBytes();
    }
    const std::vector<char> source(static_cast<size_t>(pixelBytes), 1);
    std::vector<char> target(static_cast<size_t>(pixelBytes));

    const int repetitions = 7;
    const double copy = bench::bestMs(repetitions, [&] {
        std::memcpy(target.data(), source.data(), source.size());
        bench::keep(target);
    });
    const double decode = bench::bestMs(repetitions, [&] {
        for (const QByteArray& data : files)
            bench::keep(loadPCX(data));
    });
    const double encode = bench::bestMs(repetitions, [&] {
        for (const QImage& image : images) {
            QByteArray out;
            QBuffer buffer(&out);
            buffer.open(QIODevice::WriteOnly);
            savePCX(image, &buffer);
            bench::keep(out);
        }
    });
    QList<QByteArray> pngs;
    for (const QImage& image : images)
        pngs.append(savePNG(image));
    const double png = bench::bestMs(repetitions, [&] {
        for (const QByteArray& data : pngs)
            bench::keep(loadPNG(data));
    });

    std::printf("%lld PCX files, %.1f MB of pixels\n", qlonglong(files.size()), double(pixelBytes) / 1e6);
    bench::report("memcpy of the decoded bytes (baseline)", copy, copy);
    bench::report("loadPCX, all files", decode, copy);
    bench::report("savePCX, all files", encode, copy);
    bench::report("loadPNG of the same images", png, copy);
    return 0;
}
