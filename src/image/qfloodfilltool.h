#pragma once

#include "image/qpickertool.h"

/// Fills the area under the mouse with the foreground, on release, with any button.
class QFloodFillTool : public QPickerTool
{
    Q_OBJECT
public:
    using QPickerTool::QPickerTool;

    /// How far, per channel, a colour may lie from the seed's and still be filled; 0 means equal values only.
    int tolerance() const { return m_tolerance; }
    void setTolerance(int tolerance) { m_tolerance = qBound(0, tolerance, 255); }

protected:
    void pick(QImagePainter* painter, const QPoint& at) override;

private:
    int m_tolerance = 0;
};
