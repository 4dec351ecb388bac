#pragma once

#include "model/qorganizableobject.h"
#include "model/qpaletteobject.h"
#include "model/qprojectfile.h"
#include "model/qremapmodel.h"
#include "model/qsffrecords.h"
#include "model/qsprite.h"
#include "model/qspritepalette.h"
#include "model/qstreamcache.h"

#include <QList>
#include <QMimeData>
#include <QUndoStack>

/**
 * The in-memory form of one sprite file: the sprites and the palettes, in
 * file order, and the rules by which they share pixel and colour data. It is
 * the list model of the sprite views, a file of its project, and an undo
 * domain of its own.
 *
 * Pixels live encoded in the file's QStreamCache and are decoded only when
 * asked for. Equal pictures are found by content and share one record, and
 * so do palettes with equal colours; the SFF writer turns that sharing into
 * linked sprites and palettes.
 *
 * Each public edit is undoable. While the change lock is raised (ChangeLock),
 * edits make no undo commands: loaders raise it, and so do the undo commands
 * themselves while they replay a change. Positions out of range give null or
 * -1; nothing here fails otherwise. Call init() once before making any.
 */
class QSprites : public QOrganizableObject, public QProjectFile
{
    Q_OBJECT
public:
    static constexpr quint32 defaultVersion = sffVersion201;
    static constexpr quint32 version101 = sffVersion101;

    /// Raises the change lock of a sprite file for its lifetime.
    class ChangeLock
    {
    public:
        explicit ChangeLock(QSprites* sprites) : m_sprites(sprites) { ++m_sprites->m_changeLock; }
        ~ChangeLock() { --m_sprites->m_changeLock; }
        ChangeLock(const ChangeLock&) = delete;
        ChangeLock& operator=(const ChangeLock&) = delete;

    private:
        QSprites* m_sprites;
    };

    QSprites(QProject* project, QStreamCacheType cacheType, bool compress, int level);
    ~QSprites() override;

    /// Registers the payload decoders of every cache; once, before any QSprites.
    static void init();

    // Access
    int count() const { return m_sprites.size(); }
    QSprite* at(int position) const;
    /// First position at or after `start` of the sprite group,index; -1 if none.
    int find(int start, qint32 group, qint32 index) const;
    int paletteCount() const { return m_palettes.size(); }
    QSpritePalette* paletteAt(int position) const;
    /// First position at or after `start` of the palette group,index; -1 if none.
    int findPalette(int start, qint32 group, qint32 index) const;
    /// First position among the first `limit` palettes with these 1024 bytes; -1 if none.
    int findPalette(const QRGBA* colors, int limit) const;
    /// Position of a sprite or palette of this file; -1 for another.
    // From the back: readers and editors mostly ask about the sprite they just added.
    int indexOf(const QSprite* sprite) const { return m_sprites.lastIndexOf(const_cast<QSprite*>(sprite)); }
    int indexOfPalette(const QSpritePalette* palette) const
    {
        return m_palettes.indexOf(const_cast<QSpritePalette*>(palette));
    }
    /// The highest index used in a group plus 1; 0 for an unused group.
    qint32 nextSpriteIndex(qint32 group) const;
    qint32 nextPaletteIndex(qint32 group) const;
    int groupCount() const;
    bool containsIndexed() const;
    quint32 getVersion() const { return m_version; }
    void setVersion(quint32 version);
    QString fileName() const { return m_fileName; }
    void setFileName(const QString& fileName) { m_fileName = fileName; }

    QStreamCache* cache() { return &m_cache; }
    QRemapModel* paletteMap() { return &m_paletteMap; }
    QPaletteObject* paletteModel() { return &m_paletteModel; }
    QUndoStack* undoStack() { return &m_undoStack; }

    // Changes
    /// Appends an empty sprite.
    QSprite* add();
    /// Inserts an empty sprite; a position out of range appends.
    QSprite* insert(int position);
    void remove(unsigned int position) override;
    void move(unsigned int from, unsigned int to) override;
    /// Deletes every sprite and empties the cache; not undoable, so the undo
    /// history goes too.
    void clear();
    /// Removes the sprites of a group, or with `wholeGroup` false those with
    /// indices from `first` to `last`.
    void removeGroup(qint32 group, bool wholeGroup, qint32 first, qint32 last);
    /// Moves sprites of a group to another, all or those indexed `first` to `last`.
    void renameGroup(qint32 group, qint32 newGroup, bool wholeGroup, qint32 first, qint32 last);
    /// Sets the axis of every sprite (or of one group, for group >= 0) to x,y,
    /// or with `relative` moves it by x,y.
    void fullAxis(qint32 x, qint32 y, bool relative, qint32 group = -1);
    /// Crops every sprite (or those of one group, for group >= 0); see QSprite::crop.
    void crop(qint32 group = -1);
    void autoOrganize() override;
    /// The sprites at `positions`, with pixels, own colours and properties, for the clipboard.
    QMimeData* copy(const QList<int>& positions) const;
    /// Inserts the sprites of copy() at `position` (appends when out of
    /// range); the number of sprites inserted.
    int paste(const QMimeData* data, int position);
    static QString mimeType();

    // Palettes
    /**
     * A palette of these colours in `group` at `index`, or at the next free
     * index of the group for an index below 0; with `share` other than
     * spsNew an existing palette of the same colours is returned instead.
     */
    QSpritePalette* addPalette(const QRGBA* colors, QSpritePaletteShareMode share, qint32 group, qint32 index);
    QSpritePalette* addPalette(const QVector<QRgb>& table, QSpritePaletteShareMode share, qint32 group,
                               qint32 index);
    /// As addPalette, at a position of the list (out of range appends).
    QSpritePalette* insertPalette(int position, const QRGBA* colors, QSpritePaletteShareMode share,
                                  qint32 group, qint32 index);
    QSpritePalette* insertPalette(int position, const QVector<QRgb>& table, QSpritePaletteShareMode share,
                                  qint32 group, qint32 index);
    /// Removes a palette; its sprites are left without one.
    void removePalette(int position);
    void movePalette(int from, int to);
    void clearPalettes();
    /// Removes palettes whose colours an earlier palette has; their sprites move to it.
    void removeDuplicatePalettes();
    /// Removes palettes no sprite uses, except those of group 1 (the character's).
    void clearUnusedPalettes();

    // Helpers
    /// First position at or before `upTo` whose sprite uses `data`; -1 if none.
    int findBaseSprite(const QSpriteImageData* data, int upTo) const;
    /// First position at or before `upTo` whose palette uses `data`; -1 if none.
    int findBasePalette(const QSpritePaletteData* data, int upTo) const;
    /// Order of autoOrganize for this file's version: negative when `a` goes first.
    int palOrgCompare(const QSprite* a, const QSprite* b) const;

    // Files
    /// Reads an SFF file of any version the program knows; false, with the
    /// model empty, when it cannot be read. Unless `keepName`, the model
    /// takes the path as its file name. What the reader found wrong, parts
    /// cut short or damaged, heads the messages of checkErrors().
    bool fromFile(const QString& path, bool keepName = false);
    /**
     * Writes the model as an SFF file of `version` (0 keeps the present one,
     * any other becomes the model's). The file is replaced only when it is
     * complete: a failed or cancelled save leaves the old one as it was.
     * Unless `keepName`, the model takes the path as its name and keeps the
     * payloads it encoded, so the next save copies them.
     */
    bool toFile(const QString& path, unsigned int version = 0, bool keepName = false);
    bool canSave(unsigned int version) const override;
    /// Makes the model fit its version before a save (true-colour sprites
    /// become indexed below 2.0.1.0); false for an empty sprite or palette.
    bool fixVersion(bool character);
    /// Writes all sprites and palettes as image and palette files beside
    /// `path`, described by `path`: a sprite compiler script for "*.def",
    /// this program's export for any other suffix.
    void exportAll(const QString& path);
    /// As exportAll, for the sprites of one group and the palettes they use.
    void exportGroup(int group, const QString& path);
    /// Adds the sprites and palettes an export describes, at `at` (the end
    /// for a negative position), as one undoable edit.
    void import(QString path, int at = -1);

    // Undo
    void undo();
    void redo();
    bool isChangeLocked() const { return m_changeLock > 0; }
    /// Adds a command for a change already made; dropped under the change lock.
    void pushCommand(class QUndoCommand* command);
    void beginMacro(const QString& name);
    void endMacro();

    // Project file
    bool isModified() const override { return m_modified; }
    bool isEmpty() const override { return m_sprites.isEmpty() && m_palettes.isEmpty(); }
    bool canDiscard() override;
    void checkErrors() override;
    void setModified(bool modified);
    /// Tells the views that the sprite or palette at a position changed, and marks the file modified.
    void itemChanged(int position);
    void paletteChanged(int position);

    void beginChange() override;
    void endChange() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// A row reads "group, index".
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    // The raw list operations beneath the undoable edits, for undo commands
    // and loaders: no undo, no check of the change lock.

    QSprite* insertSprite(int position);
    void deleteSprite(int position);
    void moveSprite(int from, int to);
    QSpritePalette* insertPaletteObject(int position);
    void deletePalette(int position);
    void movePaletteObject(int from, int to);
    /// Position of another sprite that shares the record of the sprite at
    /// `position`; -1 when it has the record alone or none.
    int imageSharer(int position) const;
    /// Position of another palette sharing the table of the palette at `position`; -1 if none.
    int paletteSharer(int position) const;
    /// Gives the sprite at `position` the pixels `image`: the record of the
    /// sprite at `sharer` when that is a position, else a record of its own.
    void restoreImage(int position, const QImage& image, int sharer);
    /// Gives the palette at `position` the colours (null: none): the table of
    /// the palette at `sharer` when that is a position, else a table of its own.
    void restoreColors(int position, const QRGBA* colors, int sharer);

signals:
    void changed();
    void progress(uint position, uint maximum, bool& allow);
    /// Asks which of the sprites at `positions` go along with a change of the
    /// pixels they share; the receiver leaves those in the list.
    void dataSharing(QList<uint>& positions);
    /// Asks for the character's palette while a version 1 file is read
    /// whose palette sprite has no colours of its own.
    void charPalette(QRGBATable* palette);
    /// Names the sprites that cannot take the character's palette where
    /// they stand when the file is saved as version 1.
    void orderMustBeChanged(QList<uint> sprites);

private:
    QProjectType projectType() const;
    QSpritePalette* newPalette(int position, const QRGBA* colors, QSpritePaletteShareMode share, qint32 group,
                               qint32 index);
    QList<int> spritePositions(qint32 group, bool wholeGroup, qint32 first, qint32 last) const;
    void checkSprites(QProjectType type);
    void checkPalettes();

    QRemapModel m_paletteMap;
    int m_changeLock = 0;
    QStreamCache m_cache;
    QList<QSprite*> m_sprites;
    QString m_fileName;
    QStringList m_readFaults; ///< of the file last read
    quint32 m_version = defaultVersion;
    bool m_modified = false;
    int m_changing = 0;
    QUndoStack m_undoStack;
    QList<QSpritePalette*> m_palettes;
    QPaletteObject m_paletteModel;
};
