#include "qpresetmanager.h"

#include "qxmlfile.h"
#include "util/qxmlparser.h"

#include <QRegularExpression>

QPresetManager* presetMan = nullptr;

namespace {

bool readSize(QStringView text, QSize& size)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,3}),([0-9]{1,3})$"));
    const auto match = form.match(text);
    if (match.hasMatch())
        size = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    return match.hasMatch();
}

void readColor(QStringView text, QColor& color)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,3}),([0-9]{1,3}),([0-9]{1,3})$"));
    const auto match = form.match(text);
    if (match.hasMatch())
        color = QColor(qMin(255, match.captured(1).toInt()), qMin(255, match.captured(2).toInt()),
                       qMin(255, match.captured(3).toInt()));
}

void readValue(QPresetManager::Look& look, QStringView key, QStringView value)
{
    static const QRegularExpression words(QStringLiteral("^([a-z]{1,7}),([a-z]{1,7})$"));
    if (key == QLatin1String("iconset"))
        look.iconset = value.toString();
    else if (key == QLatin1String("stylesheet"))
        look.stylesheet = value.toString();
    else if (key == QLatin1String("colorset"))
        look.colorset = value.toString();
    else if (key == QLatin1String("iconsize"))
        readSize(value, look.iconSize);
    else if (key == QLatin1String("panel-metric"))
        readSize(value, look.panelMetric);
    else if (key == QLatin1String("extra-metric"))
        readSize(value, look.extraMetric);
    else if (key == QLatin1String("button"))
        readSize(value, look.button);
    else if (key == QLatin1String("separator"))
        readColor(value, look.separator);
    else if (key == QLatin1String("justify") && words.match(value).hasMatch())
        look.justify = value.toString();
    else if (key == QLatin1String("flat"))
        look.flat = value == QLatin1String("true");
}

} // namespace

const QPresetManager::Look& QPresetManager::apply(const QString& preset, const QString& iconset,
                                                  const QString& stylesheet, const QString& colorset)
{
    m_look = Look();
    m_look.preset = contains(preset) ? preset : defaultPreset();
    readXmlEntries(path() + QLatin1Char('/') + m_look.preset + QStringLiteral(".xml"), QStringLiteral("preset"),
                   [this](QXmlParser& xml) {
                       const auto attributes = xml.attributes();
                       if (xml.name() == QLatin1String("value")) {
                           readValue(m_look, attributes.value(QLatin1String("key")),
                                     attributes.value(QLatin1String("value")));
                       } else if (xml.name() == QLatin1String("panel")) {
                           QSize metric;
                           if (readSize(attributes.value(QLatin1String("metric")), metric))
                               m_look.panels.insert(attributes.value(QLatin1String("area")) + QLatin1Char('/')
                                                        + attributes.value(QLatin1String("name")),
                                                    metric);
                       }
                   });
    if (!iconset.isEmpty())
        m_look.iconset = iconset;
    if (!stylesheet.isEmpty())
        m_look.stylesheet = stylesheet;
    if (!colorset.isEmpty())
        m_look.colorset = colorset;
    return m_look;
}

QSize QPresetManager::panelMetric(const QString& area, const QString& name) const
{
    const QSize own = m_look.panels.value(area + QLatin1Char('/') + name);
    if (own.isValid())
        return own;
    return area == QLatin1String("extra") ? m_look.extraMetric : m_look.panelMetric;
}
