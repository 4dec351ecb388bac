#include "qmonopalette.h"

QMonoPalette::QMonoPalette(QObject* parent)
    : QImagePalette(parent)
{
    m_colors[1] = QRGBA(255, 255, 255, 255);
}
