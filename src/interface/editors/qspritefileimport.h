#pragma once

#include <QImage>
#include <QList>
#include <QStringList>

class QSprites;

/**
 * Adds sprites to a sprite file from image files (PNG, PCX, GIF, BMP): one
 * file, several, or a numbered series such as "walk000.png",
 * "walk001.png"... Every file is read before anything changes, so a file
 * that cannot be read leaves the sprite file as it was, and the whole
 * addition is one undo step.
 */
class QSpriteFileImport
{
public:
    explicit QSpriteFileImport(QSprites* sprites) : m_sprites(sprites) {}

    /// The files that continue the numbered series `first` is part of, from
    /// it on, as long as the numbers follow one another; `first` alone when
    /// its name ends in no number.
    static QStringList numberedSeries(const QString& first);

    /**
     * Appends one sprite for each file, the first at group,index and the
     * next ones `step` indices further each. Asks before true-colour pictures
     * go into a file saved in an 8-bit version. The number of sprites added;
     * 0 with error() naming the file and the fault, or on cancel.
     */
    int add(const QStringList& files, int group, int index, int step);
    /**
     * The pictures of `files`, all or none: empty with error() naming the
     * first file that can't be read, or when the author declines true-colour
     * pictures for a file saved in an 8-bit version.
     */
    QList<QImage> read(const QStringList& files);

    QString error() const { return m_error; }

private:
    QSprites* m_sprites;
    QString m_error;
};
