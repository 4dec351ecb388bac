#pragma once

#include "model/qanimationtypes.h"
#include "render/qrendertypes.h"

#include <QImage>
#include <QRect>
#include <QVector>

class QPainter;

/**
 * How the engine lays a sprite over what is behind it, in painter
 * composition modes, so that the plain and the OpenGL paint engines both
 * produce it:
 *
 * - additive: `dst * d/255 + src * s/256`: a Multiply pass with every colour
 *   made grey d (skipped when d is 255 or more, and so at the default 256),
 *   then a Plus pass of the colours weighted by s/256. The weight goes into
 *   the colours rather than the painter's opacity, because a Plus at an
 *   opacity fades towards the saturated sum, (dst + src) * s/256 + dst *
 *   (1 - s/256), which is brighter than the engine wherever the sum clips;
 * - subtractive: a saturating `dst - src`: Lighten gives max(dst, src), and
 *   Difference then takes src away again.
 *
 * One indexed image serves every pass: each installs its own colour table first.
 */
namespace QSpritePasses {

/// A frame's blend and its source and destination weights.
struct Weights
{
    QAnimationFrameBlend blend = afbNone;
    QBlendTarget target;
};

/**
 * Draws the indexed `image` into `target` with `table` under the weights.
 * With `viewTransparent` the transparent colour shows: opaque in a plain
 * draw, and before a blended draw a pass that shows only the pixels the
 * blend hides (every alpha inverted).
 */
void draw(QPainter* painter, QImage& image, const QVector<QRgb>& table, const Weights& weights,
          bool viewTransparent, const QRect& target);

/// The table with entry 0 made opaque, so the transparent colour shows.
QVector<QRgb> opaqueZero(QVector<QRgb> table);
/// Every entry grey `level` (clamped to 0..255), alpha kept: the Multiply pass of the additive blend.
QVector<QRgb> greyTable(const QVector<QRgb>& table, int level);
/// Every colour times `weight`/256 (clamped to 0..256), alpha kept: the Plus pass of the additive blend.
QVector<QRgb> weightedTable(QVector<QRgb> table, int weight);
/// Every alpha turned to 255 - alpha, colours kept.
QVector<QRgb> invertedAlpha(QVector<QRgb> table);
/// The onion-skin tint: grey as the channels' mean, or each channel 32 lighter
/// or darker; alpha stays.
QVector<QRgb> applyEffect(QSpriteEffect effect, QVector<QRgb> table);

} // namespace QSpritePasses
