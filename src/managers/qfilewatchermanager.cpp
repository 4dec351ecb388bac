#include "qfilewatchermanager.h"

#include "syntax/qsyntaxtexteditor.h"
#include "util/qprompt.h"

#include <QFileInfo>
#include <QTextDocument>

QFileWatcherManager* watchMan = nullptr;

QFileWatcherManager::QFileWatcherManager(QObject* parent)
    : QObject(parent)
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &QFileWatcherManager::fileChanged);
}

QFileWatcherManager::Stamp QFileWatcherManager::stampOf(const QString& fileName)
{
    const QFileInfo info(fileName);
    return info.exists() ? Stamp{info.size(), info.lastModified()} : Stamp{};
}

void QFileWatcherManager::watch(QSyntaxTextEditor* text)
{
    if (m_files.contains(text))
        return;
    m_files.insert(text, QString());
    remember(text);
    // Loading and saving leave the document unmodified: the file is then as this program knows it.
    connect(text->document(), &QTextDocument::modificationChanged, this, [this, text](bool modified) {
        if (!modified)
            remember(text);
    });
    connect(text, &QSyntaxTextEditor::fileNameChanged, this, [this, text] { remember(text); });
    connect(text, &QObject::destroyed, this, [this, text] { forget(text); });
}

void QFileWatcherManager::watchOnly(const QList<QSyntaxTextEditor*>& texts)
{
    const QList<QSyntaxTextEditor*> watched = m_files.keys();
    for (QSyntaxTextEditor* text : watched) {
        if (!texts.contains(text))
            forget(text);
    }
    for (QSyntaxTextEditor* text : texts)
        watch(text);
}

void QFileWatcherManager::remember(QSyntaxTextEditor* text)
{
    const QString old = m_files.value(text);
    const QString name = text->fileName();
    if (old != name && !old.isEmpty())
        m_watcher.removePath(old);
    m_files.insert(text, name);
    if (name.isEmpty())
        return;
    m_stamps.insert(name, stampOf(name));
    if (!m_watcher.files().contains(name))
        m_watcher.addPath(name);
}

void QFileWatcherManager::forget(QSyntaxTextEditor* text)
{
    const QString name = m_files.take(text);
    disconnect(text, nullptr, this, nullptr);
    if (!name.isEmpty() && !m_files.values().contains(name)) {
        m_watcher.removePath(name);
        m_stamps.remove(name);
    }
}

void QFileWatcherManager::fileChanged(const QString& fileName)
{
    // A file replaced by a rename (as every save does) leaves the watcher: watch it again.
    if (QFileInfo::exists(fileName) && !m_watcher.files().contains(fileName))
        m_watcher.addPath(fileName);
    const Stamp now = stampOf(fileName);
    if (now == m_stamps.value(fileName) || now.size < 0)
        return;
    m_stamps.insert(fileName, now); // asked once per change
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it) {
        QSyntaxTextEditor* text = it.key();
        if (it.value() != fileName || text->isSaving())
            continue;
        const QString question = text->isModified()
                                     ? tr("%1 was changed by another program.\nReload it and lose your changes?")
                                     : tr("%1 was changed by another program.\nReload it?");
        const QPrompt::Button answer = prompt().question(tr("File changed"), question.arg(QFileInfo(fileName).fileName()),
                                                         QPrompt::Yes | QPrompt::No, QPrompt::Yes);
        if (answer == QPrompt::Yes)
            text->reload();
        else
            text->document()->setModified(true); // the author's text is the one to save
        return;
    }
}
