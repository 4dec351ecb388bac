#include "qpathresolver.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// The entry of `dir` named `part` ignoring case, or an empty string.
QString findIgnoringCase(const QString& dir, const QString& part)
{
    const QStringList entries =
        QDir(dir).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString& entry : entries) {
        if (entry.compare(part, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return QString();
}

} // namespace

QResolvedPath resolvePath(const QString& baseDir, const QString& name)
{
    QResolvedPath result;
    result.backslashes = name.contains(QLatin1Char('\\'));
    QString relative = name.trimmed();
    relative.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const bool absolute = QDir::isAbsolutePath(relative);
    const QString start = absolute ? QStringLiteral("/") : baseDir.isEmpty() ? QStringLiteral(".") : baseDir;
    result.path = QDir::cleanPath(absolute ? relative : start + QLatin1Char('/') + relative);
    if (relative.isEmpty())
        return result;
    if (QFileInfo(result.path).isFile()) {
        result.exists = true;
        return result;
    }

    QString current = start;
    bool caseDiffers = false;
    const QStringList parts = relative.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        if (part == QLatin1String(".") || part == QLatin1String("..")) {
            current += QLatin1Char('/') + part;
            continue;
        }
        const QString exact = current + QLatin1Char('/') + part;
        if (QFileInfo::exists(exact)) {
            current = exact;
            continue;
        }
        const QString entry = findIgnoringCase(current, part);
        if (entry.isEmpty())
            return result;
        current += QLatin1Char('/') + entry;
        caseDiffers = true;
    }
    if (!QFileInfo(current).isFile())
        return result;
    result.path = QDir::cleanPath(current);
    result.exists = true;
    result.caseDiffers = caseDiffers;
    return result;
}
