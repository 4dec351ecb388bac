#include "qproject.h"

#include "formats/qrgbpalette.h"
#include "managers/qconfigmanager.h"
#include "qanimations.h"
#include "qdefinitions.h"
#include "qsprites.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcommonelements.h"
#include "util/qengineversion.h"
#include "util/qpathresolver.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>

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
    QAnimations::init();
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
}

QProject::~QProject()
{
    m_animations->setTextEditor(nullptr);
    delete m_animations;
    delete m_animationText;
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
    return m_definitions->isEmpty() && m_sprites->isEmpty() && m_animations->isEmpty() && m_states.isEmpty();
}

bool QProject::canDiscard() const
{
    // Every state file is asked, so the author sees each one that has changes.
    bool discard = true;
    for (QSyntaxTextEditor* states : m_states)
        discard = states->canDiscard() && discard;
    return discard && m_definitions->canDiscard() && m_sprites->canDiscard() && m_animations->canDiscard();
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

    // The DEF's palettes go in before the sprites: a version 1 SFF then finds
    // the character's palette among them and adds its own after them.
    for (int i = 0; i < QProjectFiles::paletteCount; ++i) {
        const QResolvedPath path = resolvePath(files.baseDir, files.palettes.at(size_t(i)));
        if (!path.exists)
            continue;
        if (!backupDir.isEmpty())
            backupCopy(path.path, backupDir + files.palettes.at(size_t(i)));
        loadPalette(path.path, i + 1);
        emit progress(++position, maximum, allow);
        if (!allow)
            return false;
    }

    // A missing or unreadable SFF is no failure: the sprites stay empty.
    const QResolvedPath sprites = resolvePath(files.baseDir, files.sprites);
    if (sprites.exists) {
        if (!backupDir.isEmpty())
            backupCopy(sprites.path, backupDir + files.sprites);
        m_sprites->fromFile(sprites.path, keepNames);
    }
    emit progress(++position, maximum, allow);
    if (!allow)
        return false;

    // Only a character has an AIR of its own; the other kinds keep their animations in the DEF.
    if (type() == ptCharacter) {
        const QResolvedPath animations = resolvePath(files.baseDir, files.animations);
        if (animations.exists) {
            if (!backupDir.isEmpty())
                backupCopy(animations.path, backupDir + files.animations);
            m_animations->fromFile(animations.path, codec, keepNames);
        }
        emit progress(++position, maximum, allow);
        if (!allow)
            return false;
    }

    // Sounds and commands join here as their models do.

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

bool QProject::save()
{
    bool saved = saveText(m_definitions, pftDefinitions, 0, false);
    const bool onlyModified = saveOnlyModified();
    const uint maximum = uint(statesCount()) + fixedSaveSteps;
    bool allow = true;
    emit progress(0, maximum, allow);
    saved = saveSprites(onlyModified) && saved;
    emit progress(1, maximum, allow);
    if (type() != ptCharacter)
        return saved;
    saved = saveAnimations(onlyModified) && saved;
    emit progress(2, maximum, allow);
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
    saved = (m_sprites->count() == 0 || saveSpritesAs()) && saved;
    emit progress(1, maximum, allow);
    if (type() != ptCharacter)
        return saved;
    saved = (m_animations->isEmpty() || saveAnimationsAs(unicode)) && saved;
    emit progress(2, maximum, allow);
    for (int i = 0; i < statesCount(); ++i) {
        saved = saveAs(pftStates, unicode, unsigned(i)) && saved;
        emit progress(uint(i) + fixedSaveSteps, maximum, allow);
    }
    emit progress(maximum, maximum, allow);
    return saved;
}

bool QProject::saveAs(QProjectFileType file, bool unicode, unsigned int index)
{
    if (file == pftSprites)
        return saveSpritesAs();
    if (file == pftAnimations)
        return saveAnimationsAs(unicode);
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
