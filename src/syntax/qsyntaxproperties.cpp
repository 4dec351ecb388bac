#include "qsyntaxproperties.h"

#include "util/qengineversion.h"

namespace {

QString attribute(const QXmlStreamAttributes& attributes, const char* name)
{
    return attributes.value(QLatin1String(name)).toString();
}

} // namespace

QSynInfo QSyntaxProperties::getInfo(const QXmlStreamAttributes& attributes)
{
    QSynInfo info;
    info.type = synTypeFromName(attribute(attributes, "type"));
    if (info.type == stIntN)
        info.max = qMax(1, attribute(attributes, "max").toInt());

    const QString minver = attribute(attributes, "minver");
    if (!minver.isEmpty())
        info.minVersion = getVersion(minver);

    info.deprecated = attribute(attributes, "deprecated").trimmed();
    if (info.isDeprecated()) {
        static const QRegularExpression leading(QStringLiteral("^\\d+(?:\\.\\d+)*"));
        info.deprecatedVersion = getVersion(leading.match(info.deprecated).captured());
    }

    const QString format = attribute(attributes, "format").trimmed().toLower();
    if (format == QLatin1String("func")) {
        info.format = QSynInfo::fmtFunc;
    } else if (format == QLatin1String("regexp")) {
        info.format = QSynInfo::fmtRegExp;
        info.nameRegExp = QSynInfo::wholeRegExp(attribute(attributes, "fmt_reg_exp"));
    }

    const QString regExp = attribute(attributes, "reg_exp");
    if (!regExp.isEmpty())
        info.valueRegExp = QSynInfo::wholeRegExp(regExp);
    info.required = attribute(attributes, "required") == QLatin1String("true");
    if (attribute(attributes, "first_letter") == QLatin1String("true"))
        info.letterWords = regExp.toLower().split(QLatin1Char('|'), Qt::SkipEmptyParts);
    return info;
}
