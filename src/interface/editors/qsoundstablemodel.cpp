#include "qsoundstablemodel.h"

#include "model/qsounds.h"

QSoundsTableModel::QSoundsTableModel(QObject* parent)
    : QAbstractTableModel(parent)
{
}

void QSoundsTableModel::setSounds(QSounds* sounds)
{
    if (sounds == m_sounds)
        return;
    beginResetModel();
    if (m_sounds)
        disconnect(m_sounds, nullptr, this, nullptr);
    m_sounds = sounds;
    if (m_sounds)
        follow();
    endResetModel();
}

void QSoundsTableModel::follow()
{
    QSounds* sounds = m_sounds;
    connect(sounds, &QAbstractItemModel::rowsAboutToBeInserted, this,
        [this](const QModelIndex&, int first, int last) { beginInsertRows(QModelIndex(), first, last); });
    connect(sounds, &QAbstractItemModel::rowsInserted, this, [this]() { endInsertRows(); });
    connect(sounds, &QAbstractItemModel::rowsAboutToBeRemoved, this,
        [this](const QModelIndex&, int first, int last) { beginRemoveRows(QModelIndex(), first, last); });
    connect(sounds, &QAbstractItemModel::rowsRemoved, this, [this]() { endRemoveRows(); });
    connect(sounds, &QAbstractItemModel::rowsAboutToBeMoved, this,
        [this](const QModelIndex&, int first, int last, const QModelIndex&, int to) {
            beginMoveRows(QModelIndex(), first, last, QModelIndex(), to);
        });
    connect(sounds, &QAbstractItemModel::rowsMoved, this, [this]() { endMoveRows(); });
    connect(sounds, &QAbstractItemModel::modelAboutToBeReset, this, [this]() { beginResetModel(); });
    connect(sounds, &QAbstractItemModel::modelReset, this, [this]() { endResetModel(); });
    connect(sounds, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& from, const QModelIndex& to) {
            emit dataChanged(index(from.row(), 0), index(to.row(), ColumnCount - 1));
        });
}

int QSoundsTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_sounds ? 0 : m_sounds->count();
}

int QSoundsTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant QSoundsTableModel::data(const QModelIndex& index, int role) const
{
    const QSample* sample = m_sounds && index.isValid() ? m_sounds->at(index.row()) : nullptr;
    if (!sample)
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ToolTipRole && !sample->item)
        return tr("An empty sound: the engine can't play it.");
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const QWAVInfo& wav = sample->information;
    const bool known = wav.channels > 0;
    switch (index.column()) {
    case Group:
        return sample->group;
    case Number:
        return sample->sample;
    case Channels:
        return known ? QVariant(wav.channels) : QVariant(QStringLiteral("-"));
    case Rate:
        return known ? QVariant(tr("%1 Hz").arg(wav.rate)) : QVariant(QStringLiteral("-"));
    case Bits:
        return known ? QVariant(wav.bits) : QVariant(QStringLiteral("-"));
    case Duration:
        return known ? QVariant(tr("%1 s").arg(double(wav.duration), 0, 'f', 3))
                     : QVariant(QStringLiteral("-"));
    default:
        return {};
    }
}

bool QSoundsTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!m_sounds || role != Qt::EditRole || !index.isValid() || index.column() > Number)
        return false;
    bool ok = false;
    const int number = value.toInt(&ok);
    if (!ok)
        return false;
    QSoundInfo info = m_sounds->info(index.row());
    if (index.column() == Group)
        info.group = number;
    else
        info.index = number;
    m_sounds->setInfo(index.row(), info);
    return true;
}

Qt::ItemFlags QSoundsTableModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() <= Number)
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant QSoundsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Group:
        return tr("Group");
    case Number:
        return tr("Number");
    case Channels:
        return tr("Channels");
    case Rate:
        return tr("Rate");
    case Bits:
        return tr("Bits");
    case Duration:
        return tr("Duration");
    default:
        return {};
    }
}
