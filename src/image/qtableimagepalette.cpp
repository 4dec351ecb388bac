#include "qtableimagepalette.h"

#include <cstring>

QTableImagePalette::QTableImagePalette(QObject* parent)
    : QImagePalette(parent)
{
    // A grey ramp until a real palette comes, so a blank canvas can be drawn on.
    for (int i = 1; i < 256; ++i)
        m_colors[i] = QRGBA(uchar(i), uchar(i), uchar(i), 255);
}

unsigned char QTableImagePalette::index(const QColor& colour) const
{
    if (colour.alpha() == 0)
        return 0;
    if (!m_matcher) {
        QVector<QRgb> opaque;
        opaque.reserve(255);
        for (int i = 1; i < 256; ++i)
            opaque << m_colors[i].toQRgb();
        m_matcher = std::make_unique<QPaletteMatcher>(opaque);
    }
    return uchar(m_matcher->index(colour.rgba()) + 1);
}

void QTableImagePalette::setForeground(unsigned char index)
{
    if (index == m_foreground)
        return;
    m_foreground = index;
    emit foregroundChanged(index);
}

void QTableImagePalette::setBackground(unsigned char index)
{
    if (index == m_background)
        return;
    m_background = index;
    emit backgroundChanged(index);
}

void QTableImagePalette::setColors(const QRGBA* colors)
{
    std::memcpy(m_colors, colors, sizeof(m_colors));
    m_matcher.reset();
    emit paletteChanged();
}
