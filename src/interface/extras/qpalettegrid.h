#pragma once

#include "formats/qrgba.h"

#include <QWidget>

/**
 * The 256 colours of a palette as a 16 by 16 grid of swatches, row by row
 * from entry 0, the sprite's transparent colour, which is crossed out. A
 * click picks an entry, a double click asks to edit it.
 */
class QPaletteGrid : public QWidget
{
    Q_OBJECT
public:
    explicit QPaletteGrid(QWidget* parent = nullptr);

    /// Shows these colours; null shows an empty grid.
    void setColors(const QRGBA* colors);
    int selected() const { return m_selected; }
    void select(int index);

    QSize sizeHint() const override { return QSize(16 * 13 + 1, 16 * 13 + 1); }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width; }

signals:
    void picked(int index);
    void activated(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    int indexAt(const QPoint& point) const;
    QRect cell(int index) const;

    QRGBA m_colors[256];
    bool m_empty = true;
    int m_selected = 0;
};
