#include "qspritetablemodel.h"

#include "model/qsprite.h"
#include "model/qspriteimagedata.h"
#include "model/qspritepalette.h"
#include "model/qsprites.h"

QSpriteTableModel::QSpriteTableModel(QObject* parent)
    : QAbstractTableModel(parent)
{
}

void QSpriteTableModel::setSprites(QSprites* sprites)
{
    beginResetModel();
    if (m_sprites)
        m_sprites->disconnect(this);
    m_sprites = sprites;
    if (sprites) {
        // Rows are forwarded one to one, so selections survive edits elsewhere.
        connect(sprites, &QAbstractItemModel::rowsAboutToBeInserted, this,
                [this](const QModelIndex&, int first, int last) { beginInsertRows(QModelIndex(), first, last); });
        connect(sprites, &QAbstractItemModel::rowsInserted, this, [this] { endInsertRows(); });
        connect(sprites, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                [this](const QModelIndex&, int first, int last) { beginRemoveRows(QModelIndex(), first, last); });
        connect(sprites, &QAbstractItemModel::rowsRemoved, this, [this] { endRemoveRows(); });
        connect(sprites, &QAbstractItemModel::modelAboutToBeReset, this, [this] { beginResetModel(); });
        connect(sprites, &QAbstractItemModel::modelReset, this, [this] { endResetModel(); });
        connect(sprites, &QAbstractItemModel::layoutAboutToBeChanged, this, [this] { beginResetModel(); });
        connect(sprites, &QAbstractItemModel::layoutChanged, this, [this] { endResetModel(); });
        connect(sprites, &QAbstractItemModel::rowsAboutToBeMoved, this, [this] { beginResetModel(); });
        connect(sprites, &QAbstractItemModel::rowsMoved, this, [this] { endResetModel(); });
        connect(sprites, &QAbstractItemModel::dataChanged, this, &QSpriteTableModel::sourceChanged);
    }
    endResetModel();
}

void QSpriteTableModel::sourceChanged(const QModelIndex& first, const QModelIndex& last)
{
    emit dataChanged(index(first.row(), 0), index(last.row(), ColumnCount - 1));
}

int QSpriteTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_sprites ? 0 : m_sprites->count();
}

int QSpriteTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString QSpriteTableModel::compressionName(int filter)
{
    switch (filter) {
    case cfPCX:
        return QStringLiteral("PCX");
    case cfRLE8:
        return QStringLiteral("RLE8");
    case cfRLE5:
        return QStringLiteral("RLE5");
    case cfLZ5:
        return QStringLiteral("LZ5");
    case cfPNG:
        return QStringLiteral("PNG");
    default:
        return tr("raw");
    }
}

QVariant QSpriteTableModel::data(const QModelIndex& index, int role) const
{
    QSprite* sprite = m_sprites && index.isValid() ? m_sprites->at(index.row()) : nullptr;
    if (!sprite)
        return QVariant();
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return QVariant();
    switch (index.column()) {
    case Group:
        return sprite->itemGroup();
    case Index:
        return sprite->itemIndex();
    case Size: {
        const QImageInfo info = sprite->imageInfo();
        return info.isNull() ? tr("empty") : QStringLiteral("%1 x %2").arg(info.width).arg(info.height);
    }
    case Axis:
        return QStringLiteral("%1, %2").arg(sprite->offsetX()).arg(sprite->offsetY());
    case Palette: {
        const QSpritePalette* palette = sprite->palette();
        if (!palette)
            return role == Qt::ToolTipRole ? tr("true colour or the palette of the character") : tr("own");
        return QStringLiteral("%1, %2").arg(palette->itemGroup()).arg(palette->itemIndex());
    }
    case Compression: {
        const QSpriteImageData* data = sprite->imageData();
        return data && data->item ? compressionName(data->item->filter) : QString();
    }
    default:
        return QVariant();
    }
}

QVariant QSpriteTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case Group:
        return tr("Group");
    case Index:
        return tr("Index");
    case Size:
        return tr("Size");
    case Axis:
        return tr("Axis");
    case Palette:
        return tr("Palette");
    case Compression:
        return tr("Compression");
    default:
        return QVariant();
    }
}
