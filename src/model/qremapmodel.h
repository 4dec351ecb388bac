#pragma once

#include "model/qsubitem.h"

#include <QAbstractListModel>
#include <QList>
#include <QPair>

/**
 * Substitutions of palettes, as the engine's remap options make them: a
 * sprite that uses palette `from` is shown with palette `to`. One row per
 * substitution, in the order they were set; each `from` appears once.
 */
class QRemapModel : public QAbstractListModel
{
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    /// Adds a substitution, or replaces the target of an existing one.
    void setRemap(const QSubItem& from, const QSubItem& to);
    /// Removes the substitution of `from`; false if there was none.
    bool removeRemap(const QSubItem& from);
    void clear();

    /// The substitute of `from` into `to`; false (and `to` untouched) when none is set.
    bool find(const QSubItem& from, QSubItem& to) const;

    int count() const { return m_remaps.size(); }
    /// The palette substituted by the row's remap; a null item out of range.
    QSubItem fromAt(int row) const { return row >= 0 && row < m_remaps.size() ? m_remaps.at(row).first : QSubItem(); }
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// A row reads "group,index -> group,index".
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    int position(const QSubItem& from) const;

    QList<QPair<QSubItem, QSubItem>> m_remaps;
};
