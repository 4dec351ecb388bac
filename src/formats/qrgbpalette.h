#pragma once

#include "qrgba.h"

#include <QObject>
#include <QString>
#include <QVector>

/**
 * A view of a 256-entry colour table that it does not own, with reading from
 * every palette format the program knows and writing as ACT. Set the table
 * with setPalette before use; every edit is framed by changing() and changed()
 * so that views of the same table can follow.
 *
 * Entry 0 is the sprite's transparent colour and always ends with alpha 0 after
 * a read. A palette file that opens but does not parse still counts as read: it
 * gives a partial or zero table, as the engine's tools treat such files.
 */
class QRGBPalette : public QObject
{
    Q_OBJECT

public:
    explicit QRGBPalette(QObject* parent = nullptr);

    void setPalette(QRGBA (*palette)[256]) { m_palette = palette; }
    QRGBA (*palette() const)[256] { return m_palette; }

    /**
     * Reads a palette file into the table: the colour table of an indexed
     * image for "png", "pcx" and "bmp" (false for any other image), otherwise
     * ACO by suffix, or RIFF, JASC, ASE, Painter or ACT by the first four bytes.
     * False only when nothing could be opened; the table is then unchanged.
     */
    bool fromFile(const QString& path);
    /// What the last fromFile found wrong with a file it still read (a
    /// palette file that does not parse gives a partial or zero table); empty
    /// when the file was sound.
    QString fault() const { return m_fault; }
    /// Writes the table as an ACT file whatever the suffix, replacing the file
    /// only when all 768 bytes were written.
    bool toFile(const QString& path);

    /// The position of the nearest colour by the sum of squared red, green and
    /// blue differences; among equals, the entry whose alpha is closest below.
    int index(const QRGBA& colour) const;

    /// Copies 256 entries in, announcing the change.
    void fromPalette(const QRGBA* source);
    /// Copies the 256 entries out.
    void toPalette(QRGBA (&target)[256]) const;

signals:
    void changing();
    void changed();

private:
    QRGBA (*m_palette)[256] = nullptr;
    QString m_fault;
};

/// Copies a QImage colour table into a palette, as far as the table goes.
void colorTableToPalette(const QVector<QRgb>& colours, QRGBA (&palette)[256]);
/// The 256 entries of a palette as a QImage colour table (0xAARRGGBB); a null
/// palette gives 256 zeros.
QVector<QRgb> paletteToColorTable(const QRGBA* palette);
/// Reverses the table: entry i trades places with entry 255 - i.
void invertPalette(QRGBA (*palette)[256]);
/// How much of the table is in use: the highest index from 254 down whose
/// colour differs from entry 255 in any byte, 0 when entries 1 to 254 all equal
/// it. Entry 0 is not looked at. Not a count of distinct colours.
int getPaletteColorCount(const QRGBA* palette);
