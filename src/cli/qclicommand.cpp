#include "qclicommand.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <algorithm>
#include <cstdio>

namespace {

QList<const QCliCommand*>& registry()
{
    static QList<const QCliCommand*> commands;
    return commands;
}

} // namespace

QCliRun::QCliRun(const QStringList& arguments, bool json)
    : m_arguments(arguments)
    , m_json(json)
{
}

void QCliRun::print(const QString& line) const
{
    QTextStream out(stdout);
    out << line << '\n';
}

void QCliRun::printJson(const QJsonValue& value) const
{
    QJsonDocument document;
    if (value.isArray())
        document.setArray(value.toArray());
    else
        document.setObject(value.toObject());
    const QByteArray text = document.toJson(QJsonDocument::Indented);
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
}

int QCliRun::fail(const QString& file, const QString& fault) const
{
    QTextStream err(stderr);
    err << "pugilforge-cli: " << file << ": " << fault << '\n';
    return exitUnreadable;
}

int QCliRun::usage(const QString& usage) const
{
    QTextStream err(stderr);
    err << "usage: pugilforge-cli " << usage << '\n';
    return exitUsage;
}

QCliCommand::QCliCommand(const char* name, const char* usage, const char* summary, Handler handler,
                         ApplicationMaker makeApplication)
    : m_name(name)
    , m_usage(usage)
    , m_summary(summary)
    , m_handler(handler)
    , m_makeApplication(makeApplication)
{
    registry().append(this);
}

std::unique_ptr<QCoreApplication> QCliCommand::makeApplication(const QCliCommand* command, int& argc, char** argv)
{
    if (command && command->m_makeApplication)
        return command->m_makeApplication(argc, argv);
    return std::make_unique<QCoreApplication>(argc, argv);
}

QList<const QCliCommand*> QCliCommand::all()
{
    QList<const QCliCommand*> commands = registry();
    std::sort(commands.begin(), commands.end(),
              [](const QCliCommand* a, const QCliCommand* b) { return a->name() < b->name(); });
    return commands;
}

const QCliCommand* QCliCommand::find(const QString& name)
{
    for (const QCliCommand* command : registry()) {
        if (command->name() == name)
            return command;
    }
    return nullptr;
}
