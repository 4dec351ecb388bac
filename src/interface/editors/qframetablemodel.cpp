#include "qframetablemodel.h"

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"

namespace {

const char* const flipNames[] = { "", "V", "H", "HV" };

QString blendName(const QAnimationFrame* frame)
{
    switch (frame->blend()) {
    case afbAdditive: {
        const QBlendTarget target = frame->blendTarget();
        return target == QBlendTarget() ? QStringLiteral("A")
                                        : QStringLiteral("AS%1D%2").arg(target.source).arg(target.destination);
    }
    case afbSubtractive:
        return QStringLiteral("S");
    default:
        return QString();
    }
}

/// Reads "A", "S", "AS128D128" (any case); false for anything else but empty.
bool parseBlend(const QString& text, QAnimationFrameBlend& blend, QBlendTarget& target)
{
    const QString value = text.trimmed().toUpper();
    target = QBlendTarget();
    if (value.isEmpty()) {
        blend = afbNone;
        return true;
    }
    if (value == QLatin1String("S")) {
        blend = afbSubtractive;
        return true;
    }
    if (!value.startsWith(QLatin1Char('A')))
        return false;
    blend = afbAdditive;
    if (value == QLatin1String("A") || value == QLatin1String("A1"))
        return true;
    const int s = value.indexOf(QLatin1Char('S'));
    const int d = value.indexOf(QLatin1Char('D'));
    if (s != 1 || d < s)
        return false;
    bool okSource = false;
    bool okDestination = false;
    target.source = qint16(value.mid(s + 1, d - s - 1).toInt(&okSource));
    target.destination = qint16(value.mid(d + 1).toInt(&okDestination));
    return okSource && okDestination;
}

} // namespace

QFrameTableModel::QFrameTableModel(QAnimations* animations, QObject* parent)
    : QAbstractTableModel(parent)
{
    setAnimations(animations);
}

void QFrameTableModel::setAnimations(QAnimations* animations)
{
    beginResetModel();
    if (m_animations)
        m_animations->disconnect(this);
    m_animations = animations;
    m_action = -1;
    if (animations) {
        // The text may change under the table (typing, undo): it is read again.
        connect(animations, &QAnimations::changed, this, [this] {
            beginResetModel();
            endResetModel();
        });
    }
    endResetModel();
}

void QFrameTableModel::setAction(int position)
{
    beginResetModel();
    m_action = position;
    endResetModel();
}

QAnimation* QFrameTableModel::action() const
{
    return m_animations && m_action >= 0 ? m_animations->at(m_action) : nullptr;
}

int QFrameTableModel::rowCount(const QModelIndex& parent) const
{
    const QAnimation* animation = action();
    return parent.isValid() || !animation ? 0 : animation->frameCount();
}

int QFrameTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant QFrameTableModel::data(const QModelIndex& index, int role) const
{
    const QAnimation* animation = action();
    const QAnimationFrame* frame = animation && index.isValid() ? animation->frame(index.row()) : nullptr;
    if (!frame)
        return QVariant();
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::BackgroundRole && index.row() == animation->loopStart())
        return QColor(255, 236, 179);
    if (role == Qt::ToolTipRole && index.row() == animation->loopStart())
        return tr("The animation loops back to this frame");
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return QVariant();
    switch (index.column()) {
    case Group:
        return frame->spriteGroup();
    case Index:
        return frame->spriteIndex();
    case X:
        return frame->offsetX();
    case Y:
        return frame->offsetY();
    case Time:
        return frame->time();
    case Flip:
        return QLatin1String(flipNames[frame->flipFlags() & 3]);
    case Blend:
        return blendName(frame);
    case ScaleX:
        return frame->scaleX();
    case ScaleY:
        return frame->scaleY();
    case Angle:
        return frame->angle();
    default:
        return QVariant();
    }
}

bool QFrameTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    QAnimation* animation = action();
    QAnimationFrame* frame = animation && index.isValid() ? animation->frame(index.row()) : nullptr;
    if (!frame || role != Qt::EditRole)
        return false;
    QSubItem sprite = frame->sprite();
    QPoint offset = frame->offset();
    int time = frame->time();
    unsigned int flip = frame->flipFlags();
    QAnimationFrameBlend blend = frame->blend();
    QBlendTarget target = frame->blendTarget();
    QPointF scale = frame->scaleFactor();
    double angle = frame->angle();
    bool ok = true;
    const QString text = value.toString().trimmed();
    switch (index.column()) {
    case Group:
        sprite = QSubItem(text.toInt(&ok), sprite.index);
        break;
    case Index:
        sprite = QSubItem(sprite.group, text.toInt(&ok));
        break;
    case X:
        offset.setX(text.toInt(&ok));
        break;
    case Y:
        offset.setY(text.toInt(&ok));
        break;
    case Time:
        time = text.toInt(&ok);
        ok = ok && time >= -1;
        break;
    case Flip: {
        const QString upper = text.toUpper();
        ok = upper.isEmpty() || upper == QLatin1String("H") || upper == QLatin1String("V")
            || upper == QLatin1String("HV") || upper == QLatin1String("VH");
        flip = (upper.contains(QLatin1Char('V')) ? 1u : 0u) | (upper.contains(QLatin1Char('H')) ? 2u : 0u);
        break;
    }
    case Blend:
        ok = parseBlend(text, blend, target);
        break;
    case ScaleX:
        scale.setX(text.toDouble(&ok));
        break;
    case ScaleY:
        scale.setY(text.toDouble(&ok));
        break;
    case Angle:
        angle = text.toDouble(&ok);
        break;
    default:
        return false;
    }
    if (!ok)
        return false;
    frame->setProperties(sprite, offset, time, flip, blend, target, scale, angle);
    return true;
}

Qt::ItemFlags QFrameTableModel::flags(const QModelIndex& index) const
{
    return QAbstractTableModel::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

QVariant QFrameTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section + 1;
    static const char* const names[ColumnCount] = { QT_TR_NOOP("Group"), QT_TR_NOOP("Index"), QT_TR_NOOP("X"),
                                                    QT_TR_NOOP("Y"),     QT_TR_NOOP("Time"),  QT_TR_NOOP("Flip"),
                                                    QT_TR_NOOP("Blend"), QT_TR_NOOP("Scale X"),
                                                    QT_TR_NOOP("Scale Y"), QT_TR_NOOP("Angle") };
    return section >= 0 && section < ColumnCount ? tr(names[section]) : QVariant();
}
