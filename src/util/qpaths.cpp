#include "qpaths.h"

#include "managers/qconfigmanager.h"

#include <QDir>
#include <QFileInfo>

void QPaths::setPath(const QString& name, const QString& value)
{
    insert(name, value);
    if (configMan)
        (*configMan)[name] = value;
}

bool forcePath(const QString& fileName)
{
    const QFileInfo info(fileName);
    return QDir().mkpath(info.absolutePath());
}

bool removeDir(const QString& dirName)
{
    QDir dir(dirName);
    if (!dir.exists())
        return true;
    return dir.removeRecursively();
}
