#pragma once

#include <QColor>
#include <QImage>
#include <QStringList>
#include <QVector>

class QSprites;
class QSprRender;

/// The background of the test views: one flat colour, so every pixel the
/// sprite leaves alone has it.
extern const QColor flatBackground;

/**
 * A sprite file of one sprite 0,0: `width` x 1 pixels whose indices are
 * 0, 1, 2... (wrapping at the palette), with axis `axisX`, 0 and the palette
 * `table` (entry 0 transparent).
 */
QSprites* makeStripSprites(int width, int axisX, const QVector<QRgb>& table);

/// The view with a flat background and nothing drawn but the sprite: no
/// rulers, no crosshairs, no picture; zoom 1:1 in the large table.
void plainView(QSprRender& view, QSprites* sprites);

/// What a pixel of colour `source` drawn over `background` gives, as the
/// painter's source-over blend does it, rounded.
QRgb sourceOver(QRgb source, QRgb background);

/// Whether two colours differ by at most `tolerance` in each channel.
bool near(QRgb a, QRgb b, int tolerance);

class QRenderer;

/// Mouse input as a host forwards it, without a window.
void mousePress(QRenderer& view, const QPoint& at, Qt::MouseButton button = Qt::LeftButton,
                Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void mouseMove(QRenderer& view, const QPoint& at, Qt::MouseButtons buttons = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void mouseRelease(QRenderer& view, const QPoint& at, Qt::MouseButton button = Qt::LeftButton);
/// A press at `from`, moves in `steps` even steps to `to`, and a release there.
void mouseDrag(QRenderer& view, const QPoint& from, const QPoint& to, int steps = 4,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void wheel(QRenderer& view, const QPoint& at, int notches);

/// The engine's sample characters kfm and kfm720 among the real files,
/// those whose DEF has its sprites and animations beside it.
QStringList kfmProjects();
