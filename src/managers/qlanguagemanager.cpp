#include "qlanguagemanager.h"

#include "qxmlfile.h"
#include "util/qxmlparser.h"

#include <QDir>
#include <QTranslator>

QLanguageManager* langMan = nullptr;

QLanguageManager::QLanguageManager(QCoreApplication* application, const QString& directory)
    : QObject(application)
    , QResourceDirectory(directory, Subdirectories, QStringLiteral("info.xml"))
    , m_application(application)
{
    update();
}

QLanguageManager::~QLanguageManager()
{
    removeTranslators();
}

void QLanguageManager::update()
{
    QResourceDirectory::update();
    m_infos.clear();
    for (const QString& id : names()) {
        Info info{id, id, QString(), QString()};
        readXmlEntries(path() + QLatin1Char('/') + id + QStringLiteral("/info.xml"), QStringLiteral("language"),
                       [&info](QXmlParser& xml) {
                           const QString value = xml.attributes().value(QLatin1String("value")).toString();
                           if (xml.name() == QLatin1String("name"))
                               info.name = value;
                           else if (xml.name() == QLatin1String("author"))
                               info.author = value;
                           else if (xml.name() == QLatin1String("contact"))
                               info.contact = value;
                       });
        m_infos.append(info);
    }
}

void QLanguageManager::removeTranslators()
{
    for (QTranslator* translator : std::as_const(m_translators)) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
    m_translators.clear();
}

void QLanguageManager::setActive(const QString& id)
{
    if (id == m_active && !m_active.isEmpty())
        return;
    removeTranslators();
    m_active = id;
    if (contains(id)) {
        const QDir folder(path() + QLatin1Char('/') + id);
        for (const QString& qm : folder.entryList({QStringLiteral("*.qm")}, QDir::Files, QDir::Name)) {
            auto* translator = new QTranslator(this);
            if (translator->load(folder.filePath(qm)) && QCoreApplication::installTranslator(translator))
                m_translators.append(translator);
            else
                delete translator;
        }
    }
    emit langChanged();
}

int QLanguageManager::find(const QString& id) const
{
    for (int row = 0; row < m_infos.size(); ++row) {
        if (m_infos.at(row).id == id)
            return row;
    }
    return -1;
}
