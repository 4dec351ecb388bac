#pragma once

#include <QAbstractTableModel>
#include <QPointer>

#include "model/qsounds.h"

/**
 * The sounds of an SND file as the table of the sounds editor: group,
 * number, channels, rate, bits and duration. It follows the row changes of
 * the sounds one to one, so the selection survives undo and moves. Group and
 * number are edited in place, each as one undoable change of the sounds.
 */
class QSoundsTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Group, Number, Channels, Rate, Bits, Duration, ColumnCount };

    explicit QSoundsTableModel(QObject* parent = nullptr);

    void setSounds(QSounds* sounds);
    QSounds* sounds() const { return m_sounds; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void follow();

    QPointer<QSounds> m_sounds;
};
