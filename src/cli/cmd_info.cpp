// pugilforge-cli info FILE.def|FILE.fnt: what a DEF makes of its project, and
// every file of it as the project opens it; or what an old font file holds.
#include "qclicommand.h"
#include "qcliinput.h"

#include "formats/qoldfont.h"
#include "model/qanimations.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"
#include "syntax/qsyntaxtexteditor.h"
#include "util/qengineversion.h"
#include "util/qpathresolver.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTextDocument>

namespace {

/// One file of the file set: what it is for, the name the DEF gives, where it
/// leads, and what the project made of it: how many items (sprites, actions,
/// sounds, commands, lines of a state file; -1 when it has no model here) and its messages.
struct NamedFile
{
    QString role;
    QString name;
    QResolvedPath resolved;
    int count = -1;
    const char* unit = "";
    const QMessages* messages = nullptr;
};

/// The state file of the project read from `path`, or null.
const QSyntaxTextEditor* statesAt(const QProject& project, const QString& path)
{
    for (int i = 0; i < project.statesCount(); ++i) {
        if (QFileInfo(project.states(i)->fileName()) == QFileInfo(path))
            return project.states(i);
    }
    return nullptr;
}

QList<NamedFile> namedFiles(const QProject& project, const QProjectFiles& files)
{
    QList<NamedFile> list;
    auto add = [&](const QString& role, const QString& name, int count, const char* unit,
                   const QMessages* messages) {
        if (!name.isEmpty())
            list.append(NamedFile{role, name, resolvePath(files.baseDir, name), count, unit, messages});
    };
    add(QStringLiteral("sprites"), files.sprites, project.sprites()->count(), "sprites",
        project.sprites()->messages());
    add(QStringLiteral("animations"), files.animations, int(project.animations()->animations().size()), "actions",
        project.animations()->messages());
    add(QStringLiteral("sounds"), files.sounds, project.sounds()->count(), "sounds", project.sounds()->messages());
    add(QStringLiteral("commands"), files.commands, project.commands()->count(), "commands",
        project.commands()->messages());
    for (const QString& name : files.states) {
        const QSyntaxTextEditor* states = statesAt(project, resolvePath(files.baseDir, name).path);
        add(QStringLiteral("states"), name, states ? states->document()->blockCount() : -1, "lines",
            states ? states->messages() : nullptr);
    }
    for (int i = 0; i < QProjectFiles::paletteCount; ++i) {
        const bool loaded = project.sprites()->findPalette(0, 1, i + 1) >= 0;
        add(QStringLiteral("pal%1").arg(i + 1), files.palettes[i], loaded ? 1 : 0, "palettes", nullptr);
    }
    return list;
}

QJsonArray messagesJson(const QMessages* messages)
{
    QJsonArray list;
    for (int i = 0; messages && i < messages->count(); ++i) {
        const QMsg& msg = messages->at(i);
        static const char* const kinds[] = {"error", "warning", "information"};
        list.append(QJsonObject{{QStringLiteral("kind"), QLatin1String(kinds[msg.type])},
                                {QStringLiteral("index"), msg.index},
                                {QStringLiteral("line"), msg.line},
                                {QStringLiteral("text"), msg.text}});
    }
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

bool isOldFontName(const QString& fileName)
{
    return QFileInfo(fileName).suffix().compare(QLatin1String("fnt"), Qt::CaseInsensitive) == 0;
}

/// An old font file (the engine's fonts before 1.0; a DEF of "[FNT v2]" names a sprite file instead).
int oldFontInfo(const QCliRun& run, const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return run.fail(fileName, QStringLiteral("can't read the file"));
    QOldFont font;
    if (!font.read(file.readAll()))
        return run.fail(fileName, font.fault());
    const QString kind = font.isFixed() ? QStringLiteral("fixed") : QStringLiteral("variable");
    if (run.json()) {
        run.printJson(QJsonObject{
            {QStringLiteral("file"), fileName},
            {QStringLiteral("type"), typeKey(ptFont)},
            {QStringLiteral("format"), QStringLiteral("fnt1")},
            {QStringLiteral("kind"), kind},
            {QStringLiteral("size"), QJsonArray{font.size().width(), font.size().height()}},
            {QStringLiteral("spacing"), QJsonArray{font.spacing().x(), font.spacing().y()}},
            {QStringLiteral("offset"), QJsonArray{font.offset().x(), font.offset().y()}},
            {QStringLiteral("colors"), font.colors()},
            {QStringLiteral("banks"), font.banks()},
            {QStringLiteral("characterCount"), int(font.map().size())},
            {QStringLiteral("picture"), QJsonArray{font.image().width(), font.image().height()}}});
        return 0;
    }
    run.print(QStringLiteral("type: %1 (old font file, version 1)").arg(QProject::typeLabel(ptFont)));
    run.print(QStringLiteral("kind: %1").arg(kind));
    run.print(QStringLiteral("size: %1x%2").arg(font.size().width()).arg(font.size().height()));
    run.print(QStringLiteral("spacing: %1,%2").arg(font.spacing().x()).arg(font.spacing().y()));
    run.print(QStringLiteral("offset: %1,%2").arg(font.offset().x()).arg(font.offset().y()));
    run.print(QStringLiteral("colours: %1 (%2 banks)").arg(font.colors()).arg(font.banks()));
    run.print(QStringLiteral("characters: %1").arg(font.map().size()));
    run.print(QStringLiteral("picture: %1x%2").arg(font.image().width()).arg(font.image().height()));
    return 0;
}

int runInfo(const QCliRun& run)
{
    if (run.arguments().size() != 1)
        return run.usage(QStringLiteral("info FILE.def|FILE.fnt"));
    const QString fileName = run.arguments().first();
    if (!QFileInfo(fileName).isFile())
        return run.fail(fileName, QStringLiteral("no such file"));
    if (isOldFontName(fileName))
        return oldFontInfo(run, fileName);
    QString refusal = notADefinition(fileName);
    if (refusal.endsWith(QLatin1String(".def")))
        refusal += QStringLiteral(" (or .fnt, for an old font file)");
    if (!refusal.isEmpty())
        return run.fail(fileName, refusal);

    QProject::init();
    QProject project;
    if (!project.open(fileName, 0, false, false))
        return run.fail(fileName, QStringLiteral("can't read the file"));
    const QDefinitions* def = project.definitions();
    const QProjectFiles files = def->files();
    // The faults of the binary files; the text files' are the checker's (see "check").
    if (!project.sprites()->isEmpty())
        project.sprites()->checkErrors();
    if (!project.sounds()->isEmpty())
        project.sounds()->checkErrors();
    const QList<NamedFile> named = namedFiles(project, files);

    if (run.json()) {
        QJsonArray list;
        for (const NamedFile& file : named) {
            list.append(QJsonObject{{QStringLiteral("role"), file.role},
                                    {QStringLiteral("name"), file.name},
                                    {QStringLiteral("path"), file.resolved.path},
                                    {QStringLiteral("exists"), file.resolved.exists},
                                    {QStringLiteral("caseDiffers"), file.resolved.caseDiffers},
                                    {QStringLiteral("count"), file.count},
                                    {QStringLiteral("messages"), messagesJson(file.messages)}});
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
            {QStringLiteral("soundCount"), project.sounds()->count()},
            {QStringLiteral("commandCount"), project.commands()->count()},
            {QStringLiteral("stateFileCount"), project.statesCount()},
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
        const QString count =
            file.count >= 0 ? QStringLiteral(", %1 %2").arg(file.count).arg(QLatin1String(file.unit)) : QString();
        run.print(QStringLiteral("%1: %2 -> %3 (%4)%5").arg(file.role, file.name, file.resolved.path, state, count));
        for (int i = 0; file.messages && i < file.messages->count(); ++i)
            run.print(QStringLiteral("  %1").arg(QMessages::format(file.messages->at(i))));
    }
    return 0;
}

const QCliCommand command("info", "info FILE.def|FILE.fnt",
                          "print what a DEF makes of its project: type, name, engine version, localcoord and "
                          "every file it names, resolved as the engine finds them, with its count and messages; "
                          "or the size, spacing, colours and characters of an old font file",
                          runInfo);

} // namespace
