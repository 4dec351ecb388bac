#pragma once

#include "model/qsffrecords.h"
#include "model/qsffv1plan.h"

#include <QByteArray>
#include <QSet>
#include <QString>

class QSprites;
class QSprite;
class QIODevice;
class QSpritePalette;

/**
 * Writes a QSprites as an SFF file of the model's version (1.0.1.0, 2.0.0.0
 * or 2.0.1.0).
 *
 * A payload whose encoding the target can hold goes from the cache to the
 * file untouched; any other is encoded for the file (PCX for version 1; LZ5,
 * RLE8 or PNG for versions 2), and unless `keepName` the new bytes replace
 * the cached ones, so the next save is a copy. Shared pictures become linked
 * sprites, shared colour tables linked palettes.
 *
 * The target is replaced only when the whole file is written: a failed or
 * cancelled save leaves whatever stood under the name before, or nothing.
 * The caller runs fixVersion first; the writer assumes every sprite and
 * palette has data and every sprite below 2.0.1.0 is indexed.
 */
class QSFFWriter
{
public:
    /// `character`: sprites 0,0 and 9000,0 of a version 1 file take one palette, as the reader gives them.
    QSFFWriter(QSprites* sprites, bool keepName, bool character);

    bool write(const QString& path);

private:
    bool writeVersion1(QIODevice* device);
    bool writeVersion2(QIODevice* device, quint32 version);
    bool writeV2Sprite(int position, quint32 version, QSFFv2Sprite& record, QByteArray& block);
    QByteArray encodedPayload(QSprite* sprite, int position, quint8 compression);
    static bool reusePCX(const QByteArray& raw, const QSFFv1Plan::Entry& plan, QByteArray& payload);
    bool pcxPayload(QSprite* sprite, int position, const QSFFv1Plan::Entry& plan, QByteArray& payload);
    /// Palettes stored short whose sprites use entries beyond their colour count.
    QSet<const QSpritePalette*> widenedPalettes() const;
    bool step(uint position, uint maximum);
    void reportSaving(int position, const QString& reason) const;

    QSprites* m_sprites;
    bool m_keepName;
    bool m_character;
    QSet<const QSpritePalette*> m_widened;
};
