#include "qbakmanager.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

QBakManager::QBakManager(const QString& defFile, QObject* parent)
    : QAbstractListModel(parent)
    , m_path(QFileInfo(defFile).canonicalPath())
    , m_defName(QFileInfo(defFile).fileName())
{
    refresh();
}

QString QBakManager::stampFormat()
{
    return QStringLiteral("dd-MM-yyyy h-m-s ap");
}

void QBakManager::refresh()
{
    beginResetModel();
    m_backups.clear();
    if (!m_path.isEmpty()) {
        const QStringList entries = QDir(m_path + QStringLiteral("/backup"))
                                        .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& entry : entries) {
            if (!entry.startsWith(QLatin1Char('.')))
                m_backups.append(entry);
        }
    }
    // The stamps don't sort as text (day first, hours unpadded): order by the
    // time they stand for, newest first; a folder named otherwise goes last.
    std::stable_sort(m_backups.begin(), m_backups.end(), [](const QString& a, const QString& b) {
        const QDateTime timeA = QDateTime::fromString(a, stampFormat());
        const QDateTime timeB = QDateTime::fromString(b, stampFormat());
        if (timeA.isValid() != timeB.isValid())
            return timeA.isValid();
        return timeA > timeB;
    });
    endResetModel();
}

int QBakManager::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_backups.size());
}

QVariant QBakManager::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_backups.size() || role != Qt::DisplayRole)
        return QVariant();
    return m_backups.at(index.row());
}

QString QBakManager::getFileName(const QModelIndex& index) const
{
    if (!index.isValid() || index.row() >= m_backups.size())
        return QString();
    return m_path + QStringLiteral("/backup/") + m_backups.at(index.row()) + QLatin1Char('/') + m_defName;
}
