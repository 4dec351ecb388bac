#pragma once

#include <QHash>
#include <QMap>
#include <QString>

class QSprites;
class QSprite;

/**
 * Reads this program's export ("*.pfe", written by QSpriteExporter) into a
 * sprite file: [SpriteDef] sections become sprites, [PaletteDef] sections
 * palettes, in the order they stand, as one undoable edit named "import".
 *
 * Image and palette files are named relative to the export's folder. A file
 * named by two sprites is loaded once and shared, so it becomes a link. An
 * image that cannot be loaded leaves its sprite empty; unknown sections and
 * keys are skipped.
 */
class QSpriteImporter
{
public:
    explicit QSpriteImporter(QSprites* sprites);

    /// Inserts at `at`, or appends for a negative position; the number of sprites added.
    int read(const QString& path, int at);

private:
    using Section = QMap<QString, QString>;

    void addSprite(const Section& keys, int position);
    void addPalette(const Section& keys);
    QString resolve(const QString& name) const;

    QSprites* m_sprites;
    QString m_directory;
    bool m_noDuplicatePalettes = false;
    QHash<QString, QSprite*> m_loaded;
};
