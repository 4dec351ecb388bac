#include "qspriteexporter.h"

#include "formats/qimagefiles.h"
#include "model/qspriteimagedata.h"
#include "model/qsprites.h"
#include "util/qsavebytes.h"

#include <QDir>
#include <QFileInfo>

namespace {

bool usesPalette(const QSprite* sprite)
{
    return sprite->palette() && sprite->imageData() && sprite->imageData()->format == QImage::Format_Indexed8;
}

} // namespace

QSpriteExporter::QSpriteExporter(QSprites* sprites)
    : m_sprites(sprites)
{
}

bool QSpriteExporter::write(const QString& path, const QList<QSprite*>& sprites,
                            const QList<QSpritePalette*>& palettes)
{
    const QFileInfo target(path);
    m_directory = target.absolutePath();
    if (!writeFiles(sprites, palettes))
        return false;
    if (target.suffix().compare(QLatin1String("def"), Qt::CaseInsensitive) == 0)
        return saveBytes(path, compilerScript(target.completeBaseName(), sprites, palettes).toLatin1());
    return saveBytes(path, ownExport(sprites, palettes).toUtf8());
}

QString QSpriteExporter::freeName(qint32 group, qint32 index, const char* suffix)
{
    // Two items under one group and index would overwrite each other's file.
    QString name = QStringLiteral("%1-%2.%3").arg(group).arg(index).arg(QLatin1String(suffix));
    for (int copy = 2; m_names.contains(name); ++copy)
        name = QStringLiteral("%1-%2-%3.%4").arg(group).arg(index).arg(copy).arg(QLatin1String(suffix));
    m_names.insert(name);
    return name;
}

bool QSpriteExporter::writeFiles(const QList<QSprite*>& sprites, const QList<QSpritePalette*>& palettes)
{
    const uint total = uint(sprites.size() + palettes.size());
    uint done = 0;
    bool allow = true;
    emit m_sprites->progress(0, total, allow);
    for (const QSpritePalette* palette : palettes) {
        if (!allow)
            return false;
        if (palette->data() && !m_palettes.contains(palette->data())) {
            const QString name = freeName(palette->itemGroup(), palette->itemIndex(), "act");
            if (!palette->toFile(m_directory + QLatin1Char('/') + name))
                return false;
            m_palettes.insert(palette->data(), name);
        }
        emit m_sprites->progress(++done, total, allow);
    }
    for (const QSprite* sprite : sprites) {
        if (!allow)
            return false;
        if (sprite->imageData() && !m_images.contains(sprite->imageData())) {
            const QString name = freeName(sprite->itemGroup(), sprite->itemIndex(), "png");
            if (!saveImage(m_directory + QLatin1Char('/') + name, sprite->image(sipDisplay)))
                return false;
            m_images.insert(sprite->imageData(), name);
        }
        emit m_sprites->progress(++done, total, allow);
    }
    return allow;
}

QString QSpriteExporter::compilerScript(const QString& baseName, const QList<QSprite*>& sprites,
                                        const QList<QSpritePalette*>& palettes) const
{
    QString text = QStringLiteral("[Output]\r\n;filename = %1.sff\r\n\r\n[Option]\r\n"
                                  "sprite.compress.5 = lz5\r\nsprite.compress.8 = png8\r\n"
                                  "sprite.compress.24 = png24\r\nsprite.compress.32 = png32\r\n"
                                  "sprite.decompressonload = 0\r\npal.reversepng = 0\r\n\r\n")
                       .arg(baseName);
    if (!palettes.isEmpty()) {
        text += QStringLiteral("[Pal]\r\n");
        for (const QSpritePalette* palette : palettes)
            text += QStringLiteral("%1,%2, %3, 0,%4\r\n")
                        .arg(palette->itemGroup())
                        .arg(palette->itemIndex())
                        .arg(m_palettes.value(palette->data()))
                        .arg(palette->colorCount() - 1);
    }
    if (sprites.isEmpty())
        return text;
    text += QStringLiteral("\r\n[Sprite]\r\n");
    // The compiler's options hold until they are set again, so they are
    // written whenever a sprite needs other values than the one before.
    bool decompressOnLoad = false;
    bool removeColors = false;
    for (const QSprite* sprite : sprites) {
        const bool flag = sprite->flag(sfDecompressOnLoad);
        const bool shortPalette = usesPalette(sprite) && sprite->palette()->colorCount() < 256;
        if (flag != decompressOnLoad || shortPalette != removeColors) {
            text += QStringLiteral("\r\n[Option]\r\n");
            if (flag != decompressOnLoad)
                text += QStringLiteral("sprite.decompressonload = %1\r\n").arg(flag ? 1 : 0);
            if (shortPalette != removeColors)
                text += shortPalette ? QStringLiteral("sprite.removecolors = 32,255\r\n")
                                     : QStringLiteral("sprite.removecolors = -1\r\n");
            text += QStringLiteral("\r\n[Sprite]\r\n");
            decompressOnLoad = flag;
            removeColors = shortPalette;
        }
        text += QStringLiteral("%1,%2, %3, %4,%5")
                    .arg(sprite->itemGroup())
                    .arg(sprite->itemIndex())
                    .arg(m_images.value(sprite->imageData()))
                    .arg(sprite->offsetX())
                    .arg(sprite->offsetY());
        if (usesPalette(sprite))
            text += QStringLiteral(" ? usepal = %1,%2\r\n")
                        .arg(sprite->palette()->itemGroup())
                        .arg(sprite->palette()->itemIndex());
        else
            text += QStringLiteral("\r\n");
    }
    return text;
}

QString QSpriteExporter::ownExport(const QList<QSprite*>& sprites, const QList<QSpritePalette*>& palettes) const
{
    QString text = QStringLiteral(";0 always import the palette, 1 import only if all colors doesn't match to any "
                                  "existing palette\nnoDuplicatePal = 0\n");
    for (const QSpritePalette* palette : palettes)
        text += QStringLiteral("\n[PaletteDef]\ngroup = %1\nnumber = %2\nfile = %3\n")
                    .arg(palette->itemGroup())
                    .arg(palette->itemIndex())
                    .arg(m_palettes.value(palette->data()));
    for (const QSprite* sprite : sprites) {
        text += QStringLiteral("\n[SpriteDef]\ngroup = %1\nimage = %2\nxaxis = %3\nyaxis = %4\nflags = %5\n")
                    .arg(sprite->itemGroup())
                    .arg(sprite->itemIndex())
                    .arg(sprite->offsetX())
                    .arg(sprite->offsetY())
                    .arg(sprite->flags());
        if (usesPalette(sprite))
            text += QStringLiteral("palette = %1,%2\n")
                        .arg(sprite->palette()->itemGroup())
                        .arg(sprite->palette()->itemIndex());
        text += QStringLiteral("file = %1\n").arg(m_images.value(sprite->imageData()));
    }
    return text;
}
