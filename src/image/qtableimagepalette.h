#pragma once

#include "image/qimagepalette.h"
#include "formats/qpalettematcher.h"

#include <memory>

/**
 * A canvas palette that keeps its own copy of 256 colours, as the image
 * editor holds a sprite's palette while the author works on it. Nearest
 * colours are looked up among entries 1 to 255, so an opaque colour never
 * turns into the transparent entry 0.
 */
class QTableImagePalette : public QImagePalette
{
    Q_OBJECT
public:
    explicit QTableImagePalette(QObject* parent = nullptr);

    unsigned char background() const override { return m_background; }
    unsigned char foreground() const override { return m_foreground; }
    QColor color(unsigned char index) const override { return m_colors[index].toQColor(); }
    unsigned char index(const QColor& colour) const override;
    void setForeground(unsigned char index) override;
    void setBackground(unsigned char index) override;
    const QRGBA* palette() const override { return m_colors; }
    void setColors(const QRGBA* colors) override;

private:
    QRGBA m_colors[256];
    unsigned char m_foreground = 1;
    unsigned char m_background = 0;
    mutable std::unique_ptr<QPaletteMatcher> m_matcher; // made on first use, dropped on a change
};
