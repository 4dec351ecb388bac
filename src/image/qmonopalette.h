#pragma once

#include "image/qimagepalette.h"

/**
 * The two values of a selection mask as a palette: 0 unselected, 1
 * selected. The selection pen paints the mask with the ordinary index
 * painter through it: the foreground selects, the background unselects.
 */
class QMonoPalette : public QImagePalette
{
    Q_OBJECT
public:
    explicit QMonoPalette(QObject* parent = nullptr);

    unsigned char background() const override { return 0; }
    unsigned char foreground() const override { return 1; }
    QColor color(unsigned char index) const override { return m_colors[index ? 1 : 0].toQColor(); }
    unsigned char index(const QColor& colour) const override { return colour.alpha() > 0 ? 1 : 0; }
    void setForeground(unsigned char) override { }
    void setBackground(unsigned char) override { }
    const QRGBA* palette() const override { return m_colors; }
    void setColors(const QRGBA*) override { }

private:
    QRGBA m_colors[256];
};
