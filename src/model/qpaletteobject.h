#pragma once

#include "model/qorganizableobject.h"

class QSprites;

/**
 * The palette list of a QSprites as a model of its own, for the palette
 * views. Its edits are edits of the sprite file: they land on the file's
 * undo stack, and beginChange()/endChange() are the file's.
 */
class QPaletteObject : public QOrganizableObject
{
    Q_OBJECT
public:
    explicit QPaletteObject(QSprites* sprites);

    void beginChange() override;
    void endChange() override;
    void remove(unsigned int position) override;
    void move(unsigned int from, unsigned int to) override;
    /// Sorts the palettes by group, then index, as one undoable edit.
    void autoOrganize() override;
    /// Order of autoOrganize: negative when `a` goes before `b`.
    static int orgCompare(const class QSpritePalette* a, const class QSpritePalette* b);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// A row reads "group, index".
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    friend class QSprites;

    QSprites* m_sprites;
};
