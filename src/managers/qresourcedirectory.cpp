#include "qresourcedirectory.h"

#include <QDir>
#include <QFileInfo>

QResourceDirectory::QResourceDirectory(const QString& path, Kind kind, const QString& requiredFile)
    : m_path(path)
    , m_kind(kind)
    , m_requiredFile(requiredFile)
{
    update();
}

void QResourceDirectory::update()
{
    m_names.clear();
    const QDir dir(m_path);
    if (m_kind == Subdirectories) {
        const QStringList folders = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& folder : folders) {
            if (m_requiredFile.isEmpty() || QFileInfo::exists(dir.filePath(folder + QLatin1Char('/') + m_requiredFile)))
                m_names.append(folder);
        }
    } else {
        const QFileInfoList files = dir.entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo& file : files)
            m_names.append(file.completeBaseName());
    }
}
