#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QPointer>

class QSyntaxTextEditor;

/**
 * Watches the files of the open text documents for changes made by other
 * programs. On such a change it asks the author, through prompt(), whether
 * to read the file again; refused, the author's text stays and counts as
 * modified, so the next save writes it over the other program's version.
 *
 * The program's own saves are told apart by the size and time of the file
 * as each load and save leave it, since the watcher reports them later than
 * the save itself.
 */
class QFileWatcherManager : public QObject
{
    Q_OBJECT
public:
    explicit QFileWatcherManager(QObject* parent = nullptr);

    /// Watches the document's file (and follows it to another name).
    void watch(QSyntaxTextEditor* text);
    /// Watches exactly these documents from now on.
    void watchOnly(const QList<QSyntaxTextEditor*>& texts);

private:
    struct Stamp
    {
        qint64 size = -1;
        QDateTime modified;
        bool operator==(const Stamp& other) const { return size == other.size && modified == other.modified; }
    };
    static Stamp stampOf(const QString& fileName);

    void fileChanged(const QString& fileName);
    void remember(QSyntaxTextEditor* text);
    void forget(QSyntaxTextEditor* text);

    QFileSystemWatcher m_watcher;
    QHash<QSyntaxTextEditor*, QString> m_files;
    QHash<QString, Stamp> m_stamps; ///< by file name, as this program last left the file
};

/// The process's watcher of open files (made by the window).
extern QFileWatcherManager* watchMan;
