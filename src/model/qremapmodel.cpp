#include "qremapmodel.h"

void QRemapModel::setRemap(const QSubItem& from, const QSubItem& to)
{
    const int row = position(from);
    if (row >= 0) {
        m_remaps[row].second = to;
        emit dataChanged(QAbstractListModel::index(row), QAbstractListModel::index(row));
        return;
    }
    beginInsertRows(QModelIndex(), m_remaps.size(), m_remaps.size());
    m_remaps.append({from, to});
    endInsertRows();
}

bool QRemapModel::removeRemap(const QSubItem& from)
{
    const int row = position(from);
    if (row < 0)
        return false;
    beginRemoveRows(QModelIndex(), row, row);
    m_remaps.removeAt(row);
    endRemoveRows();
    return true;
}

void QRemapModel::clear()
{
    beginResetModel();
    m_remaps.clear();
    endResetModel();
}

bool QRemapModel::find(const QSubItem& from, QSubItem& to) const
{
    const int row = position(from);
    if (row < 0)
        return false;
    to = m_remaps.at(row).second;
    return true;
}

int QRemapModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_remaps.size();
}

QVariant QRemapModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || index.row() < 0 || index.row() >= m_remaps.size())
        return QVariant();
    const auto& remap = m_remaps.at(index.row());
    return QStringLiteral("%1,%2 -> %3,%4")
        .arg(remap.first.group)
        .arg(remap.first.index)
        .arg(remap.second.group)
        .arg(remap.second.index);
}

int QRemapModel::position(const QSubItem& from) const
{
    for (int i = 0; i < m_remaps.size(); ++i)
        if (m_remaps.at(i).first == from)
            return i;
    return -1;
}
