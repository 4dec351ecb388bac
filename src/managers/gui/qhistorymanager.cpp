#include "qhistorymanager.h"

#include "managers/qconfigmanager.h"
#include "managers/qxmlfile.h"
#include "util/qprompt.h"
#include "util/qxmlparser.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>

QHistoryManager* historyMan = nullptr;

QHistoryManager::QHistoryManager(QMenu* menu, const QString& fileName, QObject* parent)
    : QObject(parent)
    , m_menu(menu)
    , m_fileName(fileName)
{
}

bool QHistoryManager::load()
{
    m_files.clear();
    m_names.clear();
    return readXmlEntries(m_fileName, QStringLiteral("history"), [this](QXmlParser& xml) {
        const auto attributes = xml.attributes();
        const QString entry = attributes.value(QLatin1String("file")).toString();
        if (xml.name() == QLatin1String("entry") && !entry.isEmpty() && !m_files.contains(entry)) {
            m_files.append(entry);
            m_names.append(attributes.value(QLatin1String("name")).toString());
        }
    });
}

bool QHistoryManager::save() const
{
    QXmlFileWriter file(m_fileName, QStringLiteral("history"));
    for (int i = 0; i < m_files.size(); ++i)
        file.writeEntry(QStringLiteral("entry"),
                        {{QStringLiteral("file"), m_files.at(i)}, {QStringLiteral("name"), m_names.at(i)}});
    return file.commit();
}

void QHistoryManager::update()
{
    if (!m_menu)
        return;
    m_menu->clear();
    for (int i = 0; i < m_files.size(); ++i) {
        const QString shown = m_names.at(i).isEmpty() ? QFileInfo(m_files.at(i)).fileName() : m_names.at(i);
        QAction* action = m_menu->addAction(QStringLiteral("&%1 %2").arg((i + 1) % 10).arg(shown));
        action->setData(m_files.at(i));
        action->setToolTip(QDir::toNativeSeparators(m_files.at(i)));
        connect(action, &QAction::triggered, this, &QHistoryManager::actionTriggered);
    }
    m_menu->addSeparator();
    QAction* all = m_menu->addAction(tr("Open all"), this, &QHistoryManager::allTriggered);
    QAction* clear = m_menu->addAction(tr("Clear"), this, &QHistoryManager::clearTriggered);
    all->setEnabled(!m_files.isEmpty());
    clear->setEnabled(!m_files.isEmpty());
    m_menu->setEnabled(m_enabled);
}

void QHistoryManager::addEntry(const QString& file, const QString& name)
{
    if (!m_enabled)
        return;
    const int found = int(m_files.indexOf(file));
    if (found >= 0) {
        m_files.removeAt(found);
        m_names.removeAt(found);
    } else {
        const int limit = qMax(1, (*configMan)[QStringLiteral("max_history")].toInt());
        while (m_files.size() >= limit) {
            m_files.removeLast();
            m_names.removeLast();
        }
    }
    m_files.prepend(file);
    m_names.prepend(name);
    update();
}

void QHistoryManager::updateEntry(const QString& file, const QString& name)
{
    const int found = int(m_files.indexOf(file));
    if (found >= 0 && m_names.at(found) != name) {
        m_names[found] = name;
        update();
    }
}

void QHistoryManager::removeAt(int index)
{
    m_files.removeAt(index);
    m_names.removeAt(index);
    update();
}

void QHistoryManager::triggerEntry(const QString& file)
{
    if (QFile::exists(file)) {
        emit openRequested(file);
        return;
    }
    const auto answer = prompt().question(
        tr("File not found!"), tr("The file '%1' doesn't exists. Do you want to remove it from the history?").arg(file),
        QPrompt::Yes | QPrompt::No, QPrompt::Yes);
    const int found = int(m_files.indexOf(file));
    if (answer == QPrompt::Yes && found >= 0)
        removeAt(found);
}

void QHistoryManager::actionTriggered()
{
    if (const auto* action = qobject_cast<QAction*>(sender()))
        triggerEntry(action->data().toString());
}

void QHistoryManager::allTriggered()
{
    // Newest last, so the newest ends in the current tab.
    const QStringList files = m_files;
    for (auto file = files.crbegin(); file != files.crend(); ++file)
        triggerEntry(*file);
}

void QHistoryManager::clearTriggered()
{
    m_files.clear();
    m_names.clear();
    update();
}
