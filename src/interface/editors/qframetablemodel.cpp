#include "qframetablemodel.h"

#include "model/qanimation.h"
#include "model/qanimationedit.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "qspritelistmime.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QColor>
#include <QMimeData>
#include <QRegularExpression>

namespace {

const char* const flipNames[] = { "", "V", "H", "HV" };

QString blendName(const QAnimationFrame* frame)
{
    switch (frame->blend()) {
    case afbAdditive: {
        const QBlendTarget target = frame->blendTarget();
        return target == QBlendTarget()
            ? QStringLiteral("A")
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

/// The kinds of interpolation in the order the column lists them, with the words it shows.
const struct
{
    QInterFrameElementType type;
    const char* word;
} interpolations[] = {
    { ifeOffset, QT_TRANSLATE_NOOP("QFrameTableModel", "Offset") },
    { ifeBlend, QT_TRANSLATE_NOOP("QFrameTableModel", "Blend") },
    { ifeScale, QT_TRANSLATE_NOOP("QFrameTableModel", "Scale") },
    { ifeAngle, QT_TRANSLATE_NOOP("QFrameTableModel", "Angle") },
};

QString interpolationText(const QAnimationFrame* frame)
{
    QStringList words;
    for (const auto& kind : interpolations)
        if (frame->checkInterElem(kind.type))
            words.append(QFrameTableModel::tr(kind.word));
    return words.join(QStringLiteral(", "));
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
        // The text may change under the table (typing, undo): it is read
        // again, as a whole when frames came or went, else cell by cell, so an
        // edit in progress and the selection stay.
        connect(animations, &QAnimations::changed, this, [this](bool structure) {
            if (structure || rowCount() == 0) {
                beginResetModel();
                endResetModel();
            } else {
                emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
            }
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
    if (role == Qt::TextAlignmentRole && index.column() < Flip)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::BackgroundRole && index.row() == animation->loopStart())
        return QColor(255, 236, 179);
    if (role == Qt::ToolTipRole && index.row() == animation->loopStart())
        return tr("The animation loops back to this frame");
    if (role == Qt::CheckStateRole && index.column() == LoopStart)
        return frame->checkInterElem(ifeLoopStart) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::TextAlignmentRole && index.column() >= Flip && index.column() != ScaleX
        && index.column() != ScaleY && index.column() != Angle)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
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
    case Interpolation:
        return interpolationText(frame);
    case LoopStart:
        return role == Qt::EditRole ? QVariant(frame->checkInterElem(ifeLoopStart)) : QVariant();
    default:
        return QVariant();
    }
}

bool QFrameTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    QAnimation* animation = action();
    QAnimationFrame* frame = animation && index.isValid() ? animation->frame(index.row()) : nullptr;
    if (!frame)
        return false;
    if (index.column() == LoopStart && (role == Qt::CheckStateRole || role == Qt::EditRole)) {
        const bool on = role == Qt::CheckStateRole ? value.toInt() == Qt::Checked
            : value.typeId() == QMetaType::Bool
            ? value.toBool()
            : QStringList({ QStringLiteral("1"), QStringLiteral("yes"), QStringLiteral("true"),
                              QStringLiteral("loop") })
                  .contains(value.toString().trimmed().toLower());
        frame->setInterElem(ifeLoopStart, on);
        return true;
    }
    if (role != Qt::EditRole)
        return false;
    if (index.column() == Interpolation)
        return setInterpolation(frame, value.toString());
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

bool QFrameTableModel::setInterpolation(QAnimationFrame* frame, const QString& text)
{
    // Words in any case, split by commas or spaces, each naming a kind once.
    const QStringList words
        = text.toLower().split(QRegularExpression(QStringLiteral("[,\\s]+")), Qt::SkipEmptyParts);
    bool wanted[interFrameElementTypeCount] = {};
    for (const QString& word : words) {
        bool known = false;
        for (const auto& kind : interpolations) {
            if (word == QString::fromLatin1(kind.word).toLower() || word == tr(kind.word).toLower()) {
                wanted[kind.type] = known = true;
                break;
            }
        }
        if (!known)
            return false;
    }
    QAnimationEdit edit(m_animations->textEditor());
    for (const auto& kind : interpolations)
        frame->setInterElem(kind.type, wanted[kind.type]);
    return true;
}

Qt::ItemFlags QFrameTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return QAbstractTableModel::flags(index) | (action() ? Qt::ItemIsDropEnabled : Qt::NoItemFlags);
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDropEnabled;
    return index.column() == LoopStart ? flags | Qt::ItemIsUserCheckable : flags | Qt::ItemIsEditable;
}

QStringList QFrameTableModel::mimeTypes() const
{
    return { QLatin1String(QSpriteListMime::mimeType) };
}

Qt::DropActions QFrameTableModel::supportedDropActions() const
{
    return Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
}

bool QFrameTableModel::canDropMimeData(
    const QMimeData* data, Qt::DropAction, int, int, const QModelIndex&) const
{
    return action() && data && data->hasFormat(QLatin1String(QSpriteListMime::mimeType));
}

bool QFrameTableModel::dropMimeData(
    const QMimeData* data, Qt::DropAction dropAction, int row, int column, const QModelIndex& parent)
{
    if (!canDropMimeData(data, dropAction, row, column, parent))
        return false;
    // Between rows the view gives the row; on a row it gives the row as parent: the frames go before it.
    return insertSprites(row >= 0     ? row
                   : parent.isValid() ? parent.row()
                                      : -1,
               QSpriteListMime::decode(data))
        >= 0;
}

int QFrameTableModel::insertSprites(int row, const QList<QSubItem>& sprites)
{
    QAnimation* animation = action();
    QSyntaxTextEditor* text = m_animations ? m_animations->textEditor() : nullptr;
    if (!animation || !text || sprites.isEmpty())
        return -1;
    const int count = animation->frameCount();
    const int at = row < 0 || row > count ? count : row;
    const QAnimationFrame* before = animation->frame(at - 1);
    const int time = before && before->time() > 0 ? before->time() : 5;
    QStringList lines;
    for (const QSubItem& sprite : sprites)
        lines.append(QStringLiteral("%1,%2, 0,0, %3").arg(sprite.group).arg(sprite.index).arg(time));
    // One block of lines, one undo step: above the frame's own boxes, or behind the last frame.
    const int line = at < count ? animation->frame(at)->topLine()
        : count > 0             ? animation->frame(count - 1)->line() + 1
                                : animation->line() + 1;
    QAnimationEdit edit(text);
    insertLineAbove(text, line, lines.join(QLatin1Char('\n')));
    return at;
}

QVariant QFrameTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section + 1;
    static const char* const names[ColumnCount] = { QT_TR_NOOP("Group"), QT_TR_NOOP("Index"), QT_TR_NOOP("X"),
        QT_TR_NOOP("Y"), QT_TR_NOOP("Time"), QT_TR_NOOP("Flip"), QT_TR_NOOP("Blend"), QT_TR_NOOP("Scale X"),
        QT_TR_NOOP("Scale Y"), QT_TR_NOOP("Angle"), QT_TR_NOOP("Interpolation"), QT_TR_NOOP("Loop start") };
    return section >= 0 && section < ColumnCount ? tr(names[section]) : QVariant();
}
