// pugilforge-cli tokens FILE: how the program reads a text file of the engine,
// line by line: its detected encoding and each line's tokens.
#include "qclicommand.h"

#include "syntax/qenginetext.h"
#include "text/qcodecs.h"
#include "text/qtexttoken.h"
#include "text/qtokenizer.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QTextCodec>

namespace {

/// The document's lines: line feeds split them, a carriage return before one
/// is not part of the line.
QStringList documentLines(const QString& text)
{
    QStringList lines = text.split(u'\n');
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast();
    for (QString& line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
    }
    return lines;
}

QString quoted(const QString& text)
{
    QString escaped = text;
    escaped.replace(u'\\', QLatin1String("\\\\"))
        .replace(u'"', QLatin1String("\\\""))
        .replace(u'\n', QLatin1String("\\n"));
    return u'"' + escaped + u'"';
}

int runTokens(const QCliRun& run)
{
    if (run.arguments().size() != 1)
        return run.usage(QStringLiteral("tokens FILE"));
    const QString fileName = run.arguments().first();
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return run.fail(fileName, file.errorString());

    const QByteArray data = file.readAll();
    // Any text will do, but not the bytes of a picture or a program.
    if (!isEngineText(data))
        return run.fail(fileName, QStringLiteral("not a text file: it holds binary data"));

    int used = 0;
    const QString text = stringFromData(data, 0, &used);
    const QStringList lines = documentLines(text);

    QJsonArray jsonLines;
    if (!run.json())
        run.print(used == 0
                ? QStringLiteral("encoding: %1 (%2)")
                      .arg(codecName(0), QString::fromLatin1(QTextCodec::codecForLocale()->name()))
                : QStringLiteral("encoding: %1").arg(codecName(used)));
    for (int number = 0; number < lines.size(); ++number) {
        QTokenizer tokenizer(lines.at(number));
        const QList<QTextToken> tokens = QTextToken::readLine(tokenizer);
        const QString comment = tokenizer.hasComment() ? tokenizer.getComment() : QString();
        if (run.json()) {
            QJsonArray jsonTokens;
            for (const QTextToken& token : tokens) {
                jsonTokens.append(QJsonObject { { QStringLiteral("code"), int(token.id) },
                    { QStringLiteral("column"), token.column }, { QStringLiteral("text"), token.text } });
            }
            QJsonObject line { { QStringLiteral("line"), number + 1 },
                { QStringLiteral("tokens"), jsonTokens } };
            if (tokenizer.hasComment())
                line.insert(QStringLiteral("comment"), comment);
            jsonLines.append(line);
            continue;
        }
        QStringList parts { QString::number(number + 1) + u':' };
        for (const QTextToken& token : tokens)
            parts.append(
                QStringLiteral("%1@%2 %3").arg(int(token.id)).arg(token.column).arg(quoted(token.text)));
        if (tokenizer.hasComment())
            parts.append(u';' + quoted(comment));
        run.print(parts.join(QLatin1String("  ")));
    }
    if (run.json()) {
        run.printJson(QJsonObject { { QStringLiteral("file"), fileName },
            { QStringLiteral("encoding"), codecName(used) }, { QStringLiteral("lines"), jsonLines } });
    }
    return 0;
}

const QCliCommand command("tokens", "tokens FILE",
    "print a text file's detected encoding and each line's tokens (code@column \"text\")", runTokens);

} // namespace
