#include "qstylesheetmanager.h"

#include <QFile>
#include <QRegularExpression>

QStylesheetManager* styleMan = nullptr;

QString QStylesheetManager::sheet(const QString& name, int dpi) const
{
    if (!contains(name))
        return QString();
    const QString folder = path() + QLatin1Char('/') + name;
    QFile file(folder + QStringLiteral("/Stylesheet.css"));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return resolve(QString::fromUtf8(file.readAll()), dpi, folder);
}

QString QStylesheetManager::resolve(QString sheet, int dpi, const QString& folder)
{
    static const QRegularExpression scaled(QStringLiteral("\\[(\\d+)\\]"));
    QString result;
    qsizetype last = 0;
    for (auto match = scaled.globalMatch(sheet); match.hasNext();) {
        const auto found = match.next();
        result += QStringView(sheet).mid(last, found.capturedStart() - last);
        result += QString::number(found.captured(1).toLongLong() * dpi / 96);
        last = found.capturedEnd();
    }
    result += QStringView(sheet).mid(last);
    return result.replace(QStringLiteral("url("), QStringLiteral("url(") + folder + QLatin1Char('/'));
}
