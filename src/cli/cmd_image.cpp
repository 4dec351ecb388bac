// pugilforge-cli image FILE [OUT]: an image's size and depth, or its conversion by suffix (PCX, PNG).
#include "qclicommand.h"

#include "formats/qimagefiles.h"

#include <QFileInfo>
#include <QJsonObject>

namespace {

/// The image in a format every writer takes: PCX holds only indexed, RGB32 and ARGB32.
QImage writable(const QImage& image)
{
    if (formatToDepth(image.format()) != 0)
        return image;
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

int runImage(const QCliRun& run)
{
    const QStringList& arguments = run.arguments();
    if (arguments.isEmpty() || arguments.size() > 2)
        return run.usage(QStringLiteral("image FILE [OUT]"));
    const QString fileName = arguments.first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));
    QString fault;
    const QImage image = loadImage(fileName, &fault);
    if (image.isNull())
        return run.fail(fileName, fault);

    const QString target = arguments.value(1);
    const QImage output = writable(image);
    if (!target.isEmpty() && !saveImage(target, output))
        return run.fail(target, QStringLiteral("cannot be written"));

    const int depth = formatToDepth(output.format());
    if (run.json()) {
        QJsonObject result { { QStringLiteral("file"), fileName }, { QStringLiteral("width"), image.width() },
            { QStringLiteral("height"), image.height() }, { QStringLiteral("depth"), depth },
            { QStringLiteral("colors"), int(image.colorCount()) } };
        if (!target.isEmpty())
            result.insert(QStringLiteral("written"), target);
        run.printJson(result);
        return 0;
    }
    run.print(QStringLiteral("%1: %2x%3, %4-bit%5")
                  .arg(fileName)
                  .arg(image.width())
                  .arg(image.height())
                  .arg(depth)
                  .arg(image.colorCount() > 0 ? QStringLiteral(", %1 colours").arg(image.colorCount())
                                              : QString()));
    if (!target.isEmpty())
        run.print(QStringLiteral("written: %1").arg(target));
    return 0;
}

const QCliCommand command("image", "image FILE [OUT]",
    "show an image's size and depth, or convert it by the suffixes (PCX <-> PNG)", runImage);

} // namespace
