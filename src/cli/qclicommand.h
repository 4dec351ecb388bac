#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class QCoreApplication;
class QJsonValue;

/// What one run of the command-line tool was given, and how it answers.
class QCliRun
{
public:
    QCliRun(const QStringList& arguments, bool json);

    const QStringList& arguments() const { return m_arguments; }
    bool json() const { return m_json; }

    /// Prints a line of readable text on standard output.
    void print(const QString& line) const;
    /// Prints a JSON document on standard output.
    void printJson(const QJsonValue& value) const;
    /// Reports a fault as one line on standard error, "pugilforge-cli: FILE: FAULT",
    /// and returns the exit code of unreadable input.
    int fail(const QString& file, const QString& fault) const;
    /// Reports wrong arguments with the command's usage; returns the usage exit code.
    int usage(const QString& usage) const;

    static constexpr int exitUnreadable = 1;
    static constexpr int exitUsage = 2;

private:
    QStringList m_arguments;
    bool m_json;
};

/**
 * One subcommand of the tool. Each command file defines a static instance,
 * which registers itself: adding a format means adding one file.
 */
class QCliCommand
{
public:
    using Handler = int (*)(const QCliRun& run);
    /// Makes the application a command runs in. Reading and writing files,
    /// pictures and text documents included, needs only a QCoreApplication;
    /// a command that draws with fonts makes a QGuiApplication and its
    /// platform, which costs several times the start of the whole program.
    using ApplicationMaker = std::unique_ptr<QCoreApplication> (*)(int& argc, char** argv);

    QCliCommand(const char* name, const char* usage, const char* summary, Handler handler,
                ApplicationMaker makeApplication = nullptr);

    QString name() const { return QLatin1String(m_name); }
    QString usage() const { return QLatin1String(m_usage); }
    QString summary() const { return QLatin1String(m_summary); }
    int run(const QCliRun& run) const { return m_handler(run); }
    /// The application this command needs, a QCoreApplication unless it says otherwise.
    static std::unique_ptr<QCoreApplication> makeApplication(const QCliCommand* command, int& argc, char** argv);

    /// Every registered command, in name order.
    static QList<const QCliCommand*> all();
    static const QCliCommand* find(const QString& name);

private:
    const char* m_name;
    const char* m_usage;
    const char* m_summary;
    Handler m_handler;
    ApplicationMaker m_makeApplication;
};
