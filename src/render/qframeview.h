#pragma once

#include "model/qsubitem.h"
#include "render/qspritepasses.h"

#include <QPoint>

class QAnimationFrame;

/**
 * What the view draws of an animation frame: the sprite it names, its offset
 * and flips, and the working copy of blend, scale and angle that playback
 * moves between frames without touching the file.
 */
struct QFrameView
{
    QSubItem sprite;
    QPoint offset;
    /// Bit 1 mirrors horizontally, bit 0 vertically.
    unsigned int flip = 0;
    QSpritePasses::Weights weights;
    double scaleX = 1.0;
    double scaleY = 1.0;
    /// In degrees, counter-clockwise; truncated from the frame's value.
    int angle = 0;

    bool flipH() const { return (flip & 2) != 0; }
    bool flipV() const { return (flip & 1) != 0; }
};

/// The values of a frame of the AIR model, the angle truncated to whole degrees.
QFrameView frameViewOf(const QAnimationFrame& frame);
