#pragma once

#include "render/gui/qrenderforwarder.h"

#include <QWidget>

/// The plain host of a renderer ("Native mode"): a widget that forwards its
/// events and paints through a QPainter on itself.
class QRenderWidget : public QRenderForwarder<QWidget>
{
    Q_OBJECT
public:
    explicit QRenderWidget(QRenderer* renderer, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};
