#include "qframeview.h"

#include "model/qanimationframe.h"

QFrameView frameViewOf(const QAnimationFrame& frame)
{
    QFrameView view;
    view.sprite = frame.sprite();
    view.offset = frame.offset();
    view.flip = frame.flipFlags();
    view.weights.blend = frame.blend();
    view.weights.target = frame.blendTarget();
    view.scaleX = frame.scaleX();
    view.scaleY = frame.scaleY();
    view.angle = int(frame.angle());
    return view;
}
