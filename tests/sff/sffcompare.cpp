#include "sffcompare.h"

#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qsprites.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>

std::unique_ptr<QSprites> newSprites()
{
    return std::make_unique<QSprites>(nullptr, ctMemory, false, -1);
}

std::unique_ptr<QSprites> loadSprites(const QString& path)
{
    auto sprites = newSprites();
    if (!sprites->fromFile(path))
        return nullptr;
    return sprites;
}

QVector<QRgb> shownColours(const QSprite* sprite)
{
    const QImage image = sprite->image(sipDisplay);
    if (image.isNull())
        return {};
    QVector<QRgb> colours;
    colours.reserve(qsizetype(image.width()) * image.height());
    const QVector<QRgb> table = image.colorTable();
    for (int y = 0; y < image.height(); ++y) {
        const uchar* line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            QRgb colour = 0;
            if (image.format() == QImage::Format_Indexed8) {
                const int index = line[x];
                colour = index == 0 ? 0u : (index < table.size() ? table.at(index) : 0u) | 0xFF000000u;
            } else {
                colour = reinterpret_cast<const QRgb*>(line)[x];
                if (image.format() == QImage::Format_RGB32)
                    colour |= 0xFF000000u;
                else if (qAlpha(colour) == 0)
                    colour = 0;
            }
            colours.append(colour);
        }
    }
    return colours;
}

int worstColourError(const QVector<QRgb>& expected, const QVector<QRgb>& actual)
{
    if (expected.size() != actual.size())
        return 256;
    int worst = 0;
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const QRgb a = expected.at(i);
        const QRgb b = actual.at(i);
        if ((qAlpha(a) == 0) != (qAlpha(b) == 0))
            return 256;
        worst = qMax(worst, qMax(qAbs(qRed(a) - qRed(b)), qMax(qAbs(qGreen(a) - qGreen(b)), qAbs(qBlue(a) - qBlue(b)))));
        worst = qMax(worst, qAbs(qAlpha(a) - qAlpha(b)));
    }
    return worst;
}

QStringList spriteDifferences(const QSprites& expected, const QSprites& actual, bool flags)
{
    QStringList differences;
    if (expected.count() != actual.count())
        return { QStringLiteral("%1 sprites, not %2").arg(actual.count()).arg(expected.count()) };
    for (int i = 0; i < expected.count(); ++i) {
        const QSprite* a = expected.at(i);
        const QSprite* b = actual.at(i);
        if (a->subItem() != b->subItem() || a->offset() != b->offset() || (flags && a->flags() != b->flags()))
            differences << QStringLiteral("sprite %1: properties").arg(i);
        else if (a->imageInfo().width != b->imageInfo().width || a->imageInfo().height != b->imageInfo().height)
            differences << QStringLiteral("sprite %1 (%2,%3): size").arg(i).arg(a->itemGroup()).arg(a->itemIndex());
        else if (shownColours(a) != shownColours(b))
            differences << QStringLiteral("sprite %1 (%2,%3): colours, worst error %4")
                               .arg(i)
                               .arg(a->itemGroup())
                               .arg(a->itemIndex())
                               .arg(worstColourError(shownColours(a), shownColours(b)));
    }
    return differences;
}

QStringList paletteDifferences(const QSprites& expected, const QSprites& actual, bool alpha)
{
    if (expected.paletteCount() != actual.paletteCount())
        return { QStringLiteral("%1 palettes, not %2").arg(actual.paletteCount()).arg(expected.paletteCount()) };
    QStringList differences;
    for (int i = 0; i < expected.paletteCount(); ++i) {
        const QSpritePalette* a = expected.paletteAt(i);
        const QSpritePalette* b = actual.paletteAt(i);
        // A palette may go into a file with more colours than it had, never fewer.
        bool same = a->subItem() == b->subItem() && a->colorCount() <= b->colorCount();
        for (int c = 0; same && c < a->colorCount(); ++c) {
            const QRGBA x = a->colors()[c];
            const QRGBA y = b->colors()[c];
            same = x.r == y.r && x.g == y.g && x.b == y.b && (!alpha || x.a == y.a);
        }
        if (!same)
            differences << QStringLiteral("palette %1").arg(i);
    }
    return differences;
}

QStringList linkDifferences(const QSprites& expected, const QSprites& actual)
{
    QStringList differences;
    for (int i = 0; i < expected.count() && i < actual.count(); ++i) {
        const int a = expected.findBaseSprite(expected.at(i)->imageData(), i);
        const int b = actual.findBaseSprite(actual.at(i)->imageData(), i);
        if (a != b)
            differences << QStringLiteral("sprite %1 shares with %2, not %3").arg(i).arg(b).arg(a);
    }
    return differences;
}

QByteArray SffV2Builder::bytes() const
{
    QSFFHeader header;
    header.setSignature();
    header.version = version;
    QSFFv2Header v2;
    v2.compatibleVersion = version;
    v2.paletteOffset = 512;
    v2.paletteCount = quint32(palettes.size());
    v2.spriteOffset = 512 + 16 * v2.paletteCount;
    v2.spriteCount = quint32(sprites.size());
    v2.ldataOffset = v2.spriteOffset + 28 * v2.spriteCount;
    v2.ldataSize = quint32(ldata.size());
    v2.tdataOffset = v2.ldataOffset + v2.ldataSize;
    v2.tdataSize = quint32(tdata.size());
    QByteArray out;
    QBuffer buffer(&out);
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << header << v2;
    for (const QSFFv2Palette& record : palettes)
        stream << record;
    for (const QSFFv2Sprite& record : sprites)
        stream << record;
    buffer.write(ldata);
    buffer.write(tdata);
    return out;
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
