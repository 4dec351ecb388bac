#pragma once

#include <QAbstractListModel>
#include <QList>

class QImageCanvas;
class QImageLayer;

/**
 * The layer stack of a canvas, top layer first, as the list model of the
 * layers panel: the display text is the name, the check box the
 * visibility. Renaming through setData is undoable. The list holds one
 * reference to each layer.
 */
class QImageLayers : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit QImageLayers(QImageCanvas* canvas);
    ~QImageLayers() override;

    int count() const { return m_layers.size(); }
    QImageLayer* at(unsigned int position) const;
    bool contains(const QImageLayer* layer) const { return indexOf(layer) >= 0; }
    int indexOf(const QImageLayer* layer) const { return m_layers.indexOf(const_cast<QImageLayer*>(layer)); }
    /// Inserts at `position` (0 is the top; out of range puts it at the bottom).
    void insert(QImageLayer* layer, int position, bool undo);
    /// Puts a layer on top.
    void add(QImageLayer* layer, bool undo);
    void remove(unsigned int position, bool undo);
    void remove(QImageLayer* layer, bool undo);
    /// Moves a layer from one position to another.
    void move(int from, int to, bool undo);
    /// Drops every layer, without undo.
    void removeAll();
    /// The layers from the bottom of the stack to the top: the order of drawing.
    QList<QImageLayer*> bottomUp() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// Tells the views that a layer's look or pixels changed.
    void layerChanged(const QImageLayer* layer);

signals:
    void changed();

private:
    QImageCanvas* m_canvas;
    QList<QImageLayer*> m_layers;
};
