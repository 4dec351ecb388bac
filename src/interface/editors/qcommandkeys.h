#pragma once

#include "text/qcommandelement.h"

#include <QList>
#include <QPixmap>
#include <QStringList>

/**
 * The key images of a command's sequence, as the commands editor draws them:
 * a direction as an arrow (B is back, to the left, as the player faces
 * right), a button as a round key with its letter, and the modifiers of a
 * step ("/" hold, "~" release with its time, "$" any direction containing,
 * ">" nothing else pressed between) as small tags before it; the buttons of
 * one step are joined by "+". The images are the resource ":/keys".
 */
namespace QCommandKeys {

/// The images of one step, in drawing order (resource paths).
QStringList imagesOf(const QCommandElement& step);
/**
 * The whole sequence drawn in rows of keys `height` pixels high, on a
 * transparent ground. A sequence wider than `maxWidth` (0 for no limit)
 * goes on in another row, breaking between steps only.
 */
QPixmap draw(const QList<QCommandElement>& steps, int height, int maxWidth = 0);

} // namespace QCommandKeys
