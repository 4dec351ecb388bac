#include "qversionparam.h"

#include "util/qengineversion.h"

void QVersionParam::takeValue(const QList<QTextToken>& tokens, const QString&)
{
    const bool lone = valueTokenCount(tokens) == 3 && tokens.at(2).id == tokFloat;
    m_version = lone ? getVersion(tokens.at(2).text) : engineVersion::beta;
}

void QVersionParam::setVersion(unsigned int version)
{
    m_version = version;
    changeValue(
        version == engineVersion::beta ? QStringLiteral("04,14,2002") : engineVersion::label(version));
}
