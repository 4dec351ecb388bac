#pragma once

#include <QAbstractTableModel>

class QAnimation;
class QAnimations;

/**
 * The frames of one action as an editable table: sprite group and index,
 * offset, time, flip, blend, scale and angle. Edits go to the frame, which
 * writes its line of the AIR text, so the text, its undo history and every
 * view follow; a change of the text comes back here through the model's
 * changed() signal.
 */
class QFrameTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Group, Index, X, Y, Time, Flip, Blend, ScaleX, ScaleY, Angle, ColumnCount };

    explicit QFrameTableModel(QAnimations* animations = nullptr, QObject* parent = nullptr);

    void setAnimations(QAnimations* animations);
    /// The action at `position` of the list, or none for -1.
    void setAction(int position);
    QAnimation* action() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QAnimations* m_animations = nullptr;
    int m_action = -1;
};
