#include "qimagelayers.h"

#include "image/qimagecanvas.h"
#include "image/qimagelayer.h"
#include "image/qimagelayercommands.h"

#include <QImage>

#include <algorithm>

QImageLayers::QImageLayers(QImageCanvas* canvas)
    : m_canvas(canvas)
{
}

QImageLayers::~QImageLayers()
{
    removeAll();
}

QImageLayer* QImageLayers::at(unsigned int position) const
{
    return position < unsigned(m_layers.size()) ? m_layers.at(int(position)) : nullptr;
}

void QImageLayers::insert(QImageLayer* layer, int position, bool undo)
{
    if (position < 0 || position > m_layers.size())
        position = m_layers.size();
    beginInsertRows(QModelIndex(), position, position);
    layer->addRef();
    m_layers.insert(position, layer);
    endInsertRows();
    if (undo)
        m_canvas->undoStack()->push(new RasterLayerInsert(layer, position));
    emit changed();
}

void QImageLayers::add(QImageLayer* layer, bool undo)
{
    insert(layer, 0, false);
    if (undo)
        m_canvas->undoStack()->push(new RasterLayerAdd(layer));
}

void QImageLayers::remove(unsigned int position, bool undo)
{
    QImageLayer* layer = at(position);
    if (!layer)
        return;
    if (undo)
        m_canvas->undoStack()->push(new RasterLayerDel(layer, int(position)));
    beginRemoveRows(QModelIndex(), int(position), int(position));
    m_layers.removeAt(int(position));
    endRemoveRows();
    m_canvas->layerRemoved(layer);
    layer->release();
    emit changed();
}

void QImageLayers::remove(QImageLayer* layer, bool undo)
{
    const int position = indexOf(layer);
    if (position >= 0)
        remove(unsigned(position), undo);
}

void QImageLayers::move(int from, int to, bool undo)
{
    if (from == to || from < 0 || to < 0 || from >= m_layers.size() || to >= m_layers.size())
        return;
    beginMoveRows(QModelIndex(), from, from, QModelIndex(), to > from ? to + 1 : to);
    m_layers.move(from, to);
    endMoveRows();
    if (undo)
        m_canvas->undoStack()->push(new ImageLayerMove(m_canvas, from, to));
    emit changed();
}

void QImageLayers::removeAll()
{
    if (m_layers.isEmpty())
        return;
    beginResetModel();
    const QList<QImageLayer*> gone = m_layers;
    m_layers.clear();
    endResetModel();
    for (QImageLayer* layer : gone) {
        m_canvas->layerRemoved(layer);
        layer->release();
    }
    emit changed();
}

QList<QImageLayer*> QImageLayers::bottomUp() const
{
    QList<QImageLayer*> order = m_layers;
    std::reverse(order.begin(), order.end());
    return order;
}

int QImageLayers::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_layers.size();
}

QVariant QImageLayers::data(const QModelIndex& index, int role) const
{
    const QImageLayer* layer = at(unsigned(index.row()));
    if (!layer)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return layer->name();
    case Qt::CheckStateRole:
        return layer->isVisible() ? Qt::Checked : Qt::Unchecked;
    case Qt::DecorationRole: {
        // A small picture of the layer over white, as the panel's icon.
        QImage thumb(32, 32, QImage::Format_ARGB32_Premultiplied);
        thumb.fill(Qt::white);
        const QSize size = layer->image().size().scaled(32, 32, Qt::KeepAspectRatio);
        if (!size.isEmpty()) {
            QPainter painter(&thumb);
            painter.scale(double(size.width()) / layer->image().width(),
                double(size.height()) / layer->image().height());
            layer->render(&painter);
        }
        return thumb;
    }
    default:
        return QVariant();
    }
}

Qt::ItemFlags QImageLayers::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
}

bool QImageLayers::setData(const QModelIndex& index, const QVariant& value, int role)
{
    QImageLayer* layer = at(unsigned(index.row()));
    if (!layer)
        return false;
    if (role == Qt::EditRole) {
        layer->setName(value.toString(), true);
        return true;
    }
    if (role == Qt::CheckStateRole) {
        layer->setVisible(value.toInt() == Qt::Checked);
        return true;
    }
    return false;
}

void QImageLayers::layerChanged(const QImageLayer* layer)
{
    const int row = indexOf(layer);
    if (row >= 0)
        emit dataChanged(this->index(row), this->index(row));
}
