#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

/**
 * The recent projects: the menu that lists them, newest first, and the file
 * "history.xml" that keeps them between runs:
 *
 *     <history><entry file="/abs/ember.def" name="Ember"/>...</history>
 *
 * The list holds at most config "max_history" entries. Choosing an entry
 * asks for it through openRequested(); an entry whose file is gone offers to
 * remove itself instead.
 */
class QHistoryManager : public QObject
{
    Q_OBJECT
public:
    QHistoryManager(QMenu* menu, const QString& fileName, QObject* parent = nullptr);

    /// Reads the file; a fault is reported and keeps the entries read before it.
    bool load();
    bool save() const;
    /// Rebuilds the menu: the entries, then "Open all" and "Clear".
    void update();

    /// Puts the file on top, adding it or moving it there.
    void addEntry(const QString& file, const QString& name);
    /// Renames the entry of the file, if there is one.
    void updateEntry(const QString& file, const QString& name);
    /// Opens the entry's file, or, when it is gone, asks whether to remove the entry.
    void triggerEntry(const QString& file);

    const QStringList& files() const { return m_files; }
    const QStringList& names() const { return m_names; }
    void setEnabled(bool enabled) { m_enabled = enabled; }

signals:
    void openRequested(const QString& file);

public slots:
    void actionTriggered();
    void allTriggered();
    void clearTriggered();

private:
    void removeAt(int index);

    QMenu* m_menu;
    QString m_fileName;
    QStringList m_files;
    QStringList m_names;
    bool m_enabled = true;
};

extern QHistoryManager* historyMan;
