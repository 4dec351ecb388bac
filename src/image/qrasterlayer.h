#pragma once

#include "image/qimagelayer.h"

#include <QImage>

/// A layer of pixels: Format_Indexed8 on an indexed canvas, Format_ARGB32 otherwise.
class QRasterLayer : public QImageLayer
{
public:
    QRasterLayer(QImageCanvas* canvas, const QImage& image);

    QImage& image() override { return m_image; }
    const QImage& image() const override { return m_image; }
    void setImage(const QImage& image) override { m_image = image; }

    void render(QPainter* painter) const override;
    QRect cropRect() const override;
    QImageLayer* duplicate() const override;
    void reformat(QImageCanvasFormat format, QImagePalette* palette) override;
    void resize(const QSize& size, QImageResizeFilter filter) override;
    void resize(const QSize& size, QPoint offset, unsigned int fill) override;
    void rotate(float radians, unsigned int fill) override;
    void flip(bool horizontal, bool vertical) override;

    /// `image` in `format`: colours become the palette's nearest entries, or indices their colours.
    static QImage converted(const QImage& image, QImageCanvasFormat format, const QImagePalette* palette);

private:
    QImage m_image;
};
