#pragma once

#include <QStyledItemDelegate>

#include <functional>

class QListView;
class QSprite;
class QThumbnailCache;

/**
 * Paints a cell of a thumbnail grid: the picture of a sprite centred over a
 * caption. Every cell has the same size, known without a picture, so laying
 * out the grid decodes nothing; only painting a cell asks the cache.
 */
class QThumbnailDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    /// What a cell shows: the sprite whose picture it draws (may be null) and a caption.
    struct Cell
    {
        const QSprite* sprite = nullptr;
        QString caption;
    };
    using CellOf = std::function<Cell(const QModelIndex&)>;

    QThumbnailDelegate(QThumbnailCache* cache, CellOf cellOf, QObject* parent = nullptr);

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Turns `view` into a wrapping grid of equal cells drawn by this delegate.
    void setUpGrid(QListView* view);

private:
    QSize cellSize() const;

    QThumbnailCache* m_cache;
    CellOf m_cellOf;
};
