// pugilforge-cli check FILE [--engine beta|1.0|1.1]: the live checker's
// findings on one text file of the engine, or, for a DEF, on every text file
// of its project, with the file names that work only where the engine runs.
#include "qclicommand.h"
#include "qcliinput.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "syntax/qenginetext.h"
#include "syntax/qmugensyntaxprocessor.h"
#include "syntax/qsynmessagekind.h"
#include "text/qfileparam.h"
#include "util/qengineversion.h"
#include "util/qpathresolver.h"

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

// The version of the DEF beside `fileName`: the only DEF of its folder naming
// the file, else the only DEF there. A DEF that declares no version is of the Beta.
bool versionBeside(const QString& fileName, unsigned int& version, QString& defName)
{
    const QFileInfo info(fileName);
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
    if (candidates.isEmpty())
        return false;
    if (!readDefVersion(candidates.first(), version))
        version = engineVersion::beta;
    defName = candidates.first();
    return true;
}

QString noVersionNote(const QString& why)
{
    return QStringLiteral("%1: checked for M.U.G.E.N. %2").arg(why, engineVersion::label(engineVersion::v1_1));
}

/// What the checked files said, summed.
struct Findings
{
    int counts[3] = {0, 0, 0}; // errors, warnings, deprecations
    QJsonArray messages;
};

void report(const QCliRun& run, const QString& fileName, int line, int column, int type, const QString& text,
            Findings& findings)
{
    const QString kind = synMessageClassName(type);
    ++findings.counts[qBound(0, type, 2)];
    if (run.json()) {
        findings.messages.append(QJsonObject{{QStringLiteral("file"), fileName},
                                             {QStringLiteral("line"), line + 1},
                                             {QStringLiteral("column"), column + 1},
                                             {QStringLiteral("kind"), kind},
                                             {QStringLiteral("text"), text}});
    } else {
        run.print(QStringLiteral("%1(%2): %3: %4").arg(fileName).arg(line + 1).arg(kind, text));
    }
}

void checkText(const QCliRun& run, QMugenSyntaxProcessor& processor, const QString& fileName, const QString& text,
               Findings& findings)
{
    const QVector<QSynMsgList> lines = processor.checkText(text);
    for (int line = 0; line < lines.size(); ++line) {
        for (const QSynMsg& msg : lines.at(line))
            report(run, fileName, line, msg.column, msg.type, msg.text, findings);
    }
}

/// A text file of the project in its own encoding; a null string when it can't be read.
QString readText(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QString text = decodeEngineText(file.readAll(), 0, nullptr);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    return text;
}

/// The files of the DEF: those that don't exist (the engine refuses the
/// project), and names that lead to their file only on a system like the
/// engine's (backslashes and letter case).
void checkFileNames(const QCliRun& run, const QString& defName, const QDefinitions& def, Findings& findings)
{
    using K = QSynMessageKind;
    for (const QString& name : def.missingFiles())
        report(run, defName, def.lineNaming(name), 0, smcError, synMessageText(K::MissingFile, {name}), findings);
    for (QTextElement* element = def.head(); element; element = element->chainNext()) {
        if (element->groupType() != QGroupParam::paramGroupType || element->subType() != QFileParam::paramSubType)
            continue;
        const QString value = static_cast<const QFileParam*>(element)->fileName();
        if (value.contains(QLatin1Char('\\')))
            report(run, defName, element->line(), 0, smcWarning, synMessageText(K::BackslashInName, {value}),
                   findings);
    }
    const QProjectFiles files = def.files();
    QStringList names = files.states;
    names << files.sprites << files.animations << files.sounds << files.commands;
    for (const QString& palette : files.palettes)
        names << palette;
    for (const QString& name : std::as_const(names)) {
        const QResolvedPath path = resolvePath(files.baseDir, name);
        if (path.exists && path.caseDiffers)
            report(run, defName, def.lineNaming(name), 0, smcWarning,
                   synMessageText(K::CaseDiffers, {name, QDir(files.baseDir).relativeFilePath(path.path)}), findings);
    }
}

/// Checks the DEF and every text file of its project; the files checked go to `checked`.
bool checkProject(const QCliRun& run, const QString& fileName, QMugenSyntaxProcessor& processor, bool ownVersion,
                  QStringList& checked, Findings& findings, QString& note)
{
    QProject::init();
    QProject project;
    if (!project.open(fileName, 0, false, false))
        return false;
    const QDefinitions& def = *project.definitions();
    // Only a character declares the engine it was made for; the DEF of a
    // stage, a font or a motif without one is read by whichever engine runs it.
    unsigned int declared = 0;
    if (ownVersion && def.type() != ptCharacter && !readDefVersion(fileName, declared)) {
        processor.setVersion(engineVersion::v1_1);
        note = noVersionNote(QStringLiteral("the DEF declares no engine version"));
    } else if (ownVersion) {
        processor.setVersion(def.version());
    }

    checked << fileName;
    checkText(run, processor, fileName, def.document()->toPlainText(), findings);
    checkFileNames(run, fileName, def, findings);
    if (def.type() == ptCharacter) {
        const QProjectFiles files = def.files();
        for (const QString& name : {files.animations, files.commands}) {
            const QResolvedPath path = resolvePath(files.baseDir, name);
            const QString text = path.exists ? readText(path.path) : QString();
            if (text.isNull())
                continue;
            checked << path.path;
            checkText(run, processor, path.path, text, findings);
        }
    }
    for (int i = 0; i < project.statesCount(); ++i) {
        const QSyntaxTextEditor* states = project.states(i);
        checked << states->fileName();
        checkText(run, processor, states->fileName(), states->document()->toPlainText(), findings);
    }
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

    unsigned int version = engineVersion::v1_1;
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
    const QByteArray data = file.readAll();
    const QString refusal = notEngineText(fileName, QStringLiteral("not a text file of the engine"));
    if (!refusal.isEmpty())
        return run.fail(fileName, refusal);
    const bool project = QFileInfo(fileName).suffix().compare(QLatin1String("def"), Qt::CaseInsensitive) == 0;
    // Authors' files come in any encoding; detection decides, as on loading.
    QString text = project ? QString() : decodeEngineText(data, 0, nullptr);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    // A file without a DEF to say its version is checked for the newest
    // engine, the one its author most likely writes for.
    QString note;
    if (engine.isEmpty() && !project && !versionBeside(fileName, version, versionSource))
        note = noVersionNote(QStringLiteral("no DEF beside it declares the engine version"));

    const QString syntaxName = QCoreApplication::applicationDirPath() + QStringLiteral("/syntax_mugen.xml");
    QMugenSyntaxProperties properties;
    // A fault in the vocabulary is already reported, as one line, by the prompt.
    if (!properties.fromFile(syntaxName))
        return QCliRun::exitUnreadable;

    QTextDocument document;
    QMugenSyntaxProcessor processor(&document, &properties);
    processor.setVersion(version);
    Findings findings;
    QStringList checked;
    if (project) {
        // A DEF stands for its project: every text file of it, at the version the DEF declares.
        if (!checkProject(run, fileName, processor, engine.isEmpty(), checked, findings, note))
            return run.fail(fileName, QStringLiteral("can't read the file"));
        version = processor.version();
        if (engine.isEmpty())
            versionSource = fileName;
    } else {
        checked << fileName;
        checkText(run, processor, fileName, text, findings);
    }

    const int* counts = findings.counts;
    const QString label = engineVersion::label(version);
    if (run.json()) {
        run.printJson(QJsonObject{{QStringLiteral("file"), fileName},
                                  {QStringLiteral("engine"), label},
                                  {QStringLiteral("def"), versionSource},
                                  {QStringLiteral("note"), note},
                                  {QStringLiteral("files"), QJsonArray::fromStringList(checked)},
                                  {QStringLiteral("errors"), counts[0]},
                                  {QStringLiteral("warnings"), counts[1]},
                                  {QStringLiteral("deprecations"), counts[2]},
                                  {QStringLiteral("messages"), findings.messages}});
    } else {
        if (!note.isEmpty())
            run.print(QStringLiteral("%1: note: %2").arg(fileName, note));
        if (checked.size() > 1)
            run.print(QStringLiteral("%1: checked %2").arg(fileName, checked.join(QStringLiteral(", "))));
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
                          "check an engine text file (CNS, ST, CMD, AIR) for an engine version, or a DEF with "
                          "every text file of its project; without --engine the version the DEF declares",
                          runCheck);

} // namespace
