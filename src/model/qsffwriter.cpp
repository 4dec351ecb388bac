#include "qsffwriter.h"

#include "formats/qimagefiles.h"
#include "formats/qpcx.h"
#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qspritecodecs.h"
#include "model/qsffv1plan.h"
#include "model/qsprites.h"
#include "util/qprompt.h"

#include <QBuffer>
#include <QSet>
#include <QSaveFile>

namespace {

constexpr int pcxPaletteSize = 768;

quint8 pngCompression(QImage::Format format)
{
    if (format == QImage::Format_ARGB32)
        return scPNG32;
    if (format == QImage::Format_RGB32)
        return scPNG24;
    return scPNG8;
}

/**
 * The compression of a sprite in a version 2 file. An encoding the target
 * can hold is kept, so that an unchanged sprite is copied; anything else
 * (raw pixels, PCX, RLE5, PNG below 2.0.1.0) takes the encoding its format
 * calls for: PNG for true colour, LZ5 under a 32-colour palette, else RLE8 in
 * 2.0.0.0 and PNG in 2.0.1.0. `shortPalette`: the sprite's palette goes into
 * the file with 32 colours.
 */
quint8 compressionFor(const QSprite* sprite, QStreamCacheFilterType filter, quint32 version, bool shortPalette)
{
    const QSpriteImageData* data = sprite->imageData();
    if (!data)
        return scEmpty;
    const bool indexed = data->format == QImage::Format_Indexed8;
    if (filter == cfRLE8 || (filter == cfLZ5 && indexed))
        return filter == cfRLE8 ? scRLE8 : scLZ5;
    if (filter == cfPNG && version == sffVersion201)
        return pngCompression(data->format);
    if (!indexed)
        return pngCompression(data->format);
    if (shortPalette)
        return scLZ5;
    return version == sffVersion200 ? scRLE8 : scPNG8;
}

} // namespace

QSFFWriter::QSFFWriter(QSprites* sprites, bool keepName, bool character)
    : m_sprites(sprites)
    , m_keepName(keepName)
    , m_character(character)
{
}

bool QSFFWriter::write(const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const quint32 version = m_sprites->getVersion();
    QSFFHeader header;
    header.setSignature();
    header.version = version;
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << header;
    bool ok = step(0, uint(m_sprites->count() + m_sprites->paletteCount()));
    if (ok)
        ok = version == sffVersion101 ? writeVersion1(&file) : writeVersion2(&file, version);
    if (!ok || stream.status() != QDataStream::Ok) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

bool QSFFWriter::step(uint position, uint maximum)
{
    bool allow = true;
    emit m_sprites->progress(position, maximum, allow);
    return allow;
}

void QSFFWriter::reportSaving(int position, const QString& reason) const
{
    prompt().critical(QSprites::tr("Sprite saving error"),
                      QSprites::tr("An error occurred when saving the sprite %1.\n%2").arg(position).arg(reason));
}

bool QSFFWriter::pcxPayload(QSprite* sprite, int position, const QSFFv1Plan::Entry& plan, QByteArray& payload)
{
    QStreamCache* cache = m_sprites->cache();
    const QStreamCacheItem* item = sprite->imageData()->item;
    if (plan.remapped.isNull() && cache->itemFilter(item) == cfPCX
        && reusePCX(cache->itemRawData(item), plan, payload))
        return true;
    QBuffer buffer(&payload);
    if (!buffer.open(QIODevice::WriteOnly)) {
        reportSaving(position, QSprites::tr("Can't create a buffer for the image data."));
        return false;
    }
    QImage image = plan.remapped.isNull() ? sprite->image(sipNone) : plan.remapped;
    QVector<QRgb> table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = qRgb(uchar(plan.colours.at(3 * i)), uchar(plan.colours.at(3 * i + 1)), uchar(plan.colours.at(3 * i + 2)));
    image.setColorTable(table);
    if (!savePCX(image, &buffer)) {
        reportSaving(position, QSprites::tr("Can't create the PCX file."));
        return false;
    }
    // The marker byte stays; the colours go, as the previous sprite's apply.
    if (plan.samePalette)
        payload.chop(pcxPaletteSize);
    return true;
}

bool QSFFWriter::reusePCX(const QByteArray& raw, const QSFFv1Plan::Entry& plan, QByteArray& payload)
{
    // A PCX as the file held it goes back unchanged when it carries the
    // colours planned for it, or when it lost them to a same-palette flag and
    // still stands behind one.
    const qsizetype trailer = pcxPaletteSize + 1;
    if (raw.size() > 128 + trailer && uchar(raw.at(raw.size() - trailer)) == 12
        && raw.right(pcxPaletteSize) == plan.colours) {
        payload = plan.samePalette ? raw.left(raw.size() - pcxPaletteSize) : raw;
        return true;
    }
    if (plan.samePalette && raw.size() > 128 && uchar(raw.back()) == 12) {
        payload = raw;
        return true;
    }
    return false;
}

bool QSFFWriter::writeVersion1(QIODevice* device)
{
    QDataStream stream(device);
    stream.setByteOrder(QDataStream::LittleEndian);
    QSFFv1Header header;
    header.groupCount = quint32(m_sprites->groupCount());
    header.imageCount = quint32(m_sprites->count());
    header.comment = sffCommentBlock();
    stream << header;
    const QSFFv1Plan plan(m_sprites, m_character);
    if (!plan.losses().isEmpty())
        prompt().warning(QSprites::tr("Save SFF"),
                         QSprites::tr("Version 1.0.1.0 shows sprites 0,0 and 9000,0 of a character in one "
                                      "palette, which cannot hold all their colours: %1 will look different.")
                             .arg(plan.losses().join(QStringLiteral(", "))));
    const uint total = uint(m_sprites->count() + m_sprites->paletteCount());
    for (int i = 0; i < m_sprites->count(); ++i) {
        QSprite* sprite = m_sprites->at(i);
        const QSFFv1Plan::Entry& entry = plan.at(i);
        QSFFv1SubHeader sub;
        sub.x = qint16(sprite->offsetX());
        sub.y = qint16(sprite->offsetY());
        sub.group = quint16(sprite->itemGroup());
        sub.index = quint16(sprite->itemIndex());
        sub.link = quint16(qMax(entry.link, 0));
        sub.samePalette = entry.samePalette ? 1 : 0;
        QByteArray payload;
        if (entry.link < 0 && sprite->imageData() && !pcxPayload(sprite, i, entry, payload))
            return false;
        sub.length = quint32(payload.size());
        sub.nextOffset = quint32(device->pos() + QSFFv1SubHeader::size + payload.size());
        stream << sub;
        stream.writeRawData(payload.constData(), int(payload.size()));
        if (stream.status() != QDataStream::Ok || !step(uint(i + 1), total))
            return false;
    }
    return true;
}

bool QSFFWriter::writeVersion2(QIODevice* device, quint32 version)
{
    QByteArray ldata;
    QByteArray tdata;
    m_widened = widenedPalettes();
    const uint total = uint(m_sprites->count() + m_sprites->paletteCount());
    QList<QSFFv2Palette> palettes;
    for (int i = 0; i < m_sprites->paletteCount(); ++i) {
        const QSpritePalette* palette = m_sprites->paletteAt(i);
        QSFFv2Palette record;
        record.group = quint16(palette->itemGroup());
        record.index = quint16(palette->itemIndex());
        record.colorCount = m_widened.contains(palette) ? 256 : palette->colorCount();
        record.offset = quint32(ldata.size());
        const int link = palette->data() ? m_sprites->findBasePalette(palette->data(), i - 1) : -1;
        if (link >= 0) {
            record.link = quint16(link);
        } else if (palette->data()) {
            record.length = quint32(record.colorCount) * 4;
            ldata.append(reinterpret_cast<const char*>(palette->data()->colors), record.length);
        }
        palettes.append(record);
        if (!step(uint(i + 1), total))
            return false;
    }

    QList<QSFFv2Sprite> sprites;
    for (int i = 0; i < m_sprites->count(); ++i) {
        QSFFv2Sprite record;
        const bool inTdata = m_sprites->at(i)->flag(sfDecompressOnLoad);
        if (!writeV2Sprite(i, version, record, inTdata ? tdata : ldata))
            return false;
        sprites.append(record);
        if (!step(uint(m_sprites->paletteCount() + i + 1), total))
            return false;
    }

    QSFFv2Header header;
    header.compatibleVersion = version;
    header.paletteOffset = 512;
    header.paletteCount = quint32(palettes.size());
    header.spriteOffset = 512 + QSFFv2Palette::size * header.paletteCount;
    header.spriteCount = quint32(sprites.size());
    header.ldataOffset = header.spriteOffset + QSFFv2Sprite::size * header.spriteCount;
    header.ldataSize = quint32(ldata.size());
    header.tdataOffset = header.ldataOffset + header.ldataSize;
    header.tdataSize = quint32(tdata.size());
    header.comment = sffCommentBlock();
    QDataStream stream(device);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << header;
    for (const QSFFv2Palette& record : palettes)
        stream << record;
    for (const QSFFv2Sprite& record : sprites)
        stream << record;
    stream.writeRawData(ldata.constData(), int(ldata.size()));
    stream.writeRawData(tdata.constData(), int(tdata.size()));
    return stream.status() == QDataStream::Ok;
}

bool QSFFWriter::writeV2Sprite(int position, quint32 version, QSFFv2Sprite& record, QByteArray& block)
{
    QSprite* sprite = m_sprites->at(position);
    const QSpriteImageData* data = sprite->imageData();
    record.group = quint16(sprite->itemGroup());
    record.index = quint16(sprite->itemIndex());
    record.x = qint16(sprite->offsetX());
    record.y = qint16(sprite->offsetY());
    record.flags = sprite->flags();
    record.palette = quint16(qMax(sprite->palette() ? sprite->palette()->index() : 0, 0));
    record.offset = quint32(block.size());
    if (!data) {
        record.compression = scEmpty;
        return true;
    }
    QStreamCache* cache = m_sprites->cache();
    const QStreamCacheFilterType filter = cache->itemFilter(data->item);
    record.width = data->width;
    record.height = data->height;
    const QSpritePalette* palette = sprite->palette();
    const bool shortPalette = palette && palette->colorCount() == 32 && !m_widened.contains(palette);
    record.compression = compressionFor(sprite, filter, version, shortPalette);
    record.depth = quint8(record.compression == scLZ5 ? 5 : formatToDepth(data->format));
    const int link = m_sprites->findBaseSprite(data, position - 1);
    if (link >= 0) {
        record.link = quint16(link);
        return true;
    }
    QByteArray payload = filter == sffFilterOf(record.compression) ? cache->itemRawData(data->item)
                                                                 : encodedPayload(sprite, position, record.compression);
    if (payload.isEmpty()) {
        if (filter == sffFilterOf(record.compression)) {
            record.compression = scEmpty;
            return true;
        }
        return false;
    }
    const quint32 pixels = quint32(data->width) * data->height * quint32(formatToDepth(data->format)) / 8;
    record.length = quint32(payload.size()) + 4;
    const char prefix[4] = { char(pixels), char(pixels >> 8), char(pixels >> 16), char(pixels >> 24) };
    block.append(prefix, 4);
    block.append(payload);
    return true;
}

QSet<const QSpritePalette*> QSFFWriter::widenedPalettes() const
{
    // A version 2 palette holds only its first colorCount colours; a picture
    // that uses an entry beyond them would turn black, so such a palette goes
    // into the file whole. LZ5 cannot hold such entries at all.
    QSet<const QSpritePalette*> widened;
    QStreamCache* cache = m_sprites->cache();
    for (int i = 0; i < m_sprites->count(); ++i) {
        const QSprite* sprite = m_sprites->at(i);
        const QSpritePalette* palette = sprite->palette();
        const QSpriteImageData* data = sprite->imageData();
        if (!palette || palette->colorCount() >= 256 || widened.contains(palette) || !data
            || data->format != QImage::Format_Indexed8)
            continue;
        if (palette->colorCount() >= 32 && cache->itemFilter(data->item) == cfLZ5)
            continue;
        const QByteArray pixels = cache->itemData(data->item);
        const uchar limit = uchar(palette->colorCount());
        for (const char pixel : pixels) {
            if (uchar(pixel) >= limit) {
                widened.insert(palette);
                break;
            }
        }
    }
    return widened;
}

QByteArray QSFFWriter::encodedPayload(QSprite* sprite, int position, quint8 compression)
{
    const QImage image = sprite->image(sipOwn);
    QByteArray payload;
    if (compression == scLZ5)
        payload = saveLZ5(image, true);
    else if (compression == scRLE8)
        payload = saveRLE8(image);
    else
        payload = savePNG(image);
    if (payload.isEmpty()) {
        reportSaving(position, QSprites::tr("Can't compress the image."));
        return payload;
    }
    if (!m_keepName) {
        // The pixels stay the same, and so does their CRC, except through
        // LZ5, which keeps five bits a pixel: that one is computed again.
        QSpriteImageData* data = sprite->imageData();
        const quint64 crc = compression == scLZ5 ? 0 : data->item->crc;
        m_sprites->cache()->setItemData(data->item, payload, sffFilterOf(compression), data->param(), crc);
    }
    return payload;
}
