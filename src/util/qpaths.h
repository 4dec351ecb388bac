#pragma once

#include <QMap>
#include <QString>

/**
 * The named paths of one project ("proj_path" is the directory last used for
 * it). Setting a path also stores it in the configuration under the same key,
 * so the next file dialog of any project starts there.
 */
class QPaths : public QMap<QString, QString>
{
public:
    void setPath(const QString& name, const QString& value);
};

/// Creates the directory that will hold fileName when it does not exist yet.
bool forcePath(const QString& fileName);

/// Deletes a directory with everything below it; false if anything remained.
bool removeDir(const QString& dirName);
