#include "qscriptmanager.h"

#include "util/qmessages.h"

#include <QCoreApplication>
#include <QDir>

QScriptManager* scriptMan = nullptr;

namespace {

const char* const categories[] = {"common", "project", "snippet", "tool"};
const QLatin1String suffix(".lua");

// The ".lua" files straight in `folder`, by base name, with `prefix` before each.
QStringList scriptsIn(const QString& folder, const QString& prefix)
{
    QStringList names;
    const QStringList files = QDir(folder).entryList({QStringLiteral("*.lua")}, QDir::Files, QDir::Name);
    for (const QString& file : files) {
        if (!file.startsWith(QLatin1Char('.')))
            names << prefix + file.chopped(suffix.size());
    }
    return names;
}

} // namespace

QScriptManager::QScriptManager(QObject* parent, const QString& dataDirectory)
    : QObject(parent)
    , m_directory(dataDirectory + QStringLiteral("/scripts"))
{
    update();
}

QScriptManager::~QScriptManager()
{
    if (scriptMan == this)
        scriptMan = nullptr;
}

void QScriptManager::update()
{
    m_scripts.clear();
    for (const char* category : categories) {
        const QString folder = m_directory + QLatin1Char('/') + QLatin1String(category);
        QStringList names = scriptsIn(folder, QString());
        // Hidden entries (".", "..", ".git") are no groups.
        const QStringList subs = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& sub : subs) {
            if (!sub.startsWith(QLatin1Char('.')))
                names << scriptsIn(folder + QLatin1Char('/') + sub, sub + QLatin1Char('/'));
        }
        m_scripts.insert(QLatin1String(category), names);
    }
}

QString QScriptManager::trText(const QString& text, const QString& comment)
{
    return QCoreApplication::translate("QScriptManager", text.toUtf8().constData(), comment.toUtf8().constData());
}

QMessages& QScriptManager::scriptMsgs()
{
    static QMessages messages(pftDefinitions);
    return messages;
}
