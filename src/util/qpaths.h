#pragma once

#include <QMap>
#include <QString>
#include <functional>

/**
 * The named paths of one project ("proj_path" is the directory last used for
 * it). Setting a path also hands it to the remembering hook, which the
 * configuration installs to store it under the same key, so the next file
 * dialog of any project starts there. Paths know nothing of the
 * configuration themselves: without a hook they are only kept here.
 */
class QPaths : public QMap<QString, QString>
{
public:
    using Remember = std::function<void(const QString& name, const QString& value)>;

    void setPath(const QString& name, const QString& value);

    /// Installs the hook every setPath calls; an empty one removes it.
    static void setRemember(const Remember& remember);
};

/// Creates the directory that will hold fileName when it does not exist yet.
bool forcePath(const QString& fileName);

/// Deletes a directory with everything below it; false if anything remained.
bool removeDir(const QString& dirName);
