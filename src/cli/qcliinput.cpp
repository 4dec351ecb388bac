#include "qcliinput.h"

#include "syntax/qenginetext.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

QString notEngineText(const QString& fileName, const QString& kind)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("can't read the file");
    const QByteArray head = file.read(1 << 16);
    if (!isEngineText(head))
        return kind + QStringLiteral(": it holds binary data");
    static const QRegularExpression group(QStringLiteral("^[ \\t]*\\[[^\\]\\r\\n]+\\]"),
                                          QRegularExpression::MultilineOption);
    if (!QString::fromLatin1(head).contains(group))
        return kind + QStringLiteral(": it has no [group] line");
    return QString();
}

QString notADefinition(const QString& fileName)
{
    if (QFileInfo(fileName).suffix().compare(QLatin1String("def"), Qt::CaseInsensitive) != 0)
        return QStringLiteral("not a DEF file: the name does not end in .def");
    return notEngineText(fileName, QStringLiteral("not a DEF file"));
}
