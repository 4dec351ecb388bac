#include "qsnippetmanager.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>

QSnippetManager* snipMan = nullptr;

QSnippetManager::QSnippetManager(QObject* parent, const QString& dir)
    : QObject(parent)
    , m_dir(dir)
{
    update();
}

void QSnippetManager::update()
{
    m_snippets.clear();
    const QStringList names = QDir(m_dir).entryList({QStringLiteral("*.txt")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        QFile file(QDir(m_dir).filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QString text = QStringDecoder(QStringDecoder::Utf8)(file.readAll());
        text.remove(QLatin1Char('\r'));
        const qsizetype end = text.indexOf(QLatin1Char('\n'));
        const QString header = end < 0 ? text : text.left(end);
        if (!header.startsWith(QLatin1Char(';')))
            continue; // not a snippet: no title line
        const QStringList fields = header.mid(1).split(QLatin1Char('|'));
        Snippet snippet;
        snippet.title = fields.value(0).trimmed();
        snippet.description = fields.value(1).trimmed();
        for (const QString& kind : fields.value(2).split(QLatin1Char(','), Qt::SkipEmptyParts))
            snippet.kinds.append(kind.trimmed().toLower());
        snippet.text = end < 0 ? QString() : text.mid(end + 1);
        if (snippet.title.isEmpty() || snippet.text.trimmed().isEmpty())
            continue;
        if (!snippet.text.endsWith(QLatin1Char('\n')))
            snippet.text += QLatin1Char('\n');
        m_snippets.append(snippet);
    }
    emit changed();
}

QList<QSnippetManager::Snippet> QSnippetManager::snippetsFor(const QString& kind) const
{
    QList<Snippet> found;
    for (const Snippet& snippet : m_snippets) {
        if (snippet.kinds.contains(kind))
            found.append(snippet);
    }
    return found;
}

QSnippetManager::Snippet QSnippetManager::snippet(const QString& title) const
{
    for (const Snippet& snippet : m_snippets) {
        if (snippet.title == title)
            return snippet;
    }
    return Snippet();
}
