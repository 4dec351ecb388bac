#pragma once

#include "formats/qrgba.h"
#include "qprojecttypes.h"
#include "qstreamcacheitem.h"
#include "util/qmessages.h"
#include "util/qpaths.h"

#include <QList>
#include <QObject>
#include <QString>

class QAnimations;
class QDefinitions;
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
    /// The animations of a character, on the text of its AIR file (animationText()).
    QAnimations* animations() const { return m_animations; }
    QSyntaxTextEditor* animationText() const { return m_animationText; }
    int statesCount() const { return int(m_states.size()); }
    QSyntaxTextEditor* states(int index) const { return m_states.value(index); }
    QProjectType type() const;

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
     * Reads the DEF and then the files it names. With `backup` every file read
     * is first copied into "backup/<stamp>/" beside the DEF; with `keepNames`
     * the models take the contents only and keep their file names (loading a
     * backup over the open project). False, with the project untouched, when
     * the DEF can't be read; false when the receiver of progress() cancels.
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

signals:
    /// Asks where to save a file; an empty answer skips it.
    QString saveFileName(QProjectFileType file, const QString& path);
    /// Asks which SFF version to write, offering the present one; 0 skips the sprites.
    quint32 spritesVersionToSave(quint32 currentVersion);
    /// Long work: the receiver sets `allow` to false to cancel.
    void progress(uint position, uint maximum, bool& allow);

private:
    QSyntaxTextEditor* newStates();
    /// Adds a palette file of the DEF as the character's palette `index` (group 1).
    void loadPalette(const QString& path, int index);
    /// Answers the sprites' request for the character's colours with the
    /// first palette of the DEF that was loaded.
    void giveCharacterPalette(QRGBATable* colors) const;
    /// Writes the sprites to their own name, or asks for one when they have none on disk.
    bool saveSprites(bool onlyModified);
    bool saveSpritesAs();
    /// Writes the AIR to its own name, or asks for one when it has none on disk.
    bool saveAnimations(bool onlyModified);
    bool saveAnimationsAs(bool unicode);
    /// Writes a text file to its own name, or asks for one when it has none on disk.
    bool saveText(QSyntaxTextEditor* text, QProjectFileType file, unsigned int index, bool onlyModified);
    void renumberStates();

    QPaths m_paths;
    QMessageList m_messages;
    QDefinitions* m_definitions;
    QSprites* m_sprites;
    QSyntaxTextEditor* m_animationText;
    QAnimations* m_animations;
    QList<QSyntaxTextEditor*> m_states;
};
