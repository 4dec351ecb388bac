#pragma once

#include "formats/qimageinfo.h"
#include "model/qspritetypes.h"
#include "model/qstreamcacheitem.h"
#include "model/qsubitem.h"

#include <QImage>
#include <QObject>
#include <QPoint>
#include <QRect>

class QSprites;
class QSpritePalette;
struct QSpriteImageData;

/**
 * One sprite of a sprite file: its group and index, its axis, its flags, the
 * palette it uses and a reference to its pixels. A sprite holds no pixels of
 * its own: image() decodes them from the file's cache for the length of a
 * call, and sprites with equal pictures point to one shared record.
 *
 * Every setter is an undoable edit of the owning QSprites, unless the owner's
 * change lock is raised (loaders and undo commands raise it). Sprites are
 * made and destroyed only by their owner.
 */
class QSprite : public QObject
{
    Q_OBJECT
public:
    explicit QSprite(QSprites* owner);
    ~QSprite() override;

    QSprites* owner() const { return m_owner; }
    qint32 itemGroup() const { return m_group; }
    qint32 itemIndex() const { return m_index; }
    QSubItem subItem() const { return QSubItem(m_group, m_index); }
    qint32 offsetX() const { return m_x; }
    qint32 offsetY() const { return m_y; }
    QPoint offset() const { return QPoint(m_x, m_y); }
    QSpritePalette* palette() const { return m_palette; }
    quint16 flags() const { return m_flags; }
    bool flag(QSpriteFlag flag) const { return (m_flags & flag) != 0; }
    /// Position in the owner's list; -1 while the sprite is not in it.
    int index() const;
    /// The properties as setProperties takes them (palette as its position).
    QSpriteProperties properties() const;

    /// The shared pixel record; null for an empty sprite.
    QSpriteImageData* imageData() const { return m_image; }
    bool imageIsShared() const;
    /// Width, height and format without decoding; a null info for an empty sprite.
    QImageInfo imageInfo() const;
    /// The pixels, decoded now; a null image for an empty sprite. Indexed
    /// images get the colour table that `mode` names.
    QImage image(QSpriteImagePalette mode = sipNone) const;

    /**
     * Sets the pixels. Equal pixels held by another sprite are shared rather
     * than stored twice (unless `share` is ssmPrivate); `share` decides
     * what happens to the sprites that share the present record, and with
     * ssmAsk the owner's dataSharing signal decides it. `reverse` turns an
     * indexed image's index order around. `paletteMode` and `palette` decide
     * the palette the sprite takes. A null image empties the sprite.
     */
    void setImage(const QImage& image, QSpriteShareMode share = ssmShared, bool reverse = false,
                  QSpritePaletteMode paletteMode = spmKeep, const QSubItem& palette = QSubItem());

    void setItem(qint32 group, qint32 index);
    void setItemGroup(qint32 group);
    void setItemIndex(qint32 index);
    void setOffset(const QPoint& offset);
    void setOffsetX(qint32 x);
    void setOffsetY(qint32 y);
    /// Null for none; the palette must belong to the same owner.
    void setPalette(QSpritePalette* palette);
    void setFlag(QSpriteFlag flag, bool on = true);
    void setFlags(quint16 flags);
    void setProperties(const QSpriteProperties& properties);

    /// Position of the first sprite of the next group in list order, 0 if none.
    int nextGroup() const;
    /// Position of the first sprite of the previous group in list order, 0 if none.
    int previousGroup() const;

    /// Inserts a copy after this sprite, sharing its pixels and palette, at the
    /// next free index of the group; one undoable edit. Returns the copy.
    QSprite* duplicate();
    /// Cuts away the transparent border (index 0, or alpha 0) and moves the
    /// axis so the picture stays in place; false when there was nothing to cut.
    bool crop();
    /**
     * Writes the picture, with its own palette, into an image file whose
     * canvas is `frame` in axis coordinates (the axis at 0,0), so that images
     * saved with one frame line up. Transparent outside the sprite. The model
     * is not changed. False when the file could not be written.
     */
    bool saveAligned(const QString& fileName, const QRect& frame) const;
    /**
     * Splits a true-colour picture into three indexed sprites, one per
     * channel, each with a ramp palette of its channel, so that drawn
     * additively they give the picture back: this sprite becomes the red
     * part, the green and blue parts follow it at the next free indices of
     * the group. One undoable edit; false for an empty or indexed sprite.
     */
    bool splitRGB();

    // For loaders and undo commands, which run under the change lock.

    /// Gives the sprite an encoded payload of its own, as read from a file.
    void setEncodedImage(const QByteArray& payload, QStreamCacheFilterType filter, quint16 width,
                         quint16 height, QImage::Format format, quint64 crc = 0);
    /// Drops the present record and points to `data` (which may be null).
    void shareImage(QSpriteImageData* data);
    /// Overwrites the pixels of the present record in place, so every sharer
    /// sees them; makes a record for an empty sprite. A null image empties it.
    void storeImage(const QImage& image);

private:
    friend class QSprites;

    void recordChange();
    void adoptPalette(QImage& image, QSpritePaletteMode mode, const QSubItem& palette);
    bool applyImage(const QImage& image, QSpriteShareMode share, QList<int>& moved);
    QSpriteImageData* joinableRecord(const QImage& image, const QByteArray& bytes) const;
    void newRecord();
    void replaceImage(const QImage& image);

    QSprites* m_owner;
    QSpriteImageData* m_image = nullptr;
    QSpritePalette* m_palette = nullptr;
    qint32 m_group = 0;
    qint32 m_index = 0;
    qint32 m_x = 0;
    qint32 m_y = 0;
    quint16 m_flags = 0;
};
