#pragma once

#include <QPoint>
#include <Qt>

/// A mouse event as the image tools see it: where on screen and on the canvas.
struct QImageToolMouseEvent
{
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    Qt::MouseButton button = Qt::NoButton;
    QPoint screen;
    QPoint canvas;
};
