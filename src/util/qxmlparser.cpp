#include "qxmlparser.h"

#include "qprompt.h"

#include <QCoreApplication>
#include <QFile>

QXmlParser::QXmlParser(QIODevice* device)
    : QXmlStreamReader(device)
{
}

bool QXmlParser::start(const QString& rootName)
{
    if (!readNextStartElement())
        return false;
    if (name() != rootName) {
        raiseError(QCoreApplication::translate("QXmlParser", "Expected the element '%1'").arg(rootName));
        return false;
    }
    return true;
}

QString QXmlParser::errorText() const
{
    QString what = errorString();
    if (const QFile* file = qobject_cast<const QFile*>(device()))
        what = QStringLiteral("%1 on '%2'").arg(what, file->fileName());
    return QStringLiteral("%1 at line, %2, column %3").arg(what).arg(lineNumber()).arg(columnNumber());
}

bool QXmlParser::notifyError()
{
    if (!hasError())
        return false;
    prompt().critical(QCoreApplication::translate("QXmlParser", "XML Error"), errorText());
    return true;
}
