#pragma once

#include <QCache>
#include <QObject>
#include <QPixmap>
#include <QPointer>

class QSprite;
class QSprites;
struct QSpriteImageData;
class QSpritePalette;

/**
 * Small pictures of sprites, decoded when first asked for and kept for the
 * next paint. A grid asks only for the cells it paints, so scrolling through
 * a large file decodes what comes into view and nothing else. An entry
 * remembers the pixel record and palette it was made from and is made again
 * when the sprite points elsewhere; edits in place are followed through
 * watch().
 */
class QThumbnailCache : public QObject
{
    Q_OBJECT
public:
    /// Thumbnails fit a square of `side` pixels; about `capacity` are kept.
    explicit QThumbnailCache(int side = 64, int capacity = 1500, QObject* parent = nullptr);

    int side() const { return m_side; }
    /// The thumbnail of `sprite`, decoded now unless kept; null for an empty sprite.
    QPixmap thumbnail(const QSprite* sprite);
    /// Follows the changes of `sprites` (or of none): the thumbnail of a changed or removed
    /// sprite is dropped, the others are kept; only a reset of the whole list clears all.
    void watch(QSprites* sprites);
    /// How many pictures have been decoded since this cache was made.
    int decodes() const { return m_decodes; }

signals:
    /// Kept thumbnails of the watched sprites were dropped: the cells showing them are out of date.
    void dropped();

private:
    void forgetRows(int first, int last);

    struct Entry
    {
        QPixmap pixmap;
        const QSpriteImageData* data;
        const QSpritePalette* palette;
    };

    QCache<const QSprite*, Entry> m_cache;
    QPointer<QSprites> m_watched;
    int m_side;
    int m_decodes = 0;
};
