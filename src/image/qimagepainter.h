#pragma once

#include <QImage>
#include <QPoint>

#include <array>

class QImagePalette;
class QImageSelection;

/**
 * Draws pens, lines and fills into one layer's image, within the canvas's
 * selection. The two back ends differ only in what a pixel is: a palette
 * index (QIndexPainter) or a colour (QRGBAPainter); both take palette
 * indices as colours, so the tools need not know the canvas format.
 *
 * A remap (setRemap) turns drawing into replacing: while one is set, only
 * pixels whose value is a key of the map are touched, and each becomes the
 * value it maps to.
 */
class QImagePainter
{
public:
    QImagePainter(QImagePalette* palette, const QImageSelection* selection);
    virtual ~QImagePainter() = default;
    QImagePainter(const QImagePainter&) = delete;
    QImagePainter& operator=(const QImagePainter&) = delete;

    /// The palette entry that drawing writes.
    virtual void setColor(unsigned char index) = 0;
    /// The raw value of a pixel in the image: a byte or 0xAARRGGBB.
    virtual unsigned int pixel(int x, int y) const = 0;
    /// Writes the drawing value, or the remapped one while a remap is set.
    virtual void setPixel(int x, int y) = 0;
    /// False while a remap is set and the pixel's value is not one of its keys.
    virtual bool canDraw(int x, int y) const = 0;
    /// The palette entry of a pixel.
    virtual unsigned char color(const QPoint& point) const = 0;

    void setWidth(int width) { m_width = qMax(1, width); }
    int width() const { return m_width; }
    void setImage(QImage* image) { m_image = image; }
    QImage* image() const { return m_image; }
    QImagePalette* palette() const { return m_palette; }

    /// A square of the pen's width whose top-left corner is `point`.
    void point(const QPoint& point);
    /// The pen's square along the line from `from` to `to`, both ends included.
    void line(const QPoint& from, const QPoint& to);
    /**
     * Fills the area connected to `seed` whose pixels match the seed's: equal
     * values, or with a tolerance above 0, colours whose red, green, blue and
     * alpha each differ by at most `tolerance`. Stays within the selection.
     */
    void floodFill(const QPoint& seed, int tolerance = 0);

    void setRemap(unsigned char from, unsigned char to);
    void clearRemap();
    bool hasRemap() const { return m_remapCount > 0; }

protected:
    bool inImage(int x, int y) const
    {
        return m_image && x >= 0 && y >= 0 && x < m_image->width() && y < m_image->height();
    }
    /// The colour a raw pixel value shows, for the fill's tolerance.
    virtual QRgb valueColor(unsigned int value) const = 0;
    bool isRemapKey(unsigned char value) const { return m_remap[value] >= 0; }
    unsigned char remapped(unsigned char value) const { return uchar(m_remap[value]); }

    QImagePalette* m_palette;
    QImage* m_image = nullptr;
    unsigned int m_value = 0;
    const QImageSelection* m_selection;
    int m_width = 1;

private:
    bool matches(unsigned int seed, unsigned int value, int tolerance) const;

    std::array<short, 256> m_remap;
    int m_remapCount = 0;
};
