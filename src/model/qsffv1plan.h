#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QStringList>

class QSprites;

/**
 * How each sprite of a model goes into a version 1 file so that the reader
 * shows every pixel in the colour it has now.
 *
 * Version 1 knows no palette table: a sprite carries the 256 colours of its
 * PCX, or has them from the sprite before it ("same palette"), or links to an
 * earlier picture. The plan follows the colours the reader will give each
 * sprite, not the model's palette objects, so that sprites of equal colours
 * share them whatever palette they belong to.
 *
 * In a character, sprites 0,0 and 9000,0 are both read with one palette, the
 * colours of whichever comes first. When the two differ, the colours the other
 * uses are found in that palette, or placed in entries the standing pose does
 * not use, and its pixels are renumbered to them; only when no room is left
 * does a sprite lose colours, and the plan names it.
 */
class QSFFv1Plan
{
public:
    struct Entry
    {
        int link = -1; ///< earlier sprite whose picture this one shares in the file; -1 for a PCX
        bool samePalette = false; ///< takes the colours of the sprite before it
        QByteArray colours; ///< the 768 bytes of red, green and blue the PCX carries
        QImage remapped; ///< pixels renumbered for the file; null when the model's go as they are
    };

    QSFFv1Plan(const QSprites* sprites, bool character);

    const Entry& at(int position) const { return m_entries.at(position); }
    /// Sprites shown in other colours than in the model, as "group,index".
    const QStringList& losses() const { return m_losses; }

private:
    void fitCharacterPalette(const QSprites* sprites);
    void planLinksAndPalettes(const QSprites* sprites, bool character);

    QList<Entry> m_entries;
    QStringList m_losses;
    int m_carrier = -1; ///< the sprite whose PCX brings the character's colours
};

/// The 768 bytes of red, green and blue of a colour table, as a PCX carries them.
QByteArray pcxColours(const QVector<QRgb>& table);
