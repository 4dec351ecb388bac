// pugilforge-cli config FILE: the configuration the program would run with.
#include "qclicommand.h"

#include "managers/qconfigmanager.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace {

int runConfig(const QCliRun& run)
{
    if (run.arguments().size() != 1)
        return run.usage(QStringLiteral("config FILE"));
    const QString fileName = run.arguments().first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));

    QConfigManager config;
    // An XML fault is already reported, as one line, by the prompt.
    if (!config.fromFile(fileName))
        return QCliRun::exitUnreadable;

    if (run.json()) {
        QJsonObject values;
        for (auto it = config.values().cbegin(); it != config.values().cend(); ++it)
            values.insert(it.key(), it.value().toString());
        QJsonArray engines;
        for (const QMugenInfo& info : config.mugens()) {
            engines.append(QJsonObject{{QStringLiteral("name"), info.name},
                                       {QStringLiteral("exe"), info.executable},
                                       {QStringLiteral("params"), info.parameters},
                                       {QStringLiteral("icon"), info.icon}});
        }
        run.printJson(QJsonObject{{QStringLiteral("file"), fileName},
                                  {QStringLiteral("values"), values},
                                  {QStringLiteral("engines"), engines}});
        return 0;
    }
    for (auto it = config.values().cbegin(); it != config.values().cend(); ++it)
        run.print(QStringLiteral("%1 = %2").arg(it.key(), it.value().toString()));
    return 0;
}

const QCliCommand command("config", "config FILE",
                          "print the effective configuration of a config.xml (defaults and the file's keys)",
                          runConfig);

} // namespace
