#pragma once

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>

class QSprites;
class QSprite;
class QSpritePalette;
struct QSpriteImageData;
struct QSpritePaletteData;

/**
 * Writes sprites as PNG files and palettes as ACT files beside a description
 * of them: for a "*.def" target, a script of the engine's sprite compiler
 * (ISO 8859-1, CR LF), for any other suffix this program's own export
 * (normally "*.pfe", UTF-8), which QSpriteImporter reads back.
 *
 * Pixels or colours that several sprites or palettes share are written once,
 * under the name of the first, and the description refers to that file each
 * time. Images are written in the colours they are shown in. Every file is
 * replaced only when it is complete.
 */
class QSpriteExporter
{
public:
    explicit QSpriteExporter(QSprites* sprites);

    /// False when a file could not be written or the progress receiver cancelled.
    bool write(const QString& path, const QList<QSprite*>& sprites, const QList<QSpritePalette*>& palettes);

private:
    QString freeName(qint32 group, qint32 index, const char* suffix);
    bool writeFiles(const QList<QSprite*>& sprites, const QList<QSpritePalette*>& palettes);
    QString compilerScript(const QString& baseName, const QList<QSprite*>& sprites,
                           const QList<QSpritePalette*>& palettes) const;
    QString ownExport(const QList<QSprite*>& sprites, const QList<QSpritePalette*>& palettes) const;

    QSprites* m_sprites;
    QString m_directory;
    QMap<const QSpriteImageData*, QString> m_images;
    QMap<const QSpritePaletteData*, QString> m_palettes;
    QSet<QString> m_names;
};
