#pragma once

#include "model/qsffrecords.h"
#include "util/qscratchbuffer.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QSprites;
class QSprite;
class QSpritePalette;
class QImage;

/**
 * Fills a QSprites from an SFF file of version 1.0.1.0, 2.0.0.0 or 2.0.1.0.
 *
 * Payloads go into the model's cache as the file holds them (PCX, RLE8, RLE5,
 * LZ5, PNG), each with the crc64 of its decoded pixels, so that the next save
 * in the same encoding copies them byte for byte. Linked sprites and palettes
 * become shared records; afterwards equal pictures that the file stored twice
 * are joined too, so the next save writes them as links.
 *
 * The reader takes what real files do: version 1 is walked by each
 * subheader's next-offset field, whatever its length field says; header
 * fields no reader needs (group count, subheader size) are not trusted; a
 * link or palette index out of range is reported and the sprite goes on
 * without it. A file that cannot be read at all leaves the model empty.
 */
class QSFFReader
{
public:
    /// `character`: sprites 0,0 and 9000,0 of a version 1 file take the
    /// character's palette (group 1, index 1), as the engine gives them.
    QSFFReader(QSprites* sprites, bool character);

    /// Reads the file; false, with the model cleared, when it cannot be read.
    bool read(const QString& path);
    /// Reads the bytes of a file; `name` is the file name that messages give.
    bool read(const QByteArray& data, const QString& name);

    /**
     * What was wrong with the file and where, one line each ("sprite 12
     * (5000,10) of 281: data runs past the end of the file at byte 204,811").
     * A failed read has at least one; a file that loaded may have some too,
     * when parts of it were cut short and stay blank.
     */
    const QStringList& faults() const { return m_faults; }

private:
    bool readVersion1();
    bool readVersion2(quint32 version);
    void readV2Palettes(const QList<QSFFv2Palette>& records, const QSFFv2Header& header, quint32 version);
    bool readV2Sprites(const QList<QSFFv2Sprite>& records, const QSFFv2Header& header, uint total);
    void readV2Payload(QSprite* sprite, const QSFFv2Sprite& record, const QSFFv2Header& header);
    /// Whether the sprite brings a palette of its own colours (or the
    /// character's first), so that its PCX colour table is wanted.
    bool v1TakesColours(const QSFFv1SubHeader& header, int position, const QSpritePalette* characterPalette) const;
    QSpritePalette* v1Palette(const QImage& image, const QSFFv1SubHeader& header, int position,
                              QSpritePalette*& characterPalette, QSpritePalette* current);
    void joinDuplicates();
    bool step(uint position, uint maximum);
    void reportLink(int position, const QString& text, int target) const;
    /// The bytes at `offset`, cut to what the file holds.
    QByteArray bytesAt(qint64 offset, qint64 length) const;
    /// Records a fault of `what` (e.g. "sprite 3 (0,1) of 40: data") that runs past the end of the file.
    void pastTheEnd(const QString& what);
    QString spriteName(int position, quint16 group, quint16 index, quint32 count) const;

    QSprites* m_sprites;
    bool m_character;
    QString m_name;
    QByteArray m_data;
    QStringList m_faults;
    QScratchBuffer m_pixels; ///< each PCX picture is decoded here, for its colours and checksum
};
