#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStringList>

/**
 * The backups of one project: the folders "backup/<stamp>" beside its DEF,
 * newest first, each shown by its stamp as it stands. getFileName() gives
 * the DEF inside a backup, which QProject::open with keepNames loads over
 * the open project, so that the next save still goes to the real files.
 */
class QBakManager : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit QBakManager(const QString& defFile, QObject* parent = nullptr);

    /// How a backup folder is named: the time it was made.
    static QString stampFormat();

    /// Reads the backup folder again.
    void refresh();
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// The DEF inside the backup of that row; empty for no row.
    QString getFileName(const QModelIndex& index) const;

private:
    QString m_path;
    QString m_defName;
    QStringList m_backups;
};
