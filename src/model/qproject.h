#pragma once

#include "formats/qrgba.h"
#include "qprojectfiles.h"
#include "qprojecttypes.h"
#include "qstreamcacheitem.h"
#include "util/qmessages.h"
#include "util/qpathresolver.h"
#include "util/qpaths.h"

#include <QList>
#include <QObject>
#include <QString>

class QCommands;
class QDefinitions;
class QSounds;
class QSprites;
class QSyntaxTextEditor;

/**
 * One open character, stage, storyboard, motif, font or fight-effects set:
 * a DEF file and the files it names. It owns the file models, loads them in
 * one fixed order from what the DEF says, saves them, and collects the
 * messages of all of them. It holds no user interface: it asks for what it
 * needs through signals that return a value (saveFileName) and reports long
 * work through progress(), so it runs the same under scripts and the
 * command-line tool.
 *
 * The DEF's text is the truth about the project: type() and the files come
 * from definitions() as the text stands. State files are the project's own
 * documents, in the DEF's order.
 */
class QProject : public QObject
{
    Q_OBJECT
public:
    /// `cacheType` and `compression` choose how the sprites keep their payloads.
    explicit QProject(QStreamCacheType cacheType = ctMemory, bool compression = false, QObject* parent = nullptr);
    ~QProject() override;

    /// Registers what the models read and decode (element kinds, payload
    /// decoders), once per process, before the first project.
    static void init();
    /// How the kind shows to the author: "Character", "Stage", "System screens"...
    static QString typeLabel(QProjectType type);

    QMessageList* messages() { return &m_messages; }
    QPaths& paths() { return m_paths; }

    QDefinitions* definitions() const { return m_definitions; }
    QSprites* sprites() const { return m_sprites; }
    QSounds* sounds() const { return m_sounds; }
    QCommands* commands() const { return m_commands; }
    int statesCount() const { return int(m_states.size()); }
    QSyntaxTextEditor* states(int index) const { return m_states.value(index); }
    QProjectType type() const;
    /// Gives the DEF the group that makes a project of that kind, when its
    /// text doesn't decide the kind already (see QDefinitions::setType).
    void setType(QProjectType type);

    /// Nothing in any file and no state file.
    bool isEmpty() const;
    /// Asks about every modified file; false when the author keeps any of them.
    bool canDiscard() const;

    /// A new, empty state file at the end, checked for the DEF's version.
    QSyntaxTextEditor* addStates(const QString& title);
    /// Deletes the state file at `index` (its file on disk stays).
    void removeStates(int index);
    void moveStates(int from, int to);

    /**
     * Reads the DEF and then the files it names, in this order: palettes,
     * sprites, animations (characters), sounds, commands, state files, one
     * progress() step each. With `backup` every file read is first copied
     * into "backup/<stamp>/" beside the DEF; with `keepNames` the models take
     * the contents only and keep their file names (loading a backup over the
     * open project). A file that is missing leaves its model empty; one that
     * can't be read says so in its model's messages. False, with the project
     * untouched, when the DEF can't be read; false, with every model emptied
     * and the backup folder removed, when the receiver of progress() cancels.
     * Files named in another letter case or with backslashes are found as the
     * engine finds them; a state file that isn't there is skipped.
     */
    bool open(const QString& fileName, unsigned int codec, bool backup, bool keepNames);
    /// Writes every file to its own name; a file without one is asked for through saveFileName().
    bool save();
    /// Writes the DEF to `fileName` and asks for a name for each other file.
    bool saveAs(const QString& fileName, bool unicode);
    /// Asks for a name for one file and writes it there; false when skipped or failed.
    /// An empty file is never written: the engine would not open it.
    bool saveAs(QProjectFileType file, bool unicode, unsigned int index);
    /**
     * Writes the DEF, the palettes of the DEF and the sprites into
     * "backup/<stamp>/" beside the DEF, without touching the models' names.
     * False when the DEF's folder is gone or progress() cancels, and then
     * the backup folder goes too.
     */
    bool backup();
    /**
     * Writes the whole project, unsaved edits included, as `name`.def into
     * `directory` for a run of the engine: every file under the name the DEF
     * gives it, a file without edits copied from disk. The models keep their
     * names and the author's files are not touched. A stage's DEF is
     * rewritten to name its sprites `name`.sff; files that must be removed
     * one by one after the run are added to `created`. False when a file
     * could not be written.
     */
    bool saveToRun(const QString& directory, const QString& name, QStringList& created);

signals:
    /// Asks where to save a file; an empty answer skips it.
    QString saveFileName(QProjectFileType file, const QString& path);
    /// Asks which SFF version to write, offering the present one; 0 skips the sprites.
    quint32 spritesVersionToSave(quint32 currentVersion);
    /// Long work: the receiver sets `allow` to false to cancel.
    void progress(uint position, uint maximum, bool& allow);

private:
    /// Where an open stands: the files of the DEF, the backup folder and the progress.
    struct OpenRun
    {
        QProjectFiles files;
        QString backupDir;
        uint position = 0;
        uint maximum = 0;
        unsigned int codec = 0;
        bool keepNames = false;
    };

    /// The name of a backup folder: the time of the backup.
    static QString backupStamp();
    /// Copies a file whole, making its folder; a failed copy leaves the target as it was.
    static bool backupCopy(const QString& source, const QString& target);
    QSyntaxTextEditor* newStates();
    /// Where a file of the DEF is on disk, copied into the backup folder of the run when it exists.
    QResolvedPath openFile(const OpenRun& run, const QString& name) const;
    /// One step of the open's progress; false when the receiver cancels.
    bool step(OpenRun& run);
    bool openPalettes(OpenRun& run);
    bool openSprites(OpenRun& run);
    bool openSounds(OpenRun& run);
    bool openCommands(OpenRun& run);
    bool openStates(OpenRun& run);
    /// Empties every model after a cancelled open.
    void discardOpen(const QString& backupDir);
    /// Adds a palette file of the DEF as the character's palette `index` (group 1).
    void loadPalette(const QString& path, int index);
    /// Answers the sprites' request for the character's colours with the
    /// first palette of the DEF that was loaded.
    void giveCharacterPalette(QRGBATable* colors) const;
    /// Writes the sprites to their own name, or asks for one when they have none on disk.
    bool saveSprites(bool onlyModified);
    bool saveSpritesAs();
    /// Writes a text file to its own name, or asks for one when it has none on disk.
    bool saveText(QSyntaxTextEditor* text, QProjectFileType file, unsigned int index, bool onlyModified);
    /// Writes the sounds to their own name, or asks for one when they have none on disk.
    bool saveSounds(bool onlyModified);
    bool saveSoundsAs();
    /// Copies a file of the DEF from its folder to `target`; true when there is none.
    static bool copyFromBase(const QProjectFiles& files, const QString& name, const QString& target);
    /// Writes the palettes of the DEF into `directory`: as the sprites hold
    /// them, or copied from the DEF's folder when the sprites have none.
    bool copyPalettes(const QProjectFiles& files, const QString& directory);
    void renumberStates();

    QPaths m_paths;
    QMessageList m_messages;
    QDefinitions* m_definitions;
    QSprites* m_sprites;
    QCommands* m_commands;
    QSounds* m_sounds;
    QList<QSyntaxTextEditor*> m_states;
};
