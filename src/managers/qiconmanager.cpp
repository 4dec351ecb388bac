#include "qiconmanager.h"

#include "qactionmanager.h"
#include "qxmlfile.h"
#include "util/qxmlparser.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>

QIconManager* iconMan = nullptr;

bool QIconManager::apply(const QString& name, QActionManager* actions, bool force)
{
    if (!contains(name))
        return false;
    if (force || name != m_current) {
        m_current = name;
        m_files.clear();
        const QDir folder(path() + QLatin1Char('/') + name);
        readXmlEntries(folder.filePath(QStringLiteral("Iconset.xml")), QStringLiteral("iconset"),
                       [this, &folder](QXmlParser& xml) {
                           const auto attributes = xml.attributes();
                           m_files.insert(attributes.value(QLatin1String("name")).toString(),
                                          folder.filePath(attributes.value(QLatin1String("file")).toString()));
                       });
    }
    if (actions) {
        for (int i = 0; i < actions->count(); ++i)
            actions->at(i)->setIcon(icon(actions->name(actions->at(i))));
    }
    return true;
}

QIcon QIconManager::icon(const QString& name) const
{
    const QString file = m_files.value(name);
    return !file.isEmpty() && QFileInfo::exists(file) ? QIcon(file) : QIcon();
}
