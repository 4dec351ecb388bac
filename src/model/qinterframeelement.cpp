#include "qinterframeelement.h"

namespace {

QInterFrameElementType interTypeOf(const QList<QTextToken>& tokens)
{
    if (tokens.size() < 2 || tokens.first().text.compare(QLatin1String("interpolate"), Qt::CaseInsensitive) != 0)
        return ifeLoopStart;
    const QString kind = tokens.at(1).text.toLower();
    if (kind == QLatin1String("blend"))
        return ifeBlend;
    if (kind == QLatin1String("offset"))
        return ifeOffset;
    if (kind == QLatin1String("scale"))
        return ifeScale;
    return ifeAngle;
}

} // namespace

QString interFrameElementName(int type)
{
    switch (type) {
    case ifeLoopStart:
        return QStringLiteral("LoopStart");
    case ifeBlend:
        return QStringLiteral("Interpolate Blend");
    case ifeOffset:
        return QStringLiteral("Interpolate Offset");
    case ifeScale:
        return QStringLiteral("Interpolate Scale");
    case ifeAngle:
        return QStringLiteral("Interpolate Angle");
    default:
        return QString();
    }
}

void QInterFrameElement::update(const QList<QTextToken>& tokens)
{
    m_type = interTypeOf(tokens);
}

void QInterFrameElement::clean()
{
    m_parent = nullptr;
    QTextElement::clean();
}
