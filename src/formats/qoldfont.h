#pragma once

#include "qrgba.h"

#include <QByteArray>
#include <QImage>
#include <QMap>
#include <QPoint>
#include <QSize>
#include <QString>

/**
 * An old font file (FNT version 1, "ElecbyteFnt"): a PCX strip of glyphs and a
 * definition text with a [Def] section (type, colors, size, spacing, offset)
 * and a [Map] section of characters. The engine's 1.0 fonts are a definition
 * ("[FNT v2]") and an SFF instead; this class gives what that conversion needs:
 * the definition text, the colour banks and the glyph images.
 *
 * In a variable font each map line gives the character, its start and width; in
 * a fixed font the glyphs lie side by side in the order of the map's lines, one
 * font width each, and any numbers on the lines are not read. A character that
 * appears twice takes its last line. A character is written as itself or as a
 * hexadecimal code ("0x5B"), since ";" starts a comment.
 */
class QOldFont
{
public:
    /**
     * Reads a whole font file; false, with fault() saying what is wrong and
     * where, for a bad signature, a picture or text that runs past the end of
     * the file, a picture that is no 256-colour PCX, or a map of no character.
     */
    bool read(const QByteArray& data);
    /// Why the last read() failed, in one line; empty after a good one.
    QString fault() const { return m_fault; }
    /// Parses the definition text alone.
    void parseText(const QString& text);

    bool isFixed() const { return m_fixed; }
    int colors() const { return m_colors; }
    QSize size() const { return m_size; }
    QPoint spacing() const { return m_spacing; }
    QPoint offset() const { return m_offset; }
    /// Each character's start (x) and width (y) in the glyph strip.
    const QMap<char, QPoint>& map() const { return m_map; }
    const QImage& image() const { return m_image; }
    void setImage(const QImage& image) { m_image = image; }

    /// The definition text of the font in the new format, for a sprite file "<name>.sff".
    QString definitionText(const QString& name) const;

    /// How many colour banks the image's colour table holds: 256 / colors.
    int banks() const { return 256 / m_colors; }
    /// The palette of a bank: bank 0 is the last slice of the colour table, bank
    /// 1 the one before, and so on; entry 0 is transparent, the entries past the
    /// slice are zero.
    void bankPalette(int bank, QRGBA (&palette)[256]) const;

    /// The glyph of a mapped character, cut from the strip: the font's height (or
    /// the strip's, if lower) and its width in the map. Pixels outside the strip
    /// are 0; a glyph over 4096 pixels wide or high is taken for damage and null.
    /// Below 256 colours each pixel is moved up by the number of colours, modulo
    /// 256, so that the last slice's colours become the bank's 0 to colors-1.
    QImage glyph(char character) const;

private:
    void parseDefinition(const QString& key, const QString& value);
    void parseMapLine(const QString& line, int& position);

    bool m_fixed = false;
    int m_colors = 256;
    QSize m_size;
    QPoint m_spacing;
    QPoint m_offset;
    QMap<char, QPoint> m_map;
    QImage m_image;
    QString m_fault;
};
