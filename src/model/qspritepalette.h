#pragma once

#include "formats/qrgba.h"
#include "model/qspritetypes.h"
#include "model/qsubitem.h"

#include <QObject>
#include <QVector>

class QSprites;
struct QSpritePaletteData;

/**
 * One palette of a sprite file: its group and index, how many colours its
 * file gets, and a reference to a shared table of 256 colours. Palettes
 * with the same 1024 bytes share one table (the SFF's linked palettes).
 *
 * Every setter is an undoable edit of the owning QSprites unless the owner's
 * change lock is raised. Palettes are made and destroyed only by their owner.
 */
class QSpritePalette : public QObject
{
    Q_OBJECT
public:
    explicit QSpritePalette(QSprites* owner);
    ~QSpritePalette() override;

    QSprites* owner() const { return m_owner; }
    qint32 itemGroup() const { return m_group; }
    qint32 itemIndex() const { return m_index; }
    QSubItem subItem() const { return QSubItem(m_group, m_index); }
    quint16 colorCount() const { return m_colorCount; }
    /// The 256 colours; null for an empty palette.
    const QRGBA* colors() const;
    /// The 256 colours as 0xAARRGGBB for QImage; 256 zeros for an empty palette.
    QVector<QRgb> colorTable() const;
    /// Position in the owner's palette list; -1 while not in it.
    int index() const;

    /**
     * Sets the 256 colours. Unless `share` is ssmPrivate, a palette that
     * already has these colours lends its table; otherwise `share` decides
     * whether the palettes sharing the present table change with it
     * (ssmShared), keep it (ssmPrivate), or whether the author is asked (ssmAsk).
     */
    void setColors(const QRGBA* colors, QSpriteShareMode share = ssmShared);
    /// As setColors, from a QImage colour table (missing entries are blank).
    void setColorTable(const QVector<QRgb>& table, QSpriteShareMode share = ssmShared);
    /// How many colours the file gets; at most 256.
    void setColorCount(quint16 count);
    void setSubItem(const QSubItem& item);
    void setItemGroup(qint32 group);
    void setItemIndex(qint32 index);

    /// Reads any palette file the program knows into this palette.
    bool fromFile(const QString& fileName, QSpriteShareMode share = ssmShared);
    /// Writes the colours as an ACT file; false for an empty palette.
    bool toFile(const QString& fileName) const;

    /// Position of the first palette of the next group in list order, 0 if none.
    int nextGroup() const;
    /// Position of the first palette of the previous group in list order, 0 if none.
    int previousGroup() const;

    // For loaders and undo commands, which run under the change lock.

    QSpritePaletteData* data() const { return m_data; }
    /// Drops the present table and points to `data` (which may be null).
    void shareData(QSpritePaletteData* data);
    /// Overwrites the present table in place, so every sharer sees it; makes a
    /// table for an empty palette. Null empties the palette.
    void storeColors(const QRGBA* colors);

private:
    void recordChange();

    QSprites* m_owner;
    QSpritePaletteData* m_data = nullptr;
    qint32 m_group = 0;
    qint32 m_index = 0;
    quint16 m_colorCount = 256;
};
