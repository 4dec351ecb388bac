#include "qspritetablemodel.h"

#include "model/qsprite.h"
#include "model/qspriteimagedata.h"
#include "model/qspritepalette.h"
#include "model/qsprites.h"

#include <QRegularExpression>

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
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole && role != Qt::EditRole)
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

Qt::ItemFlags QSpriteTableModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    switch (index.column()) {
    case Group:
    case Index:
    case Axis:
    case Palette:
        return flags | Qt::ItemIsEditable;
    default:
        return flags;
    }
}

bool QSpriteTableModel::numberPair(const QString& text, int& first, int& second)
{
    static const QRegularExpression pair(QStringLiteral("^\\s*(-?\\d+)\\s*[,. ]\\s*(-?\\d+)\\s*$"));
    const QRegularExpressionMatch match = pair.match(text);
    if (!match.hasMatch())
        return false;
    first = match.captured(1).toInt();
    second = match.captured(2).toInt();
    return true;
}

bool QSpriteTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    QSprite* sprite = m_sprites && index.isValid() ? m_sprites->at(index.row()) : nullptr;
    if (!sprite || role != Qt::EditRole)
        return false;
    bool number = false;
    const int single = value.toString().trimmed().toInt(&number);
    int first = 0;
    int second = 0;
    switch (index.column()) {
    case Group:
        if (number && single != sprite->itemGroup())
            sprite->setItemGroup(single);
        return number;
    case Index:
        if (number && single != sprite->itemIndex())
            sprite->setItemIndex(single);
        return number;
    case Axis:
        if (!numberPair(value.toString(), first, second))
            return false;
        if (sprite->offset() != QPoint(first, second))
            sprite->setOffset(QPoint(first, second));
        return true;
    case Palette: {
        if (!numberPair(value.toString(), first, second))
            return false;
        QSpritePalette* palette = m_sprites->paletteAt(m_sprites->findPalette(0, first, second));
        if (!palette)
            return false;
        if (palette != sprite->palette())
            sprite->setPalette(palette);
        return true;
    }
    default:
        return false;
    }
}
