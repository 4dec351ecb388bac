// The copies of a project that are not the author's files: the backup
// folder beside the DEF, and the files written for a run of the engine.

#include "qproject.h"

#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qsounds.h"
#include "model/qsprites.h"
#include "text/qcodecs.h"
#include "util/qsavebytes.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

/// Progress steps of a backup besides the state files.
constexpr uint backupFixedSteps = 16;
/// The last step of a backup that copies only the DEF, the palettes and the sprites.
constexpr uint backupSpriteStep = 13;

} // namespace

bool QProject::copyFromBase(const QProjectFiles& files, const QString& name, const QString& target)
{
    const QResolvedPath source = resolvePath(files.baseDir, name);
    return !source.exists || backupCopy(source.path, target);
}

bool QProject::copyPalettes(const QProjectFiles& files, const QString& directory)
{
    bool written = true;
    for (int i = 0; i < QProjectFiles::paletteCount; ++i) {
        const QString& name = files.palettes.at(size_t(i));
        if (name.isEmpty())
            continue;
        const QString target = directory + name;
        const QSpritePalette* palette = m_sprites->paletteAt(m_sprites->findPalette(0, 1, i + 1));
        if (palette)
            written = (forcePath(target) && palette->toFile(target)) && written;
        else
            written = copyFromBase(files, name, target) && written;
    }
    return written;
}

bool QProject::backup()
{
    const QProjectFiles files = m_definitions->files();
    const QString directory = files.baseDir + QStringLiteral("/backup/") + backupStamp() + QLatin1Char('/');
    if (files.baseDir.isEmpty() || !QFileInfo(files.baseDir).isDir())
        return false;
    QDir().mkpath(directory);
    const QString defName = QFileInfo(m_definitions->fileName()).fileName();
    m_definitions->toFile(
        directory + (defName.isEmpty() ? QStringLiteral("project.def") : defName), false, true);
    copyPalettes(files, directory);
    if (m_sprites->count() > 0 && forcePath(directory + files.sprites))
        m_sprites->toFile(directory + files.sprites, 0, true);

    const uint maximum = uint(files.states.size()) + backupFixedSteps;
    bool allow = true;
    for (uint position = 0; position <= backupSpriteStep && allow; ++position)
        emit progress(position, maximum, allow);
    if (!allow) {
        removeDir(directory);
        return false;
    }
    // A backup holds the DEF, its palettes and the sprites. The text files and
    // the sounds go into it as they are opened (open with `backup`).
    return true;
}

bool QProject::saveToRun(const QString& directory, const QString& name, QStringList& created)
{
    const QProjectFiles files = m_definitions->files();
    const QString base = directory.endsWith(QLatin1Char('/')) ? directory : directory + QLatin1Char('/');
    const QString defPath = base + name + QStringLiteral(".def");
    if (!forcePath(defPath))
        return false;
    bool written = true;
    QString spriteName = files.sprites;
    if (type() == ptStage) {
        // A stage lies in the engine's shared folders: its copy names its own
        // sprites, and both are removed one by one after the run.
        static const QRegularExpression sprLine(
            QStringLiteral("spr\\s*=\\s*[^\\r\\n]*"), QRegularExpression::CaseInsensitiveOption);
        spriteName = name + QStringLiteral(".sff");
        QString text = m_definitions->document()->toPlainText();
        text.replace(sprLine, QStringLiteral("spr = ") + spriteName);
        written = saveBytes(defPath, stringToData(text, m_definitions->codec()));
        created << defPath << base + spriteName;
    } else {
        written = m_definitions->toFile(defPath, false, true);
    }

    if (!spriteName.isEmpty()) {
        const QString target = base + spriteName;
        written = (m_sprites->count() == 0
                          ? copyFromBase(files, files.sprites, target)
                          : forcePath(target) && m_sprites->toFile(target, m_sprites->getVersion(), true))
            && written;
    }
    if (type() != ptCharacter)
        return written;

    written = copyPalettes(files, base) && written;
    // A character's animations (AIR) are written here, like the sounds.
    if (!files.sounds.isEmpty()) {
        const QString target = base + files.sounds;
        written = (m_sounds->count() == 0 ? copyFromBase(files, files.sounds, target)
                                          : forcePath(target) && m_sounds->toFile(target, true))
            && written;
    }
    if (!files.commands.isEmpty()) {
        const QString target = base + files.commands;
        written = (m_commands->isEmpty() ? copyFromBase(files, files.commands, target)
                                         : forcePath(target) && m_commands->toFile(target, false, true))
            && written;
    }
    for (const QString& stateName : files.states) {
        const QString target = base + stateName;
        QSyntaxTextEditor* found = nullptr;
        for (QSyntaxTextEditor* states : std::as_const(m_states)) {
            if (QDir::fromNativeSeparators(states->fileName()).endsWith(stateName, Qt::CaseInsensitive)) {
                found = states;
                break;
            }
        }
        written = (found ? forcePath(target) && found->toFile(target, false, true)
                         : copyFromBase(files, stateName, target))
            && written;
    }
    return written;
}
