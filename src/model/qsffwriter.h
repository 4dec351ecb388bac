#pragma once

#include "model/qsffrecords.h"

#include <QByteArray>
#include <QString>

class QSprites;
class QSprite;
class QIODevice;

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
    QSFFWriter(QSprites* sprites, bool keepName);

    bool write(const QString& path);

private:
    bool writeVersion1(QIODevice* device);
    bool writeVersion2(QIODevice* device, quint32 version);
    bool writeV2Sprite(int position, quint32 version, QSFFv2Sprite& record, QByteArray& block);
    QByteArray encodedPayload(QSprite* sprite, int position, quint8 compression);
    static bool reusePCX(const QByteArray& raw, const QSprite* sprite, bool samePalette, QByteArray& payload);
    bool pcxPayload(QSprite* sprite, int position, bool samePalette, QByteArray& payload);
    bool step(uint position, uint maximum);
    void reportSaving(int position, const QString& reason) const;

    QSprites* m_sprites;
    bool m_keepName;
};
