#include "qmugensyntaxproperties.h"

#include "util/qprompt.h"
#include "util/qxmlparser.h"

#include <QCoreApplication>
#include <QFile>

void QSynTable::insert(const QString& name, const QSynInfo& info)
{
    const QString key = name.trimmed().toLower();
    if (key.isEmpty())
        return;
    if (info.format != QSynInfo::fmtName && !entries.contains(key))
        walked.append(key);
    entries.insert(key, info);
}

const QSynInfo* QSynTable::find(const QString& loweredName) const
{
    const auto it = entries.constFind(loweredName);
    return it == entries.cend() ? nullptr : &it.value();
}

bool QMugenSyntaxProperties::fromFile(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        prompt().critical(QCoreApplication::translate("QMugenSyntaxProperties", "XML Error"),
                          QCoreApplication::translate("QMugenSyntaxProperties", "Can't open '%1'")
                              .arg(fileName));
        return false;
    }
    QXmlParser xml(&file);
    if (!xml.start(QStringLiteral("syntax"))) {
        xml.notifyError();
        return false;
    }
    while (xml.readNextStartElement())
        readElement(xml);
    resolveIncludes();
    return !xml.notifyError();
}

bool QMugenSyntaxProperties::fromDevice(QIODevice* device, QString* error)
{
    QXmlParser xml(device);
    if (xml.start(QStringLiteral("syntax"))) {
        while (xml.readNextStartElement())
            readElement(xml);
    }
    resolveIncludes();
    if (xml.hasError() && error)
        *error = xml.errorText();
    return !xml.hasError();
}

const QSynTable& QMugenSyntaxProperties::section(const QString& name) const
{
    static const QSynTable none;
    const auto it = m_sections.constFind(name);
    return it == m_sections.cend() ? none : it.value();
}

int QMugenSyntaxProperties::findController(ControllerKind kind, const QString& name) const
{
    return m_controllerIndex[kind].value(name.trimmed().toLower(), -1);
}

// An element under the root is either a section, whose children are its
// entries, or (when it carries a name) one entry of the kind it names.
void QMugenSyntaxProperties::readElement(QXmlStreamReader& xml)
{
    const QString kind = xml.name().toString().toLower();
    const bool isEntry = xml.attributes().hasAttribute(QLatin1String("name"));

    ControllerKind controllerKind = StateController;
    bool isController = true;
    if (kind == QLatin1String("state_controller"))
        controllerKind = StateController;
    else if (kind == QLatin1String("bg_controller"))
        controllerKind = BgController;
    else if (kind == QLatin1String("bg_control"))
        controllerKind = BgControl;
    else
        isController = false;

    if (isController) {
        if (isEntry) {
            readController(xml, controllerKind);
        } else {
            while (xml.readNextStartElement())
                readController(xml, controllerKind);
        }
        return;
    }

    const QString tableName = kind == QLatin1String("const") ? QStringLiteral("consts")
                              : kind == QLatin1String("triggers") ? QStringLiteral("trigger")
                                                                   : kind;
    QSynTable& table = m_sections[tableName];
    if (isEntry) {
        readEntry(xml, table);
        return;
    }
    while (xml.readNextStartElement())
        readEntry(xml, table);
}

void QMugenSyntaxProperties::readEntry(QXmlStreamReader& xml, QSynTable& table)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    table.insert(attributes.value(QLatin1String("name")).toString(), getInfo(attributes));
    xml.skipCurrentElement();
}

void QMugenSyntaxProperties::readController(QXmlStreamReader& xml, ControllerKind kind)
{
    QSynController controller;
    const QXmlStreamAttributes attributes = xml.attributes();
    controller.name = attributes.value(QLatin1String("name")).toString().trimmed();
    controller.info = getInfo(attributes);
    while (xml.readNextStartElement()) {
        const QXmlStreamAttributes param = xml.attributes();
        if (xml.name() == QLatin1String("include"))
            controller.includes.append({param.value(QLatin1String("controller")).toString(),
                                        param.value(QLatin1String("prefix")).toString().toLower()});
        else
            controller.params.insert(param.value(QLatin1String("name")).toString(), getInfo(param));
        if (getInfo(param).required)
            controller.required.append(param.value(QLatin1String("name")).toString().toLower());
        xml.skipCurrentElement();
    }
    if (controller.name.isEmpty())
        return;
    if (controller.name == QLatin1String("*")) {
        m_common[kind] = controller.params;
        return;
    }
    const QString key = controller.name.toLower();
    const auto existing = m_controllerIndex[kind].constFind(key);
    if (existing != m_controllerIndex[kind].cend()) {
        m_controllers[kind][existing.value()] = controller;
        return;
    }
    m_controllerIndex[kind].insert(key, m_controllers[kind].size());
    m_controllers[kind].append(controller);
}

void QMugenSyntaxProperties::resolveIncludes()
{
    for (int kind = StateController; kind <= BgControl; ++kind) {
        for (int i = 0; i < m_controllers[kind].size(); ++i)
            include(ControllerKind(kind), i, 0);
    }
}

// Includes may nest (Projectile reads HitDef's, HitDef PalFX's): the included
// controller is resolved first. Its own entries win over included ones, and a
// loop in the file ends at a small depth.
void QMugenSyntaxProperties::include(ControllerKind kind, int index, int depth)
{
    const QVector<QPair<QString, QString>> includes = m_controllers[kind].at(index).includes;
    if (includes.isEmpty() || depth > 8)
        return;
    m_controllers[kind][index].includes.clear();
    for (const auto& [name, prefix] : includes) {
        const int source = findController(kind, name);
        if (source < 0 || source == index)
            continue;
        include(kind, source, depth + 1);
        const QSynTable& params = m_controllers[kind].at(source).params;
        QSynTable& target = m_controllers[kind][index].params;
        for (auto it = params.entries.cbegin(); it != params.entries.cend(); ++it) {
            if (it.value().format == QSynInfo::fmtRegExp && !prefix.isEmpty())
                continue; // a pattern does not take a prefix
            if (!target.entries.contains(prefix + it.key()))
                target.insert(prefix + it.key(), it.value());
        }
    }
}
