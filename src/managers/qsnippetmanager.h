#pragma once

#include <QList>
#include <QObject>
#include <QString>

/**
 * The code snippets of the folder "snippets": pieces of engine text an
 * author inserts at the cursor (a state with its attack, a helper, a
 * command with its entry in state -1...). Each file "*.txt" is one snippet:
 * its first line is "; title | description | files", where files names the
 * kinds of text it belongs in ("states", "commands" or both, comma
 * separated); the rest is the text inserted. Snippets are listed by title.
 *
 * update() reads the folder again, so snippets added while the program runs
 * (or by a new language's folder) appear in the menus that ask for them.
 */
class QSnippetManager : public QObject
{
    Q_OBJECT
public:
    struct Snippet
    {
        QString title;
        QString description;
        QStringList kinds; ///< "states", "commands"
        QString text;      ///< ends in a line feed
    };

    QSnippetManager(QObject* parent, const QString& dir);

    /// Reads the folder again and announces it with changed().
    void update();
    QString folder() const { return m_dir; }

    const QList<Snippet>& snippets() const { return m_snippets; }
    /// The snippets that belong in a text of that kind ("states", "commands").
    QList<Snippet> snippetsFor(const QString& kind) const;
    /// The snippet of that title; null title when there is none.
    Snippet snippet(const QString& title) const;

signals:
    void changed();

private:
    QString m_dir;
    QList<Snippet> m_snippets;
};

/// The process's snippets (made by the window).
extern QSnippetManager* snipMan;
