#include "qproject.h"

#include "managers/qconfigmanager.h"
#include "qdefinitions.h"
#include "qsprites.h"
#include "text/qcommonelements.h"
#include "util/qpathresolver.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

/// Progress steps of the files besides the state files: twelve palettes,
/// sprites, animations, sounds and commands.
constexpr uint fixedFileSteps = 16;
/// Progress steps of a save besides the state files.
constexpr uint fixedSaveSteps = 4;

QString backupStamp()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("dd-MM-yyyy h-m-s ap"));
}

/// Copies a file for a backup; a backup that fails is no reason to stop loading.
void backupCopy(const QString& source, const QString& target)
{
    QFile in(source);
    if (!forcePath(target) || !in.open(QIODevice::ReadOnly))
        return;
    QSaveFile out(target);
    if (out.open(QIODevice::WriteOnly) && out.write(in.readAll()) >= 0)
        out.commit();
}

bool saveOnlyModified()
{
    return configMan && configMan->value(QStringLiteral("save_only_modified")).toBool();
}

} // namespace

void QProject::init()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    // The models' own element kinds come before the common ones, which would claim their lines.
    QDefinitions::init();
    initCommonElements();
    QSprites::init();
}

QString QProject::typeLabel(QProjectType type)
{
    switch (type) {
    case ptCharacter:
        return tr("Character");
    case ptStoryboard:
        return tr("Storyboard");
    case ptStage:
        return tr("Stage");
    case ptFont:
        return tr("Font");
    case ptMotif:
        return tr("System screens");
    case ptFightFx:
        return tr("Fight HUD & effects");
    }
    return QString();
}

QProject::QProject(QStreamCacheType cacheType, bool compression, QObject* parent)
    : QObject(parent)
{
    m_definitions = new QDefinitions(this);
    m_sprites = new QSprites(this, cacheType, compression, -1);
    // Long work the sprites do (caching textures when the kind of project changes) shows as the project's.
    connect(m_sprites, &QSprites::progress, this, &QProject::progress);
}

QProject::~QProject()
{
    delete m_definitions;
    delete m_sprites;
    qDeleteAll(m_states);
}

QProjectType QProject::type() const
{
    return m_definitions->type();
}

bool QProject::isEmpty() const
{
    return m_definitions->isEmpty() && m_sprites->isEmpty() && m_states.isEmpty();
}

bool QProject::canDiscard() const
{
    // Every state file is asked, so the author sees each one that has changes.
    bool discard = true;
    for (QSyntaxTextEditor* states : m_states)
        discard = states->canDiscard() && discard;
    return discard && m_definitions->canDiscard() && m_sprites->canDiscard();
}

QSyntaxTextEditor* QProject::newStates()
{
    auto* states = new QSyntaxTextEditor(this, pftStates, false, m_definitions->version(), true);
    states->messages()->setFileIndex(statesCount());
    return states;
}

QSyntaxTextEditor* QProject::addStates(const QString& title)
{
    QSyntaxTextEditor* states = newStates();
    states->setTitle(title);
    m_states.append(states);
    return states;
}

void QProject::removeStates(int index)
{
    if (index < 0 || index >= statesCount())
        return;
    delete m_states.takeAt(index);
    renumberStates();
}

void QProject::moveStates(int from, int to)
{
    if (from < 0 || from >= statesCount() || to < 0 || to >= statesCount() || from == to)
        return;
    m_states.move(from, to);
    renumberStates();
}

void QProject::renumberStates()
{
    for (int i = 0; i < statesCount(); ++i)
        m_states.at(i)->messages()->setFileIndex(i);
    m_messages.update();
}

bool QProject::open(const QString& fileName, unsigned int codec, bool backup, bool keepNames)
{
    const QFileInfo def(fileName);
    QString backupDir;
    if (backup && def.isFile()) {
        backupDir = def.canonicalPath() + QStringLiteral("/backup/") + backupStamp() + QLatin1Char('/');
        QDir().mkpath(backupDir);
        backupCopy(fileName, backupDir + def.fileName());
    }
    if (!m_definitions->fromFile(fileName, codec, keepNames)) {
        if (!backupDir.isEmpty())
            removeDir(backupDir);
        return false;
    }

    const QProjectFiles files = m_definitions->files();
    const uint maximum = uint(files.states.size()) + fixedFileSteps;
    uint position = 0;
    bool allow = true;
    emit progress(position, maximum, allow);

    // Palettes, sprites, animations, sounds and commands join here as their models do.

    int index = 0;
    for (const QString& name : files.states) {
        const QResolvedPath path = resolvePath(files.baseDir, name);
        if (!path.exists)
            continue;
        if (!backupDir.isEmpty())
            backupCopy(path.path, backupDir + name);
        QSyntaxTextEditor* states = keepNames && index < statesCount() ? m_states.at(index) : nullptr;
        if (!states) {
            states = newStates();
            m_states.append(states);
        }
        states->fromFile(path.path, codec, keepNames);
        ++index;
        emit progress(++position, maximum, allow);
        if (!allow)
            return false;
    }
    return true;
}

bool QProject::saveText(QSyntaxTextEditor* text, QProjectFileType file, unsigned int index, bool onlyModified)
{
    if (!QFileInfo(text->fileName()).isFile())
        return text->isEmpty() || saveAs(file, false, index);
    if (onlyModified && !text->isModified())
        return true;
    if (!text->canSave(m_definitions->version()))
        return true;
    return text->toFile(text->fileName(), false, false);
}

bool QProject::save()
{
    bool saved = saveText(m_definitions, pftDefinitions, 0, false);
    const bool onlyModified = saveOnlyModified();
    const uint maximum = uint(statesCount()) + fixedSaveSteps;
    bool allow = true;
    emit progress(0, maximum, allow);
    // The sprites join here with their writer.
    if (type() != ptCharacter)
        return saved;
    for (int i = 0; i < statesCount(); ++i) {
        saved = saveText(m_states.at(i), pftStates, unsigned(i), onlyModified) && saved;
        emit progress(uint(i) + fixedSaveSteps, maximum, allow);
    }
    emit progress(maximum, maximum, allow);
    return saved;
}

bool QProject::saveAs(const QString& fileName, bool unicode)
{
    bool saved = m_definitions->toFile(fileName, unicode, false);
    const uint maximum = uint(statesCount()) + fixedSaveSteps;
    bool allow = true;
    emit progress(0, maximum, allow);
    if (type() != ptCharacter)
        return saved;
    for (int i = 0; i < statesCount(); ++i) {
        saved = saveAs(pftStates, unicode, unsigned(i)) && saved;
        emit progress(uint(i) + fixedSaveSteps, maximum, allow);
    }
    emit progress(maximum, maximum, allow);
    return saved;
}

bool QProject::saveAs(QProjectFileType file, bool unicode, unsigned int index)
{
    QSyntaxTextEditor* text = file == pftDefinitions ? m_definitions
                              : file == pftStates    ? states(int(index))
                                                     : nullptr;
    if (!text || text->isEmpty() || !text->canSave(0))
        return false;
    const QString fileName = emit saveFileName(file, m_paths.value(QStringLiteral("proj_path")));
    if (fileName.isEmpty())
        return false;
    return text->toFile(fileName, unicode, false);
}
