#include "qmugenmodel.h"

#include <QIcon>

QMugenModel::QMugenModel(QObject* parent)
    : QAbstractListModel(parent)
{
}

void QMugenModel::addMugen(const QMugenInfo& info)
{
    beginInsertRows(QModelIndex(), m_mugens.size(), m_mugens.size());
    m_mugens.append(info);
    endInsertRows();
}

void QMugenModel::setMugen(int row, const QMugenInfo& info)
{
    if (row < 0 || row >= m_mugens.size())
        return;
    m_mugens[row] = info;
    emit dataChanged(index(row), index(row));
}

void QMugenModel::removeMugen(int row)
{
    if (row < 0 || row >= m_mugens.size())
        return;
    beginRemoveRows(QModelIndex(), row, row);
    m_mugens.removeAt(row);
    endRemoveRows();
}

void QMugenModel::moveMugenUp(int row)
{
    if (row <= 0 || row >= m_mugens.size())
        return;
    beginMoveRows(QModelIndex(), row, row, QModelIndex(), row - 1);
    m_mugens.swapItemsAt(row, row - 1);
    endMoveRows();
}

void QMugenModel::clearMugens()
{
    if (m_mugens.isEmpty())
        return;
    beginRemoveRows(QModelIndex(), 0, m_mugens.size() - 1);
    m_mugens.clear();
    endRemoveRows();
}

int QMugenModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_mugens.size();
}

QVariant QMugenModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_mugens.size())
        return QVariant();
    const QMugenInfo& info = m_mugens.at(index.row());
    if (role == Qt::DisplayRole)
        return info.name;
    // Two installations may share a name: the tip tells them apart.
    if (role == Qt::ToolTipRole)
        return tr("%1\nParameters: %2").arg(info.executable, info.parameters);
    if (role == Qt::DecorationRole)
        return QIcon(info.icon.isEmpty() ? QStringLiteral(":/imgs/Imgs/mugen.png") : info.icon);
    return QVariant();
}
