#include "qproject.h"

#include "formats/qrgbpalette.h"
#include "managers/qconfigmanager.h"
#include "qanimations.h"
#include "qbakmanager.h"
#include "qcommands.h"
#include "qdefinitions.h"
#include "qsounds.h"
#include "qsprites.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcommonelements.h"
#include "util/qengineversion.h"
#include "util/qpathresolver.h"
#include "util/qsavebytes.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

/// Progress steps of the files besides the state files: twelve palettes,
/// sprites, animations, sounds and commands.
constexpr uint fixedFileSteps = 16;
/// Progress steps of a save besides the state files.
constexpr uint fixedSaveSteps = 4;

bool saveOnlyModified()
{
    return configMan && configMan->value(QStringLiteral("save_only_modified")).toBool();
}

} // namespace

QString QProject::backupStamp()
{
    return QDateTime::currentDateTime().toString(QBakManager::stampFormat());
}

bool QProject::backupCopy(const QString& source, const QString& target)
{
    QFile in(source);
    return forcePath(target) && in.open(QIODevice::ReadOnly) && saveBytes(target, in.readAll());
}

void QProject::init()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    // The models' own element kinds come before the common ones, which would claim their lines.
    QDefinitions::init();
    QAnimations::init();
    QCommands::init();
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
    connect(m_sprites, &QSprites::charPalette, this, &QProject::giveCharacterPalette, Qt::DirectConnection);
    m_animationText = new QSyntaxTextEditor(this, pftAnimations, true, engineVersion::v1_1, true);
    // An AIR saved unchanged stays byte for byte what it was, line ends included.
    m_animationText->setKeepLineEnds(true);
    m_animations = new QAnimations(this, m_animationText);
    m_commands = new QCommands(this);
    m_sounds = new QSounds(this, cacheType, compression, -1);
    connect(m_sounds, &QSounds::progress, this, &QProject::progress);
}

QProject::~QProject()
{
    m_animations->setTextEditor(nullptr);
    delete m_animations;
    delete m_animationText;
    delete m_definitions;
    delete m_sounds;
    delete m_commands;
    delete m_sprites;
    qDeleteAll(m_states);
}

QProjectType QProject::type() const
{
    return m_definitions->type();
}

void QProject::setType(QProjectType type)
{
    m_definitions->setType(type);
}

bool QProject::isEmpty() const
{
    return m_definitions->isEmpty() && m_sprites->isEmpty() && m_animations->isEmpty() && m_commands->isEmpty()
        && m_sounds->isEmpty() && m_states.isEmpty();
}

bool QProject::canDiscard() const
{
    // Every state file is asked, so the author sees each one that has changes.
    bool discard = true;
    for (QSyntaxTextEditor* states : m_states)
        discard = states->canDiscard() && discard;
    return discard && m_definitions->canDiscard() && m_sprites->canDiscard() && m_animations->canDiscard()
        && m_commands->canDiscard() && m_sounds->canDiscard();
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
    OpenRun run;
    run.codec = codec;
    run.keepNames = keepNames;
    if (backup && def.isFile()) {
        run.backupDir = def.canonicalPath() + QStringLiteral("/backup/") + backupStamp() + QLatin1Char('/');
        QDir().mkpath(run.backupDir);
        backupCopy(fileName, run.backupDir + def.fileName());
    }
    if (!m_definitions->fromFile(fileName, codec, keepNames)) {
        if (!run.backupDir.isEmpty())
            removeDir(run.backupDir);
        return false;
    }
    // Read over the project from elsewhere (a backup), a file differs from the
    // project's own until it is saved, also where only changed files are saved.
    if (keepNames)
        m_definitions->document()->setModified(true);

    run.files = m_definitions->files();
    run.maximum = uint(run.files.states.size()) + fixedFileSteps;
    bool allow = true;
    emit progress(0, run.maximum, allow);
    // The order is fixed: palettes before sprites, so that a version 1 SFF
    // finds the character's palette among them and adds its own after them.
    const bool complete = allow && openPalettes(run) && openSprites(run) && openAnimations(run) && openSounds(run)
        && openCommands(run) && openStates(run);
    if (!complete)
        discardOpen(run.backupDir);
    return complete;
}

QResolvedPath QProject::openFile(const OpenRun& run, const QString& name) const
{
    const QResolvedPath path = resolvePath(run.files.baseDir, name);
    if (path.exists && !name.isEmpty() && !run.backupDir.isEmpty())
        backupCopy(path.path, run.backupDir + name);
    return path;
}

bool QProject::step(OpenRun& run)
{
    bool allow = true;
    emit progress(++run.position, run.maximum, allow);
    return allow;
}

bool QProject::openPalettes(OpenRun& run)
{
    for (int i = 0; i < QProjectFiles::paletteCount; ++i) {
        const QResolvedPath path = openFile(run, run.files.palettes.at(size_t(i)));
        if (!path.exists)
            continue;
        loadPalette(path.path, i + 1);
        if (!step(run))
            return false;
    }
    return true;
}

bool QProject::openSprites(OpenRun& run)
{
    // A missing or unreadable SFF is no failure: the sprites stay empty.
    const QResolvedPath path = openFile(run, run.files.sprites);
    if (path.exists && m_sprites->fromFile(path.path, run.keepNames) && run.keepNames)
        m_sprites->setModified(true);
    return step(run);
}

bool QProject::openAnimations(OpenRun& run)
{
    // Only a character has an AIR of its own; the other kinds keep their animations in the DEF.
    if (type() != ptCharacter)
        return true;
    const QResolvedPath path = openFile(run, run.files.animations);
    if (path.exists && m_animations->fromFile(path.path, run.codec, run.keepNames) && run.keepNames)
        m_animationText->document()->setModified(true);
    return step(run);
}

bool QProject::openSounds(OpenRun& run)
{
    const QResolvedPath path = openFile(run, run.files.sounds);
    if (!path.exists)
        return step(run);
    if (!m_sounds->fromFile(path.path, run.keepNames))
        m_sounds->messages()->add(mtError, tr("The sound file %1 can't be read.").arg(path.path), -1, -1);
    else if (run.keepNames)
        m_sounds->setModified(true);
    return step(run);
}

bool QProject::openCommands(OpenRun& run)
{
    const QResolvedPath path = openFile(run, run.files.commands);
    m_commands->setSyntaxVersion(m_definitions->version());
    if (!path.exists)
        return step(run);
    if (!m_commands->fromFile(path.path, run.codec, run.keepNames))
        m_commands->messages()->add(mtError, tr("The command file %1 can't be read.").arg(path.path), -1, -1);
    else if (run.keepNames)
        m_commands->document()->setModified(true);
    return step(run);
}

bool QProject::openStates(OpenRun& run)
{
    int index = 0;
    for (const QString& name : std::as_const(run.files.states)) {
        const QResolvedPath path = openFile(run, name);
        if (!path.exists || name.endsWith(QLatin1Char('/')))
            continue;
        QSyntaxTextEditor* states = run.keepNames && index < statesCount() ? m_states.at(index) : nullptr;
        if (!states) {
            states = newStates();
            m_states.append(states);
        }
        if (states->fromFile(path.path, run.codec, run.keepNames) && run.keepNames)
            states->document()->setModified(true);
        ++index;
        if (!step(run))
            return false;
    }
    return true;
}

void QProject::discardOpen(const QString& backupDir)
{
    m_definitions->clear();
    {
        QSprites::ChangeLock lock(m_sprites);
        m_sprites->clear();
        m_sprites->clearPalettes();
    }
    m_sprites->undoStack()->clear();
    m_sprites->setModified(false);
    m_animationText->clear();
    m_sounds->clear();
    m_sounds->setModified(false);
    m_commands->clear();
    qDeleteAll(m_states);
    m_states.clear();
    m_messages.update();
    if (!backupDir.isEmpty())
        removeDir(backupDir);
}

void QProject::loadPalette(const QString& path, int index)
{
    QRGBATable colors;
    QRGBPalette palette;
    palette.setPalette(&colors);
    if (!palette.fromFile(path))
        return;
    // Loading is no edit of the author's: no undo step, no change to save.
    const bool modified = m_sprites->isModified();
    QSprites::ChangeLock lock(m_sprites);
    // Reading the DEF again over an open project (a backup) renews the palette it already has.
    const int present = m_sprites->findPalette(0, 1, index);
    if (present >= 0)
        m_sprites->restoreColors(present, colors, -1);
    else
        m_sprites->addPalette(colors, spsNew, 1, index);
    m_sprites->setModified(modified);
}

void QProject::giveCharacterPalette(QRGBATable* colors) const
{
    for (int i = 1; i <= QProjectFiles::paletteCount; ++i) {
        const QSpritePalette* palette = m_sprites->paletteAt(m_sprites->findPalette(0, 1, i));
        if (palette && palette->colors()) {
            std::copy(palette->colors(), palette->colors() + 256, *colors);
            return;
        }
    }
}

bool QProject::saveSprites(bool onlyModified)
{
    if (!QFileInfo(m_sprites->fileName()).isFile())
        return m_sprites->count() == 0 || saveSpritesAs();
    if (onlyModified && !m_sprites->isModified())
        return true;
    // 0 keeps the file's own version.
    return m_sprites->canSave(m_sprites->getVersion()) && m_sprites->toFile(m_sprites->fileName(), 0, false);
}

bool QProject::saveSpritesAs()
{
    if (m_sprites->count() == 0)
        return false;
    const quint32 version = emit spritesVersionToSave(m_sprites->getVersion());
    if (version == 0 || !m_sprites->canSave(version))
        return false;
    const QString fileName = emit saveFileName(pftSprites, m_paths.value(QStringLiteral("proj_path")));
    if (fileName.isEmpty())
        return false;
    return m_sprites->toFile(fileName, version, false);
}

bool QProject::saveAnimations(bool onlyModified)
{
    if (!QFileInfo(m_animationText->fileName()).isFile())
        return m_animations->isEmpty() || saveAnimationsAs(false);
    if (onlyModified && !m_animations->isModified())
        return true;
    if (!m_animations->canSave(m_definitions->version()))
        return true;
    return m_animations->toFile(m_animationText->fileName(), false, false);
}

bool QProject::saveAnimationsAs(bool unicode)
{
    if (m_animations->isEmpty() || !m_animations->canSave(0))
        return false;
    const QString fileName = emit saveFileName(pftAnimations, m_paths.value(QStringLiteral("proj_path")));
    if (fileName.isEmpty())
        return false;
    return m_animations->toFile(fileName, unicode, false);
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

bool QProject::saveSounds(bool onlyModified)
{
    if (!QFileInfo(m_sounds->fileName()).isFile())
        return m_sounds->count() == 0 || saveSoundsAs();
    if (onlyModified && !m_sounds->isModified())
        return true;
    return m_sounds->canSave(m_definitions->version()) && m_sounds->toFile(m_sounds->fileName(), false);
}

bool QProject::saveSoundsAs()
{
    // An empty SND is never written: the engine would not open it.
    if (m_sounds->count() == 0 || !m_sounds->canSave(0))
        return false;
    const QString fileName = emit saveFileName(pftSounds, m_paths.value(QStringLiteral("proj_path")));
    return !fileName.isEmpty() && m_sounds->toFile(fileName, false);
}

bool QProject::save()
{
    bool saved = saveText(m_definitions, pftDefinitions, 0, false);
    const bool onlyModified = saveOnlyModified();
    const uint maximum = uint(statesCount()) + fixedSaveSteps;
    bool allow = true;
    emit progress(0, maximum, allow);
    saved = saveSprites(onlyModified) && saved;
    emit progress(1, maximum, allow);
    // Only a character has further files of its own; the others keep theirs in the DEF.
    if (type() != ptCharacter)
        return saved;
    saved = saveAnimations(onlyModified) && saved;
    emit progress(2, maximum, allow);
    saved = saveText(m_commands, pftCommands, 0, onlyModified) && saved;
    emit progress(3, maximum, allow);
    for (int i = 0; i < statesCount(); ++i) {
        saved = saveText(m_states.at(i), pftStates, unsigned(i), onlyModified) && saved;
        emit progress(uint(i) + fixedSaveSteps, maximum, allow);
    }
    saved = saveSounds(onlyModified) && saved;
    emit progress(maximum, maximum, allow);
    return saved;
}

bool QProject::saveAs(const QString& fileName, bool unicode)
{
    bool saved = m_definitions->toFile(fileName, unicode, false);
    const uint maximum = uint(statesCount()) + fixedSaveSteps;
    bool allow = true;
    emit progress(0, maximum, allow);
    saved = (m_sprites->count() == 0 || saveSpritesAs()) && saved;
    emit progress(1, maximum, allow);
    if (type() != ptCharacter)
        return saved;
    saved = (m_animations->isEmpty() || saveAnimationsAs(unicode)) && saved;
    emit progress(2, maximum, allow);
    saved = (m_commands->isEmpty() || saveAs(pftCommands, unicode, 0)) && saved;
    emit progress(3, maximum, allow);
    for (int i = 0; i < statesCount(); ++i) {
        saved = saveAs(pftStates, unicode, unsigned(i)) && saved;
        emit progress(uint(i) + fixedSaveSteps, maximum, allow);
    }
    saved = (m_sounds->count() == 0 || saveSoundsAs()) && saved;
    emit progress(maximum, maximum, allow);
    return saved;
}

bool QProject::saveAs(QProjectFileType file, bool unicode, unsigned int index)
{
    if (file == pftSprites)
        return saveSpritesAs();
    if (file == pftAnimations)
        return saveAnimationsAs(unicode);
    if (file == pftSounds)
        return saveSoundsAs();
    QSyntaxTextEditor* text = file == pftDefinitions ? m_definitions
        : file == pftCommands                        ? m_commands
        : file == pftStates                          ? states(int(index))
                                                     : nullptr;
    if (!text || text->isEmpty() || !text->canSave(0))
        return false;
    const QString fileName = emit saveFileName(file, m_paths.value(QStringLiteral("proj_path")));
    if (fileName.isEmpty())
        return false;
    return text->toFile(fileName, unicode, false);
}
