#include "randomedits.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QtTest>

#include <algorithm>

TextEdit TextEdit::difference(const QString& from, const QString& to)
{
    int prefix = 0;
    const int shorter = int(std::min(from.size(), to.size()));
    while (prefix < shorter && from.at(prefix) == to.at(prefix))
        ++prefix;
    int suffix = 0;
    while (suffix < shorter - prefix && from.at(from.size() - 1 - suffix) == to.at(to.size() - 1 - suffix))
        ++suffix;
    TextEdit edit;
    edit.position = prefix;
    edit.removed = int(from.size()) - prefix - suffix;
    edit.inserted = to.mid(prefix, to.size() - prefix - suffix);
    edit.label = QStringLiteral("sync");
    return edit;
}

void RandomEdits::addRows(const QList<QPair<const char*, int>>& files)
{
    const int scale
        = qEnvironmentVariableIsSet("PF_RANDOM_EDITS") ? qEnvironmentVariableIntValue("PF_RANDOM_EDITS") : 1;
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("edits");
    for (const auto& [path, edits] : files)
        QTest::newRow(path) << QString::fromLatin1(path) << edits * scale;
}

RandomEdits::RandomEdits(quint32 seed, const QStringList& sourceLines)
    : m_random(seed)
    , m_source(sourceLines)
{
}

QString RandomEdits::sourceLines(int count)
{
    const int start = bounded(int(m_source.size()));
    return m_source.mid(start, count).join(QLatin1Char('\n'));
}

int RandomEdits::lineStart(const QTextDocument& document, int line) const
{
    return document.findBlockByNumber(line).position();
}

TextEdit RandomEdits::next(const QTextDocument& document)
{
    static const QString keys = QStringLiteral(" =[];,-\"\nax0D1");
    static const QStringList structure = {
        QStringLiteral("\n"),
        QStringLiteral("; a name\n"),
        QStringLiteral("[State 1, x]\n"),
        QStringLiteral("[Info]\n"),
        QStringLiteral("life = 5\n"),
        QStringLiteral("name = \"Q\"\n"),
        QStringLiteral("[Statedef 9]\n"),
        QStringLiteral("; ------\n\n"),
        QStringLiteral("type = S\n"),
    };
    const int length = document.characterCount() - 1;
    const int lines = document.blockCount();
    TextEdit edit;
    switch (bounded(10)) {
    case 0:
    case 1:
        edit.position = bounded(length + 1);
        edit.inserted = keys.at(bounded(int(keys.size())));
        edit.label = QStringLiteral("type");
        break;
    case 2:
        edit.position = bounded(length + 1);
        edit.removed = std::min(1 + bounded(4), length - edit.position);
        edit.label = QStringLiteral("delete characters");
        break;
    case 3: {
        const int line = bounded(lines);
        const int count = 1 + bounded(4);
        edit.position = lineStart(document, line);
        if (line + count < lines) {
            edit.removed = lineStart(document, line + count) - edit.position;
        } else {
            edit.position = std::max(0, edit.position - 1);
            edit.removed = length - edit.position;
        }
        edit.label = QStringLiteral("delete lines");
        break;
    }
    case 4:
        edit.position = bounded(length + 1);
        edit.removed = std::min(bounded(300), length - edit.position);
        edit.label = QStringLiteral("delete span");
        break;
    case 5:
        edit.position = bounded(2) ? lineStart(document, bounded(lines)) : bounded(length + 1);
        edit.inserted = sourceLines(1 + bounded(8)) + QLatin1Char('\n');
        edit.label = QStringLiteral("paste lines");
        break;
    case 6: {
        const QTextBlock block = document.findBlockByNumber(bounded(lines));
        edit.position = block.position();
        edit.removed = block.length() - 1;
        edit.inserted = sourceLines(1);
        edit.label = QStringLiteral("replace line");
        break;
    }
    case 7:
        edit.position = lineStart(document, bounded(lines));
        edit.inserted = structure.at(bounded(int(structure.size())));
        edit.label = QStringLiteral("insert structure");
        break;
    case 8:
        edit.position = bounded(length + 1);
        edit.removed = std::min(bounded(120), length - edit.position);
        edit.inserted = sourceLines(bounded(5));
        edit.label = QStringLiteral("replace span");
        break;
    default:
        // The ends of the document: first and last line.
        if (bounded(2)) {
            edit.position = 0;
            edit.removed = bounded(2) ? std::max(0, lineStart(document, std::min(1, lines - 1))) : 0;
            edit.inserted = bounded(2) ? sourceLines(1 + bounded(3)) + QLatin1Char('\n') : QString();
        } else {
            const QTextBlock last = document.lastBlock();
            edit.position = std::max(0, last.position() - (bounded(2) ? 1 : 0));
            edit.removed = length - edit.position;
            edit.inserted = bounded(2) ? QLatin1Char('\n') + sourceLines(1 + bounded(3)) : QString();
        }
        edit.label = QStringLiteral("edit an end");
        break;
    }
    return edit;
}
