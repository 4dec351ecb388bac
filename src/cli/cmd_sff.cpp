// pugilforge-cli sff info|convert|export|import: sprite files without a window.
#include "qclicommand.h"

#include "formats/qimagefiles.h"
#include "model/qsffreader.h"
#include "model/qspriteimagedata.h"
#include "model/qsprites.h"
#include "util/qengineversion.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

const char* const usageText = "sff info FILE | sff convert IN OUT --version 1.0.1.0|2.0.0.0|2.0.1.0 | "
                              "sff export IN OUT.def|OUT.pfe | sff import IN.pfe OUT.sff";

/// The SFF versions the program writes, by their dotted names; 0 for any other text.
quint32 parseVersion(const QString& text)
{
    if (text == QLatin1String("1.0.1.0"))
        return sffVersion101;
    if (text == QLatin1String("2.0.0.0"))
        return sffVersion200;
    if (text == QLatin1String("2.0.1.0"))
        return sffVersion201;
    return 0;
}

QString compressionText(const QSprites& sprites, const QSprite* sprite)
{
    static const char* const names[] = { "raw", "pcx", "rle8", "rle5", "lz5", "png" };
    const QSpriteImageData* data = sprite->imageData();
    if (!data)
        return QStringLiteral("none");
    return QLatin1String(names[const_cast<QSprites&>(sprites).cache()->itemFilter(data->item)]);
}

/// The first earlier sprite sharing this one's pixels, or -1.
int linkOf(const QSprites& sprites, int position)
{
    const QSprite* sprite = sprites.at(position);
    const int base = sprite->imageData() ? sprites.findBaseSprite(sprite->imageData(), position) : -1;
    return base == position ? -1 : base;
}

/// Opens a sprite file for a command; reports and returns false when it cannot.
bool openSprites(const QCliRun& run, QSprites& sprites, const QString& fileName)
{
    QSprites::init();
    if (!QFileInfo(fileName).isFile()) {
        run.fail(fileName, QStringLiteral("no such file"));
        return false;
    }
    // Read as the model reads a file of its own, with what went wrong kept:
    // a file cut short is refused, saying where, rather than shown half blank.
    QSFFReader reader(&sprites, true);
    const bool read = reader.read(fileName);
    if (!read || !reader.faults().isEmpty()) {
        run.fail(fileName, reader.faults().value(0, QStringLiteral("not a readable SFF file")));
        return false;
    }
    sprites.setFileName(fileName);
    sprites.setModified(false);
    return true;
}

int info(const QCliRun& run, const QString& fileName)
{
    QSprites sprites(nullptr, ctMemory, false, -1);
    if (!openSprites(run, sprites, fileName))
        return QCliRun::exitUnreadable;
    if (run.json()) {
        QJsonArray list;
        for (int i = 0; i < sprites.count(); ++i) {
            const QSprite* sprite = sprites.at(i);
            const QImageInfo image = sprite->imageInfo();
            list.append(QJsonObject{ { QStringLiteral("group"), sprite->itemGroup() },
                                     { QStringLiteral("index"), sprite->itemIndex() },
                                     { QStringLiteral("width"), image.width },
                                     { QStringLiteral("height"), image.height },
                                     { QStringLiteral("depth"), formatToDepth(image.format) },
                                     { QStringLiteral("x"), sprite->offsetX() },
                                     { QStringLiteral("y"), sprite->offsetY() },
                                     { QStringLiteral("palette"), sprite->palette() ? sprite->palette()->index() : -1 },
                                     { QStringLiteral("compression"), compressionText(sprites, sprite) },
                                     { QStringLiteral("link"), linkOf(sprites, i) } });
        }
        QJsonArray palettes;
        for (int i = 0; i < sprites.paletteCount(); ++i) {
            const QSpritePalette* palette = sprites.paletteAt(i);
            const int base = sprites.findBasePalette(palette->data(), i);
            palettes.append(QJsonObject{ { QStringLiteral("group"), palette->itemGroup() },
                                         { QStringLiteral("index"), palette->itemIndex() },
                                         { QStringLiteral("colors"), palette->colorCount() },
                                         { QStringLiteral("link"), base == i ? -1 : base } });
        }
        run.printJson(QJsonObject{ { QStringLiteral("file"), fileName },
                                   { QStringLiteral("version"), engineVersion::dotted(sprites.getVersion()) },
                                   { QStringLiteral("spriteCount"), sprites.count() },
                                   { QStringLiteral("paletteCount"), sprites.paletteCount() },
                                   { QStringLiteral("sprites"), list },
                                   { QStringLiteral("palettes"), palettes } });
        return 0;
    }
    run.print(QStringLiteral("%1: SFF %2, %3 sprites, %4 palettes")
                  .arg(fileName, engineVersion::dotted(sprites.getVersion()))
                  .arg(sprites.count())
                  .arg(sprites.paletteCount()));
    for (int i = 0; i < sprites.count(); ++i) {
        const QSprite* sprite = sprites.at(i);
        const QImageInfo image = sprite->imageInfo();
        const int link = linkOf(sprites, i);
        run.print(QStringLiteral("%1: %2,%3 %4x%5x%6 axis %7,%8 palette %9 %10%11")
                      .arg(i)
                      .arg(sprite->itemGroup())
                      .arg(sprite->itemIndex())
                      .arg(image.width)
                      .arg(image.height)
                      .arg(formatToDepth(image.format))
                      .arg(sprite->offsetX())
                      .arg(sprite->offsetY())
                      .arg(sprite->palette() ? sprite->palette()->index() : -1)
                      .arg(compressionText(sprites, sprite))
                      .arg(link >= 0 ? QStringLiteral(" link %1").arg(link) : QString()));
    }
    for (int i = 0; i < sprites.paletteCount(); ++i) {
        const QSpritePalette* palette = sprites.paletteAt(i);
        run.print(QStringLiteral("palette %1: %2,%3 %4 colours")
                      .arg(i)
                      .arg(palette->itemGroup())
                      .arg(palette->itemIndex())
                      .arg(palette->colorCount()));
    }
    return 0;
}

/// Saves after the checks a save in the program makes; reports a refusal.
int save(const QCliRun& run, QSprites& sprites, const QString& target, quint32 version)
{
    if (!sprites.canSave(version ? version : sprites.getVersion()))
        return run.fail(target, QStringLiteral("cannot be saved in this version"));
    if (!sprites.toFile(target, version))
        return run.fail(target, QStringLiteral("could not be written"));
    return 0;
}

int convert(const QCliRun& run)
{
    QStringList arguments = run.arguments().mid(1);
    const int flag = arguments.indexOf(QStringLiteral("--version"));
    if (flag < 0 || flag + 1 >= arguments.size())
        return run.usage(QLatin1String(usageText));
    const quint32 version = parseVersion(arguments.at(flag + 1));
    arguments.remove(flag, 2);
    if (version == 0 || arguments.size() != 2)
        return run.usage(QLatin1String(usageText));
    QSprites sprites(nullptr, ctMemory, false, -1);
    if (!openSprites(run, sprites, arguments.at(0)))
        return QCliRun::exitUnreadable;
    const int result = save(run, sprites, arguments.at(1), version);
    if (result == 0 && !run.json())
        run.print(QStringLiteral("%1: SFF %2, %3 sprites, %4 palettes")
                      .arg(arguments.at(1), engineVersion::dotted(version))
                      .arg(sprites.count())
                      .arg(sprites.paletteCount()));
    return result;
}

int exportSprites(const QCliRun& run, const QString& source, const QString& target)
{
    QSprites sprites(nullptr, ctMemory, false, -1);
    if (!openSprites(run, sprites, source))
        return QCliRun::exitUnreadable;
    sprites.exportAll(target);
    if (!QFileInfo(target).isFile())
        return run.fail(target, QStringLiteral("could not be written"));
    return 0;
}

int importSprites(const QCliRun& run, const QString& source, const QString& target)
{
    QSprites::init();
    if (!QFileInfo(source).isFile())
        return run.fail(source, QStringLiteral("no such file"));
    QSprites sprites(nullptr, ctMemory, false, -1);
    sprites.import(source, -1);
    if (sprites.count() == 0)
        return run.fail(source, QStringLiteral("describes no sprite"));
    return save(run, sprites, target, 0);
}

int runSff(const QCliRun& run)
{
    const QStringList& arguments = run.arguments();
    const QString action = arguments.value(0);
    if (action == QLatin1String("info") && arguments.size() == 2)
        return info(run, arguments.at(1));
    if (action == QLatin1String("convert"))
        return convert(run);
    if (action == QLatin1String("export") && arguments.size() == 3)
        return exportSprites(run, arguments.at(1), arguments.at(2));
    if (action == QLatin1String("import") && arguments.size() == 3)
        return importSprites(run, arguments.at(1), arguments.at(2));
    return run.usage(QLatin1String(usageText));
}

const QCliCommand command("sff", usageText,
                          "show, convert, export or import an SFF sprite file (versions 1.0.1.0, 2.0.0.0, 2.0.1.0)",
                          runSff);

} // namespace
