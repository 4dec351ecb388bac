#include "qmugenlog.h"

#include <QRegularExpression>

namespace {

/// How many lines after an error line may still name its file and line.
constexpr int followingLines = 3;

bool speaksOfError(const QString& line)
{
    static const QRegularExpression error(
        QStringLiteral("\\berror\\b"), QRegularExpression::CaseInsensitiveOption);
    return error.match(line).hasMatch();
}

} // namespace

QList<QMugenLogError> mugenLog::parse(const QString& text)
{
    static const QRegularExpression copyFile(
        QStringLiteral("((?:chars|stages|data)[\\\\/]pf3_(\\d{1,2})[^\\s:,;\"'()]*)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression lineWord(
        QStringLiteral("\\bline\\s*:?\\s*(\\d+)"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression lineAfterFile(QStringLiteral("^\\s*[:(]\\s*(\\d+)"));

    const QStringList lines = text.split(QRegularExpression(QStringLiteral("\\r\\n|\\r|\\n")));
    QList<QMugenLogError> errors;
    for (int i = 0; i < lines.size(); ++i) {
        if (!speaksOfError(lines.at(i)))
            continue;
        QMugenLogError error;
        QStringList words;
        int last = i;
        for (int j = i; j < lines.size() && j <= i + followingLines; ++j) {
            const QString line = lines.at(j).trimmed();
            if (line.isEmpty() || (j > i && speaksOfError(line) && !error.copyFile.isEmpty()))
                break;
            words << line;
            last = j;
            const QRegularExpressionMatch file = copyFile.match(line);
            if (file.hasMatch() && error.copyFile.isEmpty()) {
                error.copyFile = QString(file.captured(1)).replace(QLatin1Char('\\'), QLatin1Char('/'));
                error.number = file.captured(2).toInt();
                const QRegularExpressionMatch after = lineAfterFile.match(line.mid(file.capturedEnd(1)));
                if (after.hasMatch())
                    error.line = after.captured(1).toInt();
            }
            const QRegularExpressionMatch number = lineWord.match(line);
            if (number.hasMatch() && error.line == 0)
                error.line = number.captured(1).toInt();
        }
        error.text = words.join(QLatin1Char(' '));
        errors.append(error);
        i = last;
    }
    return errors;
}
