// pugilforge-cli check FILE [--engine beta|1.0|1.1]: the live checker's
// findings on one text file of the engine.
#include "qclicommand.h"

#include "syntax/qmugensyntaxprocessor.h"
#include "text/qcodecs.h"
#include "util/qengineversion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextDocument>

namespace {

// The [Info] mugenversion of a DEF: enough of a DEF reader for choosing the
// version to check with.
bool readDefVersion(const QString& fileName, unsigned int& version)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    static const QRegularExpression header(QStringLiteral("^\\s*\\[\\s*([^\\]]*?)\\s*\\]"));
    static const QRegularExpression key(QStringLiteral("^\\s*mugenversion\\s*=\\s*([^;]*)"),
                                        QRegularExpression::CaseInsensitiveOption);
    bool inInfo = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine());
        const QRegularExpressionMatch group = header.match(line);
        if (group.hasMatch()) {
            inInfo = group.captured(1).compare(QLatin1String("info"), Qt::CaseInsensitive) == 0;
            continue;
        }
        const QRegularExpressionMatch found = key.match(line);
        if (inInfo && found.hasMatch()) {
            version = getVersion(found.captured(1).trimmed());
            return true;
        }
    }
    return false;
}

// The version of the DEF beside `fileName`: the file itself when it is one,
// else the only DEF of its folder naming the file, else the only DEF there.
bool versionBeside(const QString& fileName, unsigned int& version, QString& defName)
{
    const QFileInfo info(fileName);
    if (info.suffix().compare(QLatin1String("def"), Qt::CaseInsensitive) == 0 && readDefVersion(fileName, version)) {
        defName = fileName;
        return true;
    }
    const QFileInfoList defs = info.dir().entryInfoList({QStringLiteral("*.def"), QStringLiteral("*.DEF")}, QDir::Files);
    QStringList naming;
    for (const QFileInfo& def : defs) {
        QFile file(def.filePath());
        if (file.open(QIODevice::ReadOnly) && QString::fromUtf8(file.readAll()).contains(info.fileName(), Qt::CaseInsensitive))
            naming.append(def.filePath());
    }
    const QStringList candidates = naming.size() == 1 ? naming
                                   : defs.size() == 1 ? QStringList{defs.first().filePath()}
                                                      : QStringList();
    if (candidates.isEmpty() || !readDefVersion(candidates.first(), version))
        return false;
    defName = candidates.first();
    return true;
}

int runCheck(const QCliRun& run)
{
    QStringList arguments = run.arguments();
    QString engine;
    const int option = int(arguments.indexOf(QStringLiteral("--engine")));
    if (option >= 0) {
        if (option + 1 >= arguments.size())
            return run.usage(QStringLiteral("check FILE [--engine beta|1.0|1.1]"));
        engine = arguments.at(option + 1).toLower();
        arguments.remove(option, 2);
    }
    if (arguments.size() != 1)
        return run.usage(QStringLiteral("check FILE [--engine beta|1.0|1.1]"));
    const QString fileName = arguments.first();

    unsigned int version = engineVersion::beta;
    QString versionSource;
    if (engine == QLatin1String("beta")) {
        version = engineVersion::beta;
    } else if (engine == QLatin1String("1.0")) {
        version = engineVersion::v1_0;
    } else if (engine == QLatin1String("1.1")) {
        version = engineVersion::v1_1;
    } else if (!engine.isEmpty()) {
        return run.usage(QStringLiteral("check FILE [--engine beta|1.0|1.1]"));
    }

    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return run.fail(fileName, QStringLiteral("can't open the file"));
    // Authors' files come in any encoding; detection decides, as on loading.
    const QString text = stringFromData(file.readAll(), 0, nullptr);
    if (engine.isEmpty())
        versionBeside(fileName, version, versionSource);

    const QString syntaxName = QCoreApplication::applicationDirPath() + QStringLiteral("/syntax_mugen.xml");
    QMugenSyntaxProperties properties;
    // A fault in the vocabulary is already reported, as one line, by the prompt.
    if (!properties.fromFile(syntaxName))
        return QCliRun::exitUnreadable;

    QTextDocument document;
    QMugenSyntaxProcessor processor(&document, &properties);
    processor.setVersion(version);
    const QVector<QSynMsgList> lines = processor.checkText(text);

    int counts[3] = {0, 0, 0}; // errors, warnings, deprecations
    QJsonArray messages;
    for (int line = 0; line < lines.size(); ++line) {
        for (const QSynMsg& msg : lines.at(line)) {
            const QString kind = msg.isError() ? QStringLiteral("error") : msg.type == 2 ? QStringLiteral("deprecation")
                                                                                       : QStringLiteral("warning");
            ++counts[qBound(0, msg.type, 2)];
            if (run.json()) {
                messages.append(QJsonObject{{QStringLiteral("line"), line + 1},
                                            {QStringLiteral("column"), msg.column + 1},
                                            {QStringLiteral("kind"), kind},
                                            {QStringLiteral("text"), msg.text}});
            } else {
                run.print(QStringLiteral("%1(%2): %3: %4").arg(fileName).arg(line + 1).arg(kind, msg.text));
            }
        }
    }
    const QString label = engineVersion::label(version);
    if (run.json()) {
        run.printJson(QJsonObject{{QStringLiteral("file"), fileName},
                                  {QStringLiteral("engine"), label},
                                  {QStringLiteral("def"), versionSource},
                                  {QStringLiteral("errors"), counts[0]},
                                  {QStringLiteral("warnings"), counts[1]},
                                  {QStringLiteral("deprecations"), counts[2]},
                                  {QStringLiteral("messages"), messages}});
    } else {
        run.print(QStringLiteral("%1: %2 error(s), %3 warning(s), %4 deprecation(s) for M.U.G.E.N. %5%6")
                      .arg(fileName)
                      .arg(counts[0])
                      .arg(counts[1])
                      .arg(counts[2])
                      .arg(label, versionSource.isEmpty() ? QString() : QStringLiteral(" (from %1)").arg(versionSource)));
    }
    // Distinct from the exits of unreadable input and wrong arguments.
    return counts[0] > 0 ? 3 : 0;
}

const QCliCommand command("check", "check FILE [--engine beta|1.0|1.1]",
                          "check an engine text file (CNS, ST, CMD, AIR, DEF) for an engine version; without "
                          "--engine the version of the DEF beside the file",
                          runCheck);

} // namespace
