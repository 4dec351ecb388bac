#include "qmessages.h"

#include <QIcon>

QMessages::QMessages(QProjectFileType file, QObject* parent)
    : QAbstractListModel(parent)
    , m_file(file)
{
}

void QMessages::add(QMsgType type, const QString& text, int index, int line)
{
    QMsg msg;
    msg.type = type;
    msg.file = m_file;
    msg.fileIndex = m_fileIndex;
    msg.index = index;
    msg.line = line;
    msg.text = text;
    beginInsertRows(QModelIndex(), m_messages.size(), m_messages.size());
    m_messages.append(msg);
    endInsertRows();
    ++m_counts[type];
    if (!m_batch)
        notifyOwner();
}

void QMessages::clear()
{
    beginResetModel();
    m_messages.clear();
    m_counts[0] = m_counts[1] = m_counts[2] = 0;
    endResetModel();
    if (!m_batch)
        notifyOwner();
}

void QMessages::beginChange()
{
    ++m_batch;
}

void QMessages::endChange()
{
    if (m_batch > 0 && --m_batch == 0)
        notifyOwner();
}

void QMessages::notifyOwner()
{
    if (m_owner)
        m_owner->update();
}

int QMessages::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_messages.size();
}

QVariant QMessages::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_messages.size())
        return QVariant();
    const QMsg& msg = m_messages.at(index.row());
    if (role == Qt::DisplayRole)
        return format(msg);
    if (role == Qt::DecorationRole)
        return QIcon(iconName(msg.type));
    return QVariant();
}

QString QMessages::iconName(QMsgType type)
{
    switch (type) {
    case mtError: return QStringLiteral(":/imgs/Imgs/error.png");
    case mtWarning: return QStringLiteral(":/imgs/Imgs/warn.png");
    case mtInformation: break;
    }
    return QStringLiteral(":/imgs/Imgs/info.png");
}

QString QMessages::format(const QMsg& msg)
{
    // Text files count lines from 0 inside; people count from 1.
    const int humanLine = msg.line + 1;
    switch (msg.file) {
    case pftDefinitions:
        return QStringLiteral("DEF(%1): %2").arg(humanLine).arg(msg.text);
    case pftSprites: {
        // A message about the whole file (a fault the reader found) names no item.
        const QString item = msg.index < 0             ? QString()
            : msg.line == QMsg::PaletteItem ? QStringLiteral("(%1%2)").arg(QStringLiteral("palette "), QString::number(msg.index))
                                            : QStringLiteral("(%1)").arg(msg.index);
        return QStringLiteral("SFF%1: %2").arg(item, msg.text);
    }
    case pftAnimations:
        return QStringLiteral("AIR(%1): %2").arg(humanLine).arg(msg.text);
    case pftCommands:
        return QStringLiteral("CMD(%1): %2").arg(humanLine).arg(msg.text);
    case pftStates:
        return QStringLiteral("ST %1(%2): %3").arg(msg.fileIndex).arg(humanLine).arg(msg.text);
    case pftSounds:
        // A message about the whole file names no sound.
        return QStringLiteral("SND%1: %2")
            .arg(msg.index >= 0 ? QStringLiteral("(%1)").arg(msg.index) : QString(), msg.text);
    }
    return msg.text;
}

QMessageList::QMessageList(QObject* parent)
    : QAbstractListModel(parent)
{
}

QMessageList::~QMessageList()
{
    for (QMessages* file : std::as_const(m_files))
        file->setOwner(nullptr);
}

void QMessageList::add(QMessages* messages)
{
    m_files.append(messages);
    messages->setOwner(this);
    update();
}

void QMessageList::remove(QMessages* messages)
{
    if (m_files.removeOne(messages)) {
        messages->setOwner(nullptr);
        update();
    }
}

void QMessageList::update()
{
    beginResetModel();
    m_errors = m_warnings = m_rows = 0;
    for (const QMessages* file : std::as_const(m_files)) {
        m_errors += file->count(mtError);
        m_warnings += file->count(mtWarning);
        m_rows += file->count();
    }
    endResetModel();
    emit updated();
}

const QMsg* QMessageList::messageAt(int row, int& fileIndex) const
{
    if (row < 0)
        return nullptr;
    for (int i = 0; i < m_files.size(); ++i) {
        const QMessages* file = m_files.at(i);
        if (row < file->count()) {
            fileIndex = i;
            return &file->at(row);
        }
        row -= file->count();
    }
    return nullptr;
}

int QMessageList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

QVariant QMessageList::data(const QModelIndex& index, int role) const
{
    int fileIndex = 0;
    const QMsg* msg = index.isValid() ? messageAt(index.row(), fileIndex) : nullptr;
    if (!msg)
        return QVariant();
    if (role == Qt::DisplayRole)
        return QMessages::format(*msg);
    if (role == Qt::DecorationRole)
        return QIcon(QMessages::iconName(msg->type));
    return QVariant();
}
