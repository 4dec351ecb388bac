#pragma once

#include "image/qimagetool.h"

class QImagePainter;

/**
 * The tools that paint with a square pen. A press records one undo step
 * for the whole stroke (when the tool records undo at all), then each
 * position of the drag is drawn joined to the one before. The pen size
 * runs from 1 to 24; "+" and "-" change it.
 */
class QBasePenTool : public QImageTool
{
    Q_OBJECT
public:
    static constexpr int maxPenSize = 24;

    QBasePenTool(QImageCanvas* canvas, bool recordsUndo);

    int penSize() const { return m_penSize; }
    void setPenSize(int size);

    bool keyPressed(Qt::KeyboardModifiers modifiers, int key) override;
    void mousePressed(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseReleased(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void mouseMoved(const QImageToolMouseEvent& event, QCursor& cursor) override;
    void renderCursor(QPainter* painter, const QPoint& at, double zoom) override;

signals:
    void penSizeChanged(int size);

protected:
    virtual void draw(const QPoint& at);
    virtual void doDraw(const QPoint& at, QImagePainter* painter) = 0;
    /// A line from the last position while dragging; at a press one square,
    /// or with `shiftJoins` and Shift held a line from the previous stroke's end.
    void paintStroke(const QPoint& at, QImagePainter* painter, bool shiftJoins);

    bool m_recordsUndo;
    bool m_left = true;
    bool m_shift = false;
    QPoint m_last;

private:
    int m_penSize = 1;
    QPoint m_strokeEnd;
    bool m_hasStrokeEnd = false;
};
