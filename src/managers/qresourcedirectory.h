#pragma once

#include <QString>
#include <QStringList>

/**
 * A directory of interchangeable resources beside the executable (icon sets,
 * styles, languages, colour sets, presets) and the names found in it. The
 * presentation managers each hold one and rescan it on update().
 */
class QResourceDirectory
{
public:
    enum Kind {
        Subdirectories, ///< every folder is one resource
        Files,          ///< every file is one resource, named without its suffix
    };

    QResourceDirectory(const QString& path, Kind kind, const QString& requiredFile = QString());

    /// Rescans; a missing directory yields no names.
    void update();

    const QString& path() const { return m_path; }
    const QStringList& names() const { return m_names; }
    bool contains(const QString& name) const { return m_names.contains(name); }

private:
    QString m_path;
    Kind m_kind;
    QString m_requiredFile; ///< a folder counts only when it holds this file
    QStringList m_names;
};
