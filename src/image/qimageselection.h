#pragma once

#include <QImage>
#include <QRect>

class QPainter;

/**
 * The selected pixels of a canvas: a mask of the canvas's size, one byte
 * per pixel, non-zero meaning selected. While queries are enabled, painters
 * draw only where clipQuery() allows; with queries off everything may be
 * drawn, which is the state of a canvas without a selection.
 */
class QImageSelection
{
public:
    QImageSelection() = default;

    /// Takes a mask of the canvas's size (any 8-bit image); queries turn on.
    void fromMask(const QImage& mask);
    /// Selects the rectangle clipped to the canvas, nothing else; queries turn on.
    void fromRect(const QRect& rect);
    /// Drops the selection: nothing selected, queries off.
    void clear();
    /// The pixels of `image` where the mask is set (or, with `inside` false,
    /// where it is not); every other pixel becomes `fill`.
    QImage filter(const QImage& image, bool inside, unsigned int fill) const;
    /// A new size empties the mask.
    void setSize(const QSize& size);
    QSize size() const { return m_mask.size(); }
    void enableQueries(bool on) { m_queries = on; }
    bool queriesEnabled() const { return m_queries; }
    /// True where a painter may draw: inside the canvas, and on a selected
    /// pixel while queries are on.
    bool clipQuery(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= m_width || y >= m_height)
            return false;
        return !m_queries || m_bits[y * m_stride + x] > 0;
    }
    bool isSelected(int x, int y) const { return m_queries && clipQuery(x, y); }
    /// True when a selection limits drawing.
    bool isActive() const { return m_queries; }
    const QImage& mask() const { return m_mask; }
    /// The smallest rectangle holding every selected pixel; empty for none.
    QRect boundingRect() const;
    /// Moves the selected pixels of the mask by `offset`; what leaves the canvas is lost.
    void translate(const QPoint& offset);
    /// Tints the selected pixels and frames their bounding rectangle, in canvas coordinates.
    void render(QPainter* painter) const;

private:
    /// Painters ask clipQuery for every pixel: the mask's geometry is kept at hand.
    void cacheMask();

    QImage m_mask;
    bool m_queries = false;
    int m_width = 0;
    int m_height = 0;
    const uchar* m_bits = nullptr;
    qsizetype m_stride = 0;
};
