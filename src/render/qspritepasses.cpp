#include "qspritepasses.h"

#include <QPainter>

namespace {

void drawPass(QPainter* painter, QImage& image, const QVector<QRgb>& table, QPainter::CompositionMode mode,
              const QRect& target)
{
    if (image.format() == QImage::Format_Indexed8)
        image.setColorTable(table);
    painter->setCompositionMode(mode);
    painter->drawImage(target, image);
}

/// A true-colour picture passed through the same per-colour change that a
/// table gets for indexed ones (grey, inverted alpha).
template<typename Change>
QImage changedPixels(const QImage& image, Change change)
{
    QImage changed = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < changed.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(changed.scanLine(y));
        for (int x = 0; x < changed.width(); ++x)
            line[x] = change(line[x]);
    }
    return changed;
}

/// A pass whose colours differ from the picture's own: a table for indexed
/// pictures, changed pixels for true-colour ones.
void drawChanged(QPainter* painter, QImage& image, const QVector<QRgb>& table,
                 QVector<QRgb> (*change)(const QVector<QRgb>&, int), int argument,
                 QPainter::CompositionMode mode, const QRect& target)
{
    if (image.format() == QImage::Format_Indexed8) {
        drawPass(painter, image, change(table, argument), mode, target);
        return;
    }
    QImage changed = changedPixels(image, [&](QRgb pixel) { return change({ pixel }, argument).first(); });
    drawPass(painter, changed, table, mode, target);
}

QVector<QRgb> grey(const QVector<QRgb>& table, int level)
{
    return QSpritePasses::greyTable(table, level);
}

QVector<QRgb> inverted(const QVector<QRgb>& table, int)
{
    return QSpritePasses::invertedAlpha(table);
}

QVector<QRgb> weighted(const QVector<QRgb>& table, int weight)
{
    return QSpritePasses::weightedTable(table, weight);
}

QVector<QRgb> opaque(const QVector<QRgb>& table, int)
{
    return QSpritePasses::opaqueZero(table);
}

} // namespace

namespace QSpritePasses {

QVector<QRgb> opaqueZero(QVector<QRgb> table)
{
    if (!table.isEmpty())
        table[0] |= 0xff000000u;
    return table;
}

QVector<QRgb> greyTable(const QVector<QRgb>& table, int level)
{
    const int d = qBound(0, level, 255);
    QVector<QRgb> grey(table.size());
    for (int i = 0; i < table.size(); ++i)
        grey[i] = qRgba(d, d, d, qAlpha(table[i]));
    return grey;
}

QVector<QRgb> weightedTable(QVector<QRgb> table, int weight)
{
    const int s = qBound(0, weight, 256);
    for (QRgb& entry : table)
        entry = qRgba(qRed(entry) * s / 256, qGreen(entry) * s / 256, qBlue(entry) * s / 256, qAlpha(entry));
    return table;
}

QVector<QRgb> invertedAlpha(QVector<QRgb> table)
{
    for (QRgb& entry : table)
        entry = qRgba(qRed(entry), qGreen(entry), qBlue(entry), 255 - qAlpha(entry));
    return table;
}

QVector<QRgb> applyEffect(QSpriteEffect effect, QVector<QRgb> table)
{
    for (QRgb& entry : table) {
        int r = qRed(entry), g = qGreen(entry), b = qBlue(entry);
        switch (effect) {
        case EffectMonochrome:
            r = g = b = (r + g + b) / 3;
            break;
        case EffectLighter:
            r = qMin(r + 32, 255), g = qMin(g + 32, 255), b = qMin(b + 32, 255);
            break;
        case EffectDarker:
            r = qMax(r - 32, 0), g = qMax(g - 32, 0), b = qMax(b - 32, 0);
            break;
        case EffectNone:
            break;
        }
        entry = qRgba(r, g, b, qAlpha(entry));
    }
    return table;
}

void draw(QPainter* painter, QImage& image, const QVector<QRgb>& table, const Weights& weights,
          bool viewTransparent, const QRect& target)
{
    const QPainter::CompositionMode saved = painter->compositionMode();
    if (weights.blend == afbNone) {
        if (viewTransparent && image.format() == QImage::Format_Indexed8)
            drawChanged(painter, image, table, opaque, 0, QPainter::CompositionMode_SourceOver, target);
        else
            drawPass(painter, image, table, QPainter::CompositionMode_SourceOver, target);
        painter->setCompositionMode(saved);
        return;
    }
    if (viewTransparent)
        drawChanged(painter, image, table, inverted, 0, QPainter::CompositionMode_SourceOver, target);
    if (weights.blend == afbAdditive) {
        if (weights.target.destination < 255)
            drawChanged(painter, image, table, grey, weights.target.destination, QPainter::CompositionMode_Multiply,
                        target);
        if (weights.target.source >= 256)
            drawPass(painter, image, table, QPainter::CompositionMode_Plus, target);
        else
            drawChanged(painter, image, table, weighted, weights.target.source, QPainter::CompositionMode_Plus, target);
    } else {
        drawPass(painter, image, table, QPainter::CompositionMode_Lighten, target);
        drawPass(painter, image, table, QPainter::CompositionMode_Difference, target);
    }
    painter->setCompositionMode(saved);
}

} // namespace QSpritePasses
