// The file operations of QSprites: SFF reading and writing, the checks
// before a save, and the export and import of loose image files.
#include "qsprites.h"

#include "formats/qpalettematcher.h"
#include "image/qcolorquantizer.h"
#include "model/qsffreader.h"
#include "model/qsffwriter.h"
#include "model/qspriteexporter.h"
#include "model/qspriteimagedata.h"
#include "model/qspriteimporter.h"
#include "util/qprompt.h"


namespace {

/**
 * A true-colour picture with at most 256 colours: entry 0 is the transparent
 * colour, which every fully transparent pixel takes; the opaque pixels take
 * the nearest of up to 255 colours the quantizer finds for them. `error`
 * becomes the largest difference of one channel, alpha included, between a
 * pixel and the colour it now shows.
 */
QImage quantized(const QImage& picture, int& error)
{
    error = 0;
    const QImage source = picture.convertToFormat(QImage::Format_ARGB32);
    if (source.isNull())
        return QImage();
    QColorQuantizer quantizer(255, 8);
    quantizer.processImage(source);
    QVector<QRgb> found;
    quantizer.getColorTable(found);
    const int used = qBound(1, quantizer.colorCount(), 255);
    QVector<QRgb> table(used + 1, qRgba(0, 0, 0, 0));
    for (int i = 0; i < used; ++i)
        table[i + 1] = found.at(i) | 0xFF000000u;
    QPaletteMatcher matcher(table, 1);

    QImage target(source.size(), QImage::Format_Indexed8);
    for (int y = 0; y < source.height(); ++y) {
        const QRgb* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* out = target.scanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            const QRgb colour = in[x];
            out[x] = qAlpha(colour) == 0 ? 0 : uchar(matcher.index(colour | 0xFF000000u));
            const QRgb shown = table.at(out[x]);
            if (out[x] != 0)
                error = qMax(error, qMax(qMax(qAbs(qRed(colour) - qRed(shown)), qAbs(qGreen(colour) - qGreen(shown))),
                                         qMax(qAbs(qBlue(colour) - qBlue(shown)), 255 - qAlpha(colour))));
        }
    }
    table.resize(256);
    target.setColorTable(table);
    return target;
}

} // namespace

bool QSprites::fromFile(const QString& path, bool keepName)
{
    QSFFReader reader(this, !project() || projectType() == ptCharacter);
    const bool read = reader.read(path);
    m_readFaults = reader.faults();
    if (!read)
        return false;
    if (!keepName)
        m_fileName = path;
    setModified(false);
    return true;
}

bool QSprites::toFile(const QString& path, unsigned int version, bool keepName)
{
    if (version != 0)
        setVersion(version);
    const bool character = !project() || projectType() == ptCharacter;
    if (!fixVersion(character))
        return false;
    if (!QSFFWriter(this, keepName, character).write(path))
        return false;
    if (!keepName)
        m_fileName = path;
    setModified(false);
    return true;
}

bool QSprites::canSave(unsigned int version) const
{
    if (m_sprites.isEmpty()) {
        prompt().warning(tr("Save SFF"), tr("You can't save an empty SFF because M.U.G.E.N. will not open it."));
        return false;
    }
    if (version == defaultVersion && !containsIndexed())
        return true;
    if (m_palettes.isEmpty()) {
        prompt().warning(tr("Save SFF"), tr("You can't save this SFF without palettes."));
        return false;
    }
    return true;
}

bool QSprites::fixVersion(bool character)
{
    for (int i = 0; i < m_sprites.size(); ++i) {
        if (!m_sprites.at(i)->imageData()) {
            prompt().critical(tr("Empty sprite!"),
                              tr("The sprite at index %1 is empty. You can't save a SFF file with an empty sprite.")
                                  .arg(i + 1));
            return false;
        }
    }
    for (int i = 0; i < m_palettes.size(); ++i) {
        if (!m_palettes.at(i)->data()) {
            prompt().critical(tr("Empty palette!"),
                              tr("The palette at index %1 is empty. You can't save a SFF file with an empty palette.")
                                  .arg(i + 1));
            return false;
        }
    }
    if (m_version == defaultVersion)
        return true;

    // Below 2.0.1.0 every sprite must be indexed: the model itself is
    // converted, as checkErrors warns, each picture with a palette of its
    // own; the author learns how many and how far the colours moved.
    int reduced = 0;
    int worst = 0;
    for (QSprite* sprite : qAsConst(m_sprites)) {
        if (sprite->imageData()->format == QImage::Format_Indexed8)
            continue;
        int error = 0;
        const QImage indexed = quantized(sprite->image(), error);
        if (indexed.isNull())
            continue;
        sprite->setImage(indexed, ssmShared, false, spmNew);
        ++reduced;
        worst = qMax(worst, error);
    }
    if (reduced > 0)
        prompt().information(tr("Save SFF"),
                             tr("%n true-colour sprite(s) reduced to 8 bits for this version; the largest "
                                "colour error of a pixel is %1 of 255.",
                                nullptr, reduced)
                                 .arg(worst));

    if (m_version == version101 && character) {
        QList<uint> misplaced;
        auto characterPaletteOf = [](const QSprite* sprite) {
            return sprite->palette() && sprite->palette()->itemGroup() == 1;
        };
        for (int i = 0; i < m_sprites.size(); ++i) {
            const QSprite* sprite = m_sprites.at(i);
            const bool special = sprite->itemIndex() == 0 && (sprite->itemGroup() == 0 || sprite->itemGroup() == 9000);
            if (special || !characterPaletteOf(sprite))
                continue;
            const QSprite* previous = at(i - 1);
            if (!previous || (previous->palette() && !characterPaletteOf(previous)))
                misplaced.append(uint(i));
        }
        if (!misplaced.isEmpty())
            emit orderMustBeChanged(misplaced);
    }
    return true;
}

void QSprites::exportAll(const QString& path)
{
    QList<QSprite*> sprites = m_sprites;
    QList<QSpritePalette*> palettes = m_palettes;
    QSpriteExporter(this).write(path, sprites, palettes);
}

void QSprites::exportGroup(int group, const QString& path)
{
    QList<QSprite*> sprites;
    QList<QSpritePalette*> palettes;
    for (QSprite* sprite : qAsConst(m_sprites)) {
        if (sprite->itemGroup() != group || !sprite->imageData())
            continue;
        sprites.append(sprite);
        if (sprite->imageData()->format == QImage::Format_Indexed8 && sprite->palette()
            && !palettes.contains(sprite->palette()))
            palettes.append(sprite->palette());
    }
    QSpriteExporter(this).write(path, sprites, palettes);
}

void QSprites::import(QString path, int at)
{
    QSpriteImporter(this).read(path, at);
}
