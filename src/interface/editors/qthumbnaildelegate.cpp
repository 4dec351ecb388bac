#include "qthumbnaildelegate.h"

#include "qthumbnailcache.h"

#include <QApplication>
#include <QListView>
#include <QPainter>

QThumbnailDelegate::QThumbnailDelegate(QThumbnailCache* cache, CellOf cellOf, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_cache(cache)
    , m_cellOf(std::move(cellOf))
{
}

QSize QThumbnailDelegate::cellSize() const
{
    const int text = QFontMetrics(QApplication::font()).height();
    return QSize(m_cache->side() + 16, m_cache->side() + text + 12);
}

QSize QThumbnailDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return cellSize();
}

void QThumbnailDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const Cell cell = m_cellOf(index);
    const QRect box = option.rect.adjusted(2, 2, -2, -2);
    const QPalette& colours = option.palette;
    painter->save();
    if (option.state & QStyle::State_Selected)
        painter->fillRect(box, colours.highlight());
    else if (option.state & QStyle::State_MouseOver)
        painter->fillRect(box, colours.alternateBase());
    const int side = m_cache->side();
    const QRect picture(box.left() + (box.width() - side) / 2, box.top() + 4, side, side);
    painter->fillRect(picture, colours.base());
    const QPixmap pixmap = m_cache->thumbnail(cell.sprite);
    if (!pixmap.isNull()) {
        const QPoint at(
            picture.left() + (side - pixmap.width()) / 2, picture.top() + (side - pixmap.height()) / 2);
        painter->drawPixmap(at, pixmap);
    }
    const QRect text(box.left(), picture.bottom() + 3, box.width(), box.bottom() - picture.bottom() - 3);
    painter->setPen(
        option.state & QStyle::State_Selected ? colours.highlightedText().color() : colours.text().color());
    painter->drawText(text, Qt::AlignHCenter | Qt::AlignTop,
        option.fontMetrics.elidedText(cell.caption, Qt::ElideRight, text.width()));
    if (option.state & QStyle::State_HasFocus) {
        painter->setPen(QPen(colours.highlight().color(), 1, Qt::DotLine));
        painter->drawRect(box.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

void QThumbnailDelegate::setUpGrid(QListView* view)
{
    view->setItemDelegate(this);
    view->setViewMode(QListView::IconMode);
    view->setMovement(QListView::Static);
    view->setResizeMode(QListView::Adjust);
    view->setWrapping(true);
    view->setUniformItemSizes(true);
    view->setGridSize(cellSize());
    view->setSelectionRectVisible(true);
    view->setMouseTracking(true);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
}
