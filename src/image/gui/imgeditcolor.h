#pragma once

#include <QWidget>

class QImagePalette;

/**
 * The colour panel of the image editor: the foreground and background
 * swatches above the 256 palette entries. A left click on an entry makes
 * it the foreground, a right click the background; either click is also
 * reported, for tools that collect entries (the replace pen).
 */
class ImgEditColor : public QWidget
{
    Q_OBJECT
public:
    explicit ImgEditColor(QImagePalette* palette, QWidget* parent = nullptr);

    /// Shows `colour` (0xAARRGGBB) as the colour under the mouse, beside the two swatches.
    void setColor(const unsigned int& colour);
    QSize sizeHint() const override;
    /// The palette entry drawn at a point of the panel; -1 outside the grid.
    int entryAt(const QPoint& point) const;
    QRect entryRect(int index) const;

signals:
    void colorClicked(bool left, unsigned char index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    static constexpr int cell = 12;
    static constexpr int swatchHeight = 40;

    QImagePalette* m_palette;
    unsigned int m_shown = 0;
};
