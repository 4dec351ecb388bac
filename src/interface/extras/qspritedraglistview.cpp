#include "qspritedraglistview.h"

#include "interface/editors/qspritelistmime.h"

#include <QDrag>
#include <QMimeData>

#include <algorithm>

QSpriteDragListView::QSpriteDragListView(QWidget* parent)
    : QListView(parent)
{
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragDropMode(QAbstractItemView::DragOnly);
}

void QSpriteDragListView::setSprites(Sprites sprites)
{
    m_sprites = std::move(sprites);
    setDragEnabled(bool(m_sprites));
}

QMimeData* QSpriteDragListView::selectionMime() const
{
    if (!m_sprites || !selectionModel())
        return nullptr;
    QModelIndexList rows = selectionModel()->selectedIndexes();
    // Selected by clicks in any order, dropped as frames in the order the author sees them.
    std::sort(rows.begin(), rows.end(), [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
    const QList<QSubItem> sprites = m_sprites(rows);
    return sprites.isEmpty() ? nullptr : QSpriteListMime::encode(sprites);
}

void QSpriteDragListView::startDrag(Qt::DropActions supportedActions)
{
    QMimeData* data = selectionMime();
    if (!data)
        return;
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    const QModelIndex current = currentIndex();
    if (current.isValid())
        drag->setPixmap(viewport()->grab(visualRect(current)));
    drag->exec(supportedActions & Qt::CopyAction ? Qt::CopyAction : supportedActions);
}
