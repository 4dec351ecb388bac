#include "qthumbnailcache.h"

#include "model/qsprite.h"
#include "model/qsprites.h"

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

void QThumbnailCache::watch(QSprites* sprites)
{
    if (m_watched == sprites)
        return;
    if (m_watched) {
        disconnect(m_watched, nullptr, this, nullptr);
        disconnect(m_watched->paletteModel(), nullptr, this, nullptr);
    }
    m_cache.clear();
    m_watched = sprites;
    if (!sprites)
        return;
    // Edits in place keep the sprite's record, so the entry could not tell it is out of date.
    connect(sprites, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& first, const QModelIndex& last) { forgetRows(first.row(), last.row()); });
    // Dropped while the sprites still exist: a later sprite made at the same address starts afresh.
    connect(sprites, &QAbstractItemModel::rowsAboutToBeRemoved, this,
        [this](const QModelIndex&, int first, int last) { forgetRows(first, last); });
    // A palette's colours changed in place: the sprites drawn with it are drawn again.
    connect(sprites->paletteModel(), &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& first, const QModelIndex& last) {
            for (int row = first.row(); row <= last.row(); ++row)
                if (const QSpritePalette* palette = m_watched->paletteAt(row))
                    for (int sprite = 0; sprite < m_watched->count(); ++sprite)
                        if (m_watched->at(sprite)->palette() == palette)
                            m_cache.remove(m_watched->at(sprite));
            emit dropped();
        });
    connect(sprites, &QAbstractItemModel::modelReset, this, [this] {
        m_cache.clear();
        emit dropped();
    });
}

void QThumbnailCache::forgetRows(int first, int last)
{
    for (int row = first; row <= last; ++row)
        if (const QSprite* sprite = m_watched->at(row))
            m_cache.remove(sprite);
    emit dropped();
}
