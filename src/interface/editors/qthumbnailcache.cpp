#include "qthumbnailcache.h"

#include "model/qsprite.h"

QThumbnailCache::QThumbnailCache(int side, int capacity, QObject* parent)
    : QObject(parent)
    , m_cache(capacity)
    , m_side(side)
{
}

QPixmap QThumbnailCache::thumbnail(const QSprite* sprite)
{
    if (!sprite || !sprite->imageData())
        return QPixmap();
    if (const Entry* kept = m_cache.object(sprite))
        if (kept->data == sprite->imageData() && kept->palette == sprite->palette())
            return kept->pixmap;
    ++m_decodes;
    QImage image = sprite->image(sipDisplay);
    if (image.format() == QImage::Format_Indexed8 && image.colorCount() > 0) {
        // Colour 0 is the transparent one on the stage; so it is here.
        QVector<QRgb> colours = image.colorTable();
        colours[0] &= 0x00FFFFFF;
        image.setColorTable(colours);
    }
    if (image.width() > m_side || image.height() > m_side)
        image = image.scaled(m_side, m_side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    auto* entry = new Entry { QPixmap::fromImage(image), sprite->imageData(), sprite->palette() };
    const QPixmap pixmap = entry->pixmap;
    m_cache.insert(sprite, entry);
    return pixmap;
}
