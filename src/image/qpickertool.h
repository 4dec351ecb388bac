#pragma once

#include "image/qimagetool.h"

class QImagePainter;

/// Takes the palette entry under the mouse, on release: left button the foreground, right the background.
class QPickerTool : public QImageTool
{
    Q_OBJECT
public:
    using QImageTool::QImageTool;

    void mousePressed(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void renderCursor(QPainter* painter, const QPoint& at, double zoom) override;

protected:
    virtual void pick(QImagePainter* painter, const QPoint& at);

    Qt::MouseButton m_button = Qt::NoButton;
};
