#pragma once

#include "model/qsubitem.h"

#include <QAbstractTableModel>

class QAnimation;
class QAnimationFrame;
class QAnimations;

/**
 * The frames of one action as an editable table: sprite group and index,
 * offset, time, flip, blend, scale, angle, what the frame interpolates
 * towards and whether the loop starts there. Edits go to the frame, which
 * writes its line of the AIR text, so the text, its undo history and every
 * view follow; a change of the text comes back here through the model's
 * changed() signal.
 *
 * Sprites dropped on the table (QSpriteListMime) become new frames at the
 * drop row, all in one undo step.
 */
class QFrameTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        Group,
        Index,
        X,
        Y,
        Time,
        Flip,
        Blend,
        ScaleX,
        ScaleY,
        Angle,
        Interpolation,
        LoopStart,
        ColumnCount
    };

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
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
        const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
        const QModelIndex& parent) override;

    /**
     * Inserts a frame of each sprite before the frame at `row` (appends for
     * -1 or past the end), with the time of the frame before, as one undo
     * step. Returns the row of the first new frame, -1 when nothing was added.
     */
    int insertSprites(int row, const QList<QSubItem>& sprites);

private:
    bool setInterpolation(QAnimationFrame* frame, const QString& text);

    QAnimations* m_animations = nullptr;
    int m_action = -1;
};
