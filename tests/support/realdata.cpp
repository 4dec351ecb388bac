#include "realdata.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

QString realDataDir()
{
    const QString dir = qEnvironmentVariable("PF_REALDATA");
    return !dir.isEmpty() && QFileInfo(dir).isDir() ? QDir(dir).absolutePath() : QString();
}

QStringList realDataFiles(const QStringList& suffixes)
{
    QStringList files;
    const QString root = realDataDir();
    if (root.isEmpty())
        return files;
    QDirIterator it(root, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        if (suffixes.contains(QFileInfo(file).suffix(), Qt::CaseInsensitive))
            files.append(file);
    }
    files.sort();
    return files;
}
