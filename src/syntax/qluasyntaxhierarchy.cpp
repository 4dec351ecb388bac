#include "qluasyntaxhierarchy.h"

#include <QRegularExpression>
#include <algorithm>
#include <QTextBlock>
#include <QTextDocument>

namespace {

/// The words that open a block closed by "end", and "end" itself, outside strings and comments.
const QRegularExpression& blockWords()
{
    static const QRegularExpression words(QStringLiteral("\\b(function|do|then|elseif|repeat|end|until)\\b"));
    return words;
}

/// A line without its comment and the text of its short strings, so words in them don't count.
QString codeOf(const QString& line)
{
    static const QRegularExpression strings(QStringLiteral("\"(?:[^\"\\\\]|\\\\.)*\"|'(?:[^'\\\\]|\\\\.)*'"));
    QString code = line;
    code.replace(strings, QStringLiteral("\"\""));
    const qsizetype comment = code.indexOf(QLatin1String("--"));
    return comment < 0 ? code : code.left(comment);
}

} // namespace

QLuaSyntaxHierarchy::QLuaSyntaxHierarchy(const QTextDocument* document)
    : m_document(document)
{
}

void QLuaSyntaxHierarchy::update()
{
    static const QRegularExpression named(
        QStringLiteral("^\\s*(?:local\\s+)?function\\s+([A-Za-z_][\\w.:]*)\\s*\\(([^)]*)\\)"));
    static const QRegularExpression assigned(
        QStringLiteral("^\\s*(?:local\\s+)?([A-Za-z_][\\w.\\[\\]\"']*)\\s*=\\s*function\\s*\\(([^)]*)\\)"));
    static const QRegularExpression longOpen(QStringLiteral("\\[(=*)\\["));

    m_items.clear();
    QList<int> open;      ///< per open block: 1 when it is a function, else 0
    QString longClose;    ///< the end of a long string or comment we are inside, or empty
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        QString line = block.text();
        if (!longClose.isEmpty()) {
            const qsizetype end = line.indexOf(longClose);
            if (end < 0)
                continue;
            line = line.mid(end + longClose.size());
            longClose.clear();
        }
        const QRegularExpressionMatch longStart = longOpen.match(line);
        if (longStart.hasMatch() && line.indexOf(QStringLiteral("]%1]").arg(longStart.captured(1)), longStart.capturedEnd()) < 0) {
            longClose = QStringLiteral("]%1]").arg(longStart.captured(1));
            line = line.left(longStart.capturedStart());
            if (line.endsWith(QLatin1String("--")))
                line.chop(2);
        }
        const QString code = codeOf(line);
        QRegularExpressionMatch match = named.match(code);
        if (!match.hasMatch())
            match = assigned.match(code);
        if (match.hasMatch()) {
            const int depth = int(std::count(open.cbegin(), open.cend(), 1));
            m_items.append({QStringLiteral("%1(%2)").arg(match.captured(1), match.captured(2).simplified()),
                            block.blockNumber(), depth});
        }
        QRegularExpressionMatchIterator words = blockWords().globalMatch(code);
        bool inElseIf = false; // "elseif ... then" goes on the block its "if" opened
        while (words.hasNext()) {
            const QString word = words.next().captured(1);
            if (word == QLatin1String("function")) {
                open.append(1);
            } else if (word == QLatin1String("elseif")) {
                inElseIf = true;
            } else if (word == QLatin1String("then")) {
                if (!inElseIf)
                    open.append(0);
                inElseIf = false;
            } else if (word == QLatin1String("repeat") || word == QLatin1String("do")) {
                open.append(0);
            } else if (!open.isEmpty() && (word == QLatin1String("end") || word == QLatin1String("until"))) {
                open.removeLast();
            }
        }
    }
}
