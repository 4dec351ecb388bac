// pugilforge-cli info FILE.def: what a DEF makes of its project.
#include "qclicommand.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "text/qcodecs.h"
#include "util/qengineversion.h"
#include "util/qpathresolver.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

/// One file of the file set: what it is for, the name the DEF gives, and where it leads.
struct NamedFile
{
    QString role;
    QString name;
    QResolvedPath resolved;
};

QList<NamedFile> namedFiles(const QProjectFiles& files)
{
    QList<NamedFile> list;
    auto add = [&](const QString& role, const QString& name) {
        if (!name.isEmpty())
            list.append(NamedFile{role, name, resolvePath(files.baseDir, name)});
    };
    add(QStringLiteral("sprites"), files.sprites);
    add(QStringLiteral("animations"), files.animations);
    add(QStringLiteral("sounds"), files.sounds);
    add(QStringLiteral("commands"), files.commands);
    for (const QString& states : files.states)
        add(QStringLiteral("states"), states);
    for (int i = 0; i < QProjectFiles::paletteCount; ++i)
        add(QStringLiteral("pal%1").arg(i + 1), files.palettes[i]);
    return list;
}

QString typeKey(QProjectType type)
{
    switch (type) {
    case ptCharacter:
        return QStringLiteral("character");
    case ptStoryboard:
        return QStringLiteral("storyboard");
    case ptStage:
        return QStringLiteral("stage");
    case ptFont:
        return QStringLiteral("font");
    case ptMotif:
        return QStringLiteral("motif");
    case ptFightFx:
        return QStringLiteral("fightfx");
    }
    return QString();
}

/// Why a file is no DEF, or an empty string: a DEF is text, named *.def,
/// with at least one [group] line. Anything else would open as a character
/// with no name and no files, which tells a script nothing.
QString notADefinition(const QString& fileName)
{
    if (QFileInfo(fileName).suffix().compare(QLatin1String("def"), Qt::CaseInsensitive) != 0)
        return QStringLiteral("not a DEF file: the name does not end in .def");
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("can't read the file");
    const QByteArray head = file.read(1 << 16);
    if (head.contains('\0'))
        return QStringLiteral("not a DEF file: it holds binary data");
    static const QRegularExpression group(QStringLiteral("^[ \\t]*\\[[^\\]\\r\\n]+\\]"),
                                          QRegularExpression::MultilineOption);
    if (!QString::fromLatin1(head).contains(group))
        return QStringLiteral("not a DEF file: it has no [group] line");
    return QString();
}

int runInfo(const QCliRun& run)
{
    if (run.arguments().size() != 1)
        return run.usage(QStringLiteral("info FILE.def"));
    const QString fileName = run.arguments().first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));
    const QString refusal = notADefinition(fileName);
    if (!refusal.isEmpty())
        return run.fail(fileName, refusal);

    initCodecs();
    QProject::init();
    QProject project;
    if (!project.open(fileName, 0, false, false))
        return run.fail(fileName, QStringLiteral("can't read the file"));
    const QDefinitions* def = project.definitions();
    const QProjectFiles files = def->files();
    const QList<NamedFile> named = namedFiles(files);

    if (run.json()) {
        QJsonArray list;
        for (const NamedFile& file : named) {
            list.append(QJsonObject{{QStringLiteral("role"), file.role},
                                    {QStringLiteral("name"), file.name},
                                    {QStringLiteral("path"), file.resolved.path},
                                    {QStringLiteral("exists"), file.resolved.exists},
                                    {QStringLiteral("caseDiffers"), file.resolved.caseDiffers}});
        }
        run.printJson(QJsonObject{
            {QStringLiteral("file"), fileName},
            {QStringLiteral("type"), typeKey(def->type())},
            {QStringLiteral("typeLabel"), QProject::typeLabel(def->type())},
            {QStringLiteral("name"), def->name()},
            {QStringLiteral("engine"), engineVersion::label(def->version())},
            {QStringLiteral("version"), qint64(def->version())},
            {QStringLiteral("localcoord"), QJsonArray{def->localCoord().width(), def->localCoord().height()}},
            {QStringLiteral("baseDir"), files.baseDir},
            {QStringLiteral("spriteCount"), project.sprites()->count()},
            {QStringLiteral("paletteCount"), project.sprites()->paletteCount()},
            {QStringLiteral("files"), list}});
        return 0;
    }
    run.print(QStringLiteral("type: %1").arg(QProject::typeLabel(def->type())));
    run.print(QStringLiteral("name: %1").arg(def->name()));
    run.print(QStringLiteral("engine: %1").arg(engineVersion::label(def->version())));
    run.print(QStringLiteral("localcoord: %1x%2").arg(def->localCoord().width()).arg(def->localCoord().height()));
    run.print(QStringLiteral("base: %1").arg(files.baseDir));
    run.print(QStringLiteral("sprite count: %1 (%2 palettes)")
                  .arg(project.sprites()->count())
                  .arg(project.sprites()->paletteCount()));
    for (const NamedFile& file : named) {
        const QString state = !file.resolved.exists     ? QStringLiteral("missing")
                              : file.resolved.caseDiffers ? QStringLiteral("found, letter case differs")
                                                          : QStringLiteral("found");
        run.print(QStringLiteral("%1: %2 -> %3 (%4)").arg(file.role, file.name, file.resolved.path, state));
    }
    return 0;
}

const QCliCommand command("info", "info FILE.def",
                          "print what a DEF makes of its project: type, name, engine version, localcoord and "
                          "the files it names, resolved as the engine finds them",
                          runInfo);

} // namespace
