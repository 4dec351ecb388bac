#pragma once

#include "image/qimagetool.h"

#include <QRect>

/**
 * Selects a dragged rectangle; a click without a drag selects the whole
 * canvas. The mode says what the rectangle does to the present selection;
 * Shift adds and Ctrl takes away whatever the mode.
 */
class QRectSelTool : public QImageTool
{
    Q_OBJECT
public:
    enum Mode { Replace = 0, Add, Subtract };

    using QImageTool::QImageTool;

    Mode mode() const { return m_mode; }
    void setMode(Mode mode) { m_mode = mode; }

    void mousePressed(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void renderCursor(QPainter* painter, const QPoint& at, double zoom) override;

private:
    Mode m_mode = Replace;
    QPoint m_current;
};
