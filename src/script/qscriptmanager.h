#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

class QMessages;

/**
 * The scripts on disk: one folder per category under the data directory's
 * "scripts" folder ("tool", "project", "snippet", "common"). A script is a
 * ".lua" file straight in a category folder or in one sub-folder more, the
 * sub-folder grouping it in menus; it is named by category, sub-folder and
 * base name joined by "/" ("tool/Sprites/Rename group").
 */
class QScriptManager : public QObject
{
    Q_OBJECT
public:
    QScriptManager(QObject* parent, const QString& dataDirectory);
    ~QScriptManager() override;

    QString directory() const { return m_directory; }
    /// Scans the folders again.
    void update();
    /// The names in a category, without the category: "Sub/Name" or "Name", sorted.
    QStringList scriptList(const QString& category) const { return m_scripts.value(category); }
    /// A script's shown text, translated with the script's name as comment.
    static QString trText(const QString& text, const QString& comment);

    /// What scripts print and the faults of their slots, cleared by whoever starts a run.
    static QMessages& scriptMsgs();

private:
    QString m_directory;
    QMap<QString, QStringList> m_scripts;
};

/// The program's one script manager; null until the window makes it.
extern QScriptManager* scriptMan;
