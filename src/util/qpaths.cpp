#include "qpaths.h"

#include <QDir>
#include <QFileInfo>

namespace {

QPaths::Remember& remembered()
{
    static QPaths::Remember remember;
    return remember;
}

} // namespace

void QPaths::setPath(const QString& name, const QString& value)
{
    insert(name, value);
    if (remembered())
        remembered()(name, value);
}

void QPaths::setRemember(const Remember& remember)
{
    remembered() = remember;
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
