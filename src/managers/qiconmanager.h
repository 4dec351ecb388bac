#pragma once

#include "qresourcedirectory.h"

#include <QHash>
#include <QIcon>

class QActionManager;

/**
 * The icon sets: each folder of the directory with an "Iconset.xml", which
 * maps action names (and the names of other pictures: editors, tools) to
 * icon files of that folder:
 *
 *     <iconset><icon name="file_open" file="document-open.svg"/>...</iconset>
 *
 * A name the set doesn't map, or whose file is missing, gives a null icon,
 * so the action shows its text alone.
 */
class QIconManager : public QResourceDirectory
{
public:
    explicit QIconManager(const QString& directory)
        : QResourceDirectory(directory, QResourceDirectory::Subdirectories, QStringLiteral("Iconset.xml"))
    {
    }

    /// Reads the set and gives every action of `actions` its icon. With
    /// `force` the set is read again even when it is the current one. An
    /// unknown set keeps the current one; a bad file is reported and gives
    /// the icons read before the fault. False when the set wasn't applied.
    bool apply(const QString& name, QActionManager* actions, bool force = false);
    QIcon icon(const QString& name) const;
    QString current() const { return m_current; }

private:
    QString m_current;
    QHash<QString, QString> m_files; ///< name to absolute file
};

extern QIconManager* iconMan;
