#include "spritestate.h"

#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"

ModelState ModelState::of(const QSprites& sprites)
{
    ModelState state;
    for (int i = 0; i < sprites.count(); ++i) {
        const QSprite* sprite = sprites.at(i);
        SpriteState s;
        s.properties = sprite->properties();
        const QImage image = sprite->image();
        s.width = image.width();
        s.height = image.height();
        s.format = int(image.format());
        s.pixels = bytesOf(image);
        if (sprite->imageData())
            s.sharesWith = sprites.findBaseSprite(sprite->imageData(), i);
        state.sprites.append(s);
    }
    for (int i = 0; i < sprites.paletteCount(); ++i) {
        const QSpritePalette* palette = sprites.paletteAt(i);
        PaletteState p;
        p.group = palette->itemGroup();
        p.index = palette->itemIndex();
        p.count = palette->colorCount();
        if (palette->colors())
            p.colors = QByteArray(reinterpret_cast<const char*>(palette->colors()), 1024);
        if (palette->data())
            p.sharesWith = sprites.findBasePalette(palette->data(), i);
        state.palettes.append(p);
    }
    return state;
}

QString ModelState::difference(const ModelState& other) const
{
    if (sprites.size() != other.sprites.size())
        return QStringLiteral("sprite count %1 against %2").arg(sprites.size()).arg(other.sprites.size());
    if (palettes.size() != other.palettes.size())
        return QStringLiteral("palette count %1 against %2").arg(palettes.size()).arg(other.palettes.size());
    for (int i = 0; i < sprites.size(); ++i) {
        const SpriteState& a = sprites.at(i);
        const SpriteState& b = other.sprites.at(i);
        if (a.properties != b.properties)
            return QStringLiteral("sprite %1 properties: %2,%3 pal %4 / %5,%6 pal %7")
                .arg(i).arg(a.properties.group).arg(a.properties.index).arg(a.properties.palette)
                .arg(b.properties.group).arg(b.properties.index).arg(b.properties.palette);
        if (a.pixels != b.pixels || a.width != b.width || a.format != b.format)
            return QStringLiteral("sprite %1 pixels").arg(i);
        if (a.sharesWith != b.sharesWith)
            return QStringLiteral("sprite %1 shares with %2 against %3").arg(i).arg(a.sharesWith).arg(b.sharesWith);
    }
    for (int i = 0; i < palettes.size(); ++i) {
        const PaletteState& a = palettes.at(i);
        const PaletteState& b = other.palettes.at(i);
        if (!(a == b))
            return QStringLiteral("palette %1: %2,%3 shares %4 / %5,%6 shares %7")
                .arg(i).arg(a.group).arg(a.index).arg(a.sharesWith).arg(b.group).arg(b.index).arg(b.sharesWith);
    }
    return QString();
}

void toneColors(int tone, QRGBA (&colors)[256])
{
    for (int i = 0; i < 256; ++i)
        colors[i] = QRGBA(uchar(i), uchar(255 - i), uchar(tone * 37 + i), 255);
    colors[0].a = 0;
}

QImage indexedImage(int width, int height, int seed, int tone)
{
    QImage image(width, height, QImage::Format_Indexed8);
    QRGBA colors[256];
    toneColors(tone, colors);
    QVector<QRgb> table;
    for (const QRGBA& colour : colors)
        table.append(colour.toQRgb());
    image.setColorTable(table);
    image.fill(0);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.scanLine(y)[x] = uchar((x * 7 + y * 13 + seed * 31) % 251 + 1);
    return image;
}

QImage argbImage(int width, int height, int seed, int border)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(0);
    for (int y = border; y < height - border; ++y)
        for (int x = border; x < width - border; ++x)
            image.setPixel(x, y, qRgba((x * 5 + seed) & 255, (y * 3 + seed) & 255, (x + y + seed * 11) & 255, 255));
    return image;
}

QByteArray bytesOf(const QImage& image)
{
    return QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
}
