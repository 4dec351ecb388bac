#pragma once

#include <QAbstractTableModel>

class QSprites;

/**
 * The sprites of a file as a table: group, index, size, axis, palette and
 * compression of each, in file order. It reads QSprites and follows its
 * row signals, so the table never holds a copy that could fall out of step.
 * Group, index, axis and palette are edited in place.
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
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Group and index take a number, axis "x, y", palette "group, index" of
    /// a palette of the file; each accepted edit is one undo step.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// Two numbers as the author types them, "group,index" or "x, y"; false for anything else.
    static bool numberPair(const QString& text, int& first, int& second);
    /// The name of a payload's codec as the author knows it.
    static QString compressionName(int filter);

private:
    void sourceChanged(const QModelIndex& first, const QModelIndex& last);

    QSprites* m_sprites = nullptr;
};
