#include "qrgbpalette.h"

#include "qabstractpalette.h"
#include "qimagefiles.h"
#include "qpalettematcher.h"
#include "qpalettewriter.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>

#include <algorithm>
#include <cstring>

QRGBPalette::QRGBPalette(QObject* parent)
    : QObject(parent)
{
}

bool QRGBPalette::fromFile(const QString& path)
{
    if (!m_palette)
        return false;
    m_fault.clear();
    emit changing();
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("png") || suffix == QLatin1String("pcx") || suffix == QLatin1String("bmp")) {
        const QImage image = loadImage(path);
        if (image.format() != QImage::Format_Indexed8)
            return false;
        colorTableToPalette(image.colorTable(), *m_palette);
    } else {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        const std::unique_ptr<QAbstractPalette> reader = QAbstractPalette::forFile(suffix, file.peek(4));
        std::memset(static_cast<void*>(*m_palette), 0, sizeof *m_palette);
        if (!reader->fromFile(&file, m_palette))
            m_fault = !reader->fault().isEmpty() ? reader->fault()
                                                 : QStringLiteral("not a valid %1 palette").arg(reader->name());
    }
    (*m_palette)[0].a = 0;
    emit changed();
    return true;
}

bool QRGBPalette::toFile(const QString& path)
{
    return m_palette && QPaletteWriter::save(path, pffACT, *m_palette);
}

int QRGBPalette::index(const QRGBA& colour) const
{
    if (!m_palette)
        return 0;
    QRgb table[256];
    for (int i = 0; i < 256; ++i)
        table[i] = (*m_palette)[i].toQRgb();
    return QPaletteMatcher::nearest(table, 256, colour.toQRgb());
}

void QRGBPalette::fromPalette(const QRGBA* source)
{
    if (!m_palette || !source)
        return;
    emit changing();
    std::memcpy(static_cast<void*>(*m_palette), source, sizeof *m_palette);
    emit changed();
}

void QRGBPalette::toPalette(QRGBA (&target)[256]) const
{
    if (m_palette)
        std::memcpy(static_cast<void*>(target), *m_palette, sizeof target);
}

void colorTableToPalette(const QVector<QRgb>& colours, QRGBA (&palette)[256])
{
    const int count = int(std::min<qsizetype>(colours.size(), 256));
    for (int i = 0; i < count; ++i)
        palette[i] = QRGBA::fromQRgb(colours.at(i));
}

QVector<QRgb> paletteToColorTable(const QRGBA* palette)
{
    QVector<QRgb> colours(256, 0u);
    for (int i = 0; palette && i < 256; ++i)
        colours[i] = palette[i].toQRgb();
    return colours;
}

void invertPalette(QRGBA (*palette)[256])
{
    if (palette)
        std::reverse(*palette, *palette + 256);
}

int getPaletteColorCount(const QRGBA* palette)
{
    for (int i = 254; i > 0; --i)
        if (palette[i] != palette[255])
            return i;
    return 0;
}
