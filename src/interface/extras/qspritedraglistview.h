#pragma once

#include "model/qsubitem.h"

#include <QList>
#include <QListView>

#include <functional>

class QMimeData;

/**
 * A list view whose selected cells can be dragged out as sprites, in the
 * format the frames table takes. What a cell stands for is the owner's
 * business: it names the sprites of the selected rows, or nothing while the
 * view shows something else.
 */
class QSpriteDragListView : public QListView
{
    Q_OBJECT
public:
    using Sprites = std::function<QList<QSubItem>(const QModelIndexList& rows)>;

    explicit QSpriteDragListView(QWidget* parent = nullptr);

    /// What the selected rows are as sprites; an empty function stops dragging.
    void setSprites(Sprites sprites);
    /// The selection as drag data in the order of the rows, or null when it names no sprite.
    QMimeData* selectionMime() const;

protected:
    void startDrag(Qt::DropActions supportedActions) override;

private:
    Sprites m_sprites;
};
