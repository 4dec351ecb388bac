#pragma once

#include <QAbstractTableModel>

class QSprites;

/**
 * The sprites of a file as a table: group, index, size, axis, palette and
 * compression of each, in file order. It reads QSprites and follows its
 * row signals, so the table never holds a copy that could fall out of step.
 * Size and compression come from the payload's header, so listing a large
 * file decodes no picture.
 */
class QSpriteTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Group, Index, Size, Axis, Palette, Compression, ColumnCount };

    explicit QSpriteTableModel(QObject* parent = nullptr);

    void setSprites(QSprites* sprites);
    QSprites* sprites() const { return m_sprites; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    /// The name of a payload's codec as the author knows it.
    static QString compressionName(int filter);

private:
    void sourceChanged(const QModelIndex& first, const QModelIndex& last);

    QSprites* m_sprites = nullptr;
};
