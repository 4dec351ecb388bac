#include "qsffreader.h"

#include "formats/qimagefiles.h"
#include "formats/qpcx.h"
#include "formats/qrgbpalette.h"
#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qsprites.h"
#include "model/qstreamcachefilters.h"
#include "util/qcrc64.h"
#include "util/qprompt.h"
#include "util/qsharedslice.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLocale>
#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

constexpr qint64 bodyStart = 512;

/// The scan lines of an image with the row padding zeroed: equal pictures
/// must give equal bytes, and so equal CRCs, whatever the decoder left there.
QByteArray imageBytes(const QImage& image)
{
    QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    const qsizetype used = (qsizetype(image.width()) * image.depth() + 7) / 8;
    const qsizetype padding = image.bytesPerLine() - used;
    if (padding > 0)
        for (int y = 0; y < image.height(); ++y)
            std::memset(bytes.data() + qsizetype(y) * image.bytesPerLine() + used, 0, size_t(padding));
    return bytes;
}

/// The colours of an indexed image's table, entry 0 transparent; false without a table.
bool tableColors(const QImage& image, QRGBA (&colors)[256])
{
    const QVector<QRgb> table = image.colorTable();
    if (table.isEmpty())
        return false;
    std::fill(std::begin(colors), std::end(colors), QRGBA());
    for (int i = 0; i < 256 && i < table.size(); ++i)
        colors[i] = QRGBA::fromRGB(QRGBA::fromQRgb(table.at(i)).toRGB());
    colors[0].a = 0;
    return true;
}

/**
 * Whether a payload of `length` bytes can hold a picture of this size. No
 * encoding here packs more than about a thousand bytes of pixels into one
 * (deflate at best, run lengths far less): a damaged header that claims more
 * would only make the decoder allocate for nothing.
 */
bool plausibleSize(int width, int height, QImage::Format format, qint64 length)
{
    const qint64 bytes = qint64(width) * height * qMax(1, formatToDepth(format) / 8);
    return bytes <= 1100 * length + 65536;
}

/// Whether two cached payloads are the same bytes of one image encoding (false for payloads kept on disk).
bool samePayload(const QStreamCacheItem& a, const QStreamCacheItem& b)
{
    return a.filter != cfNone && a.filter == b.filter && !a.data.isEmpty() && a.data == b.data;
}

/// How a PNG picture differs from the size and depth its sprite record gives, or an empty string.
QString pngMismatch(const QPngHash& png, const QSFFv2Sprite& record, QImage::Format format)
{
    if (png.size != QSize(record.width, record.height))
        return QStringLiteral("the picture is %1x%2, the sprite's record says %3x%4")
            .arg(png.size.width())
            .arg(png.size.height())
            .arg(record.width)
            .arg(record.height);
    if (png.format != format)
        return QStringLiteral("the picture's pixels are not of the %1 bits the sprite's record says").arg(record.depth);
    return QString();
}

/// Sprites 0,0 and 9000,0 are the ones the engine draws with the character's palette.
bool takesCharacterPalette(quint16 group, quint16 index)
{
    return index == 0 && (group == 0 || group == 9000);
}

} // namespace

QSFFReader::QSFFReader(QSprites* sprites, bool character)
    : m_sprites(sprites)
    , m_character(character)
{
}

bool QSFFReader::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return read(file.readAll(), QFileInfo(path).fileName());
}

bool QSFFReader::read(const QByteArray& data, const QString& name)
{
    m_data = data;
    m_name = name;
    m_faults.clear();
    m_sprites->clear();
    QSprites::ChangeLock lock(m_sprites);
    m_sprites->beginChange();
    QDataStream stream(m_data);
    stream.setByteOrder(QDataStream::LittleEndian);
    QSFFHeader header;
    stream >> header;
    bool ok = stream.status() == QDataStream::Ok && header.hasSignature();
    if (!ok)
        m_faults << QStringLiteral("not an SFF file: no \"ElecbyteSpr\" signature at its start");
    if (ok) {
        m_sprites->setVersion(header.version);
        if (header.version == sffVersion101) {
            ok = readVersion1();
        } else if (header.version == sffVersion201 || header.version == sffVersion200) {
            ok = readVersion2(header.version);
        } else {
            m_faults << QStringLiteral("SFF version %1.%2.%3.%4 is not one this program reads")
                            .arg(header.version >> 24)
                            .arg((header.version >> 16) & 0xFF)
                            .arg((header.version >> 8) & 0xFF)
                            .arg(header.version & 0xFF);
            prompt().critical(QSprites::tr("Sprite loading error"),
                              QSprites::tr("%1(0): SFF version '%2.%3.%4.%5' not supported yet")
                                  .arg(m_name)
                                  .arg(header.version >> 24)
                                  .arg((header.version >> 16) & 0xFF)
                                  .arg((header.version >> 8) & 0xFF)
                                  .arg(header.version & 0xFF));
            ok = false;
        }
    }
    if (ok) {
        joinDuplicates();
    } else {
        m_sprites->clear();
        m_sprites->clearPalettes();
        m_sprites->setVersion(QSprites::defaultVersion);
    }
    m_sprites->endChange();
    m_data.clear();
    return ok;
}

bool QSFFReader::step(uint position, uint maximum)
{
    bool allow = true;
    emit m_sprites->progress(position, maximum, allow);
    return allow;
}

void QSFFReader::reportLink(int position, const QString& text, int target) const
{
    prompt().critical(QSprites::tr("Sprite loading error"), text.arg(m_name).arg(position).arg(target));
}

void QSFFReader::pastTheEnd(const QString& what)
{
    m_faults << QStringLiteral("%1 runs past the end of the file at byte %2")
                    .arg(what, QLocale(QLocale::English).toString(qint64(m_data.size())));
}

QString QSFFReader::spriteName(int position, quint16 group, quint16 index, quint32 count) const
{
    return QStringLiteral("sprite %1 (%2,%3) of %4").arg(position).arg(group).arg(index).arg(count);
}

QByteArray QSFFReader::bytesAt(qint64 offset, qint64 length) const
{
    if (offset < 0 || offset >= m_data.size() || length <= 0)
        return QByteArray();
    // Payloads share the file's memory: the cache keeps them as they are.
    return sharedSlice(m_data, offset, qMin<qint64>(length, m_data.size() - offset));
}

bool QSFFReader::readVersion1()
{
    QDataStream stream(m_data);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.device()->seek(QSFFHeader::size);
    QSFFv1Header header;
    stream >> header;
    if (stream.status() != QDataStream::Ok) {
        pastTheEnd(QStringLiteral("the header"));
        return false;
    }
    if (!step(0, header.imageCount))
        return false;

    const int characterIndex = m_sprites->findPalette(0, 1, 1);
    QSpritePalette* characterPalette = m_sprites->paletteAt(characterIndex);
    QSpritePalette* current = nullptr;
    qint64 position = bodyStart;
    for (quint32 i = 0; i < header.imageCount; ++i) {
        // The next-offset field is the truth: same-palette sprites of real
        // files still count the 768 palette bytes their PCX lost in the length.
        if (position + QSFFv1SubHeader::size > m_data.size()) {
            pastTheEnd(QStringLiteral("sprite %1 of %2: the subheader at byte %3")
                           .arg(i)
                           .arg(header.imageCount)
                           .arg(QLocale(QLocale::English).toString(position)));
            return false;
        }
        const QSFFv1SubHeader sub = QSFFv1SubHeader::fromBytes(m_data.constData() + position);
        const qint64 dataStart = position + QSFFv1SubHeader::size;
        const int count = m_sprites->count();
        QSprite* sprite = m_sprites->insertSprite(count);
        QSpriteProperties properties;
        properties.group = sub.group;
        properties.index = sub.index;
        properties.x = sub.x;
        properties.y = sub.y;

        QSpritePalette* palette = nullptr;
        if (sub.length == 0) {
            if (sub.link < count) {
                const QSprite* target = m_sprites->at(sub.link);
                sprite->shareImage(target->imageData());
                palette = sub.samePalette == 1 ? current : target->palette();
            } else {
                reportLink(count, QSprites::tr("%1(%2): Sprite incorrectly linked to the index %3"), sub.link);
            }
        } else {
            const qint64 length = sub.nextOffset > dataStart ? qint64(sub.nextOffset) - dataStart : qint64(sub.length);
            const QByteArray pcx = bytesAt(dataStart, length);
            if (pcx.size() < length)
                pastTheEnd(spriteName(count, sub.group, sub.index, header.imageCount) + QStringLiteral(": data"));
            const QImageInfo info = infoFromPCX(pcx);
            // Only the colours and the checksum are wanted now: the picture goes
            // into kept memory and the payload stays PCX in the cache.
            const bool colours = v1TakesColours(sub, count, characterPalette);
            const QImage image = plausibleSize(info.width, info.height, info.format, pcx.size())
                ? loadPCX(pcx, m_pixels, colours)
                : QImage();
            palette = v1Palette(image, sub, count, characterPalette, current);
            if (!image.isNull())
                sprite->setEncodedImage(pcx, cfPCX, quint16(image.width()), quint16(image.height()), image.format(),
                                        imageChecksum(image));
        }
        properties.palette = palette ? palette->index() : -1;
        sprite->setProperties(properties);
        if (palette)
            current = palette;
        if (!step(i + 1, header.imageCount))
            return false;
        // A next offset of 0 (or one pointing back) ends the chain in some
        // files: go on right behind the payload the length field gives.
        position = sub.nextOffset > position ? qint64(sub.nextOffset) : dataStart + sub.length;
    }
    return true;
}

bool QSFFReader::v1TakesColours(const QSFFv1SubHeader& header, int position,
                                const QSpritePalette* characterPalette) const
{
    if (m_character && takesCharacterPalette(header.group, header.index))
        return !characterPalette;
    return position == 0 || header.samePalette != 1;
}

QSpritePalette* QSFFReader::v1Palette(const QImage& image, const QSFFv1SubHeader& header, int position,
                                      QSpritePalette*& characterPalette, QSpritePalette* current)
{
    QRGBA colors[256];
    if (m_character && takesCharacterPalette(header.group, header.index)) {
        if (v1TakesColours(header, position, characterPalette)) {
            if (!tableColors(image, colors)) {
                std::fill(std::begin(colors), std::end(colors), QRGBA());
                emit m_sprites->charPalette(&colors);
            }
            characterPalette = m_sprites->addPalette(colors, spsNew, 1, 1);
        }
        return characterPalette;
    }
    if (v1TakesColours(header, position, characterPalette)) {
        if (!tableColors(image, colors))
            return nullptr;
        return m_sprites->addPalette(colors, spsReuseOthers, header.group, -1);
    }
    return current;
}

bool QSFFReader::readVersion2(quint32 version)
{
    m_sprites->clearPalettes();
    QDataStream stream(m_data);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.device()->seek(QSFFHeader::size);
    QSFFv2Header header;
    stream >> header;
    if (stream.status() != QDataStream::Ok) {
        pastTheEnd(QStringLiteral("the header"));
        return false;
    }
    const uint total = header.paletteCount + header.spriteCount;
    if (!step(0, total))
        return false;

    // Counts are checked against the file's size before anything is made, so
    // a damaged count cannot make the reader allocate for millions of records.
    const qint64 size = m_data.size();
    if (qint64(header.paletteOffset) + qint64(header.paletteCount) * QSFFv2Palette::size > size) {
        pastTheEnd(QStringLiteral("the palette table of %1 records at byte %2")
                       .arg(header.paletteCount)
                       .arg(QLocale(QLocale::English).toString(qint64(header.paletteOffset))));
        return false;
    }
    if (qint64(header.spriteOffset) + qint64(header.spriteCount) * QSFFv2Sprite::size > size) {
        pastTheEnd(QStringLiteral("the sprite table of %1 records at byte %2")
                       .arg(header.spriteCount)
                       .arg(QLocale(QLocale::English).toString(qint64(header.spriteOffset))));
        return false;
    }
    QList<QSFFv2Palette> palettes(header.paletteCount);
    stream.device()->seek(header.paletteOffset);
    for (QSFFv2Palette& record : palettes)
        stream >> record;
    QList<QSFFv2Sprite> sprites(header.spriteCount);
    stream.device()->seek(header.spriteOffset);
    for (QSFFv2Sprite& record : sprites)
        stream >> record;
    if (stream.status() != QDataStream::Ok)
        return false;

    readV2Palettes(palettes, header, version);
    if (!step(header.paletteCount, total))
        return false;
    return readV2Sprites(sprites, header, total);
}

void QSFFReader::readV2Palettes(const QList<QSFFv2Palette>& records, const QSFFv2Header& header, quint32 version)
{
    for (int i = 0; i < records.size(); ++i) {
        const QSFFv2Palette& record = records.at(i);
        QSpritePalette* palette = m_sprites->insertPaletteObject(i);
        palette->setSubItem(QSubItem(record.group, record.index));
        palette->setColorCount(record.colorCount);
        if (record.length == 0) {
            if (record.link < i) {
                palette->shareData(m_sprites->paletteAt(record.link)->data());
            } else {
                const QRGBA blank[256];
                palette->storeColors(blank);
            }
            continue;
        }
        QRGBA colors[256];
        const QByteArray bytes = bytesAt(qint64(header.ldataOffset) + record.offset, qMin<quint32>(record.length, 1024));
        if (bytes.size() < qint64(qMin<quint32>(record.length, 1024)))
            pastTheEnd(QStringLiteral("palette %1 (%2,%3) of %4: colours")
                           .arg(i)
                           .arg(record.group)
                           .arg(record.index)
                           .arg(records.size()));
        std::memcpy(colors, bytes.constData(), size_t(bytes.size()));
        if (version == sffVersion200) {
            // The alpha bytes of this version mean nothing: the engine draws
            // entry 0 transparent and every other entry opaque.
            colors[0].a = 0;
            for (int c = 1; c < 256; ++c)
                colors[c].a = 255;
        }
        palette->storeColors(colors);
    }
}

bool QSFFReader::readV2Sprites(const QList<QSFFv2Sprite>& records, const QSFFv2Header& header, uint total)
{
    for (int i = 0; i < records.size(); ++i) {
        const QSFFv2Sprite& record = records.at(i);
        QSprite* sprite = m_sprites->insertSprite(i);
        QSpriteProperties properties;
        properties.group = record.group;
        properties.index = record.index;
        properties.x = record.x;
        properties.y = record.y;
        properties.flags = record.flags;
        if (record.depth < 9) {
            if (record.palette < m_sprites->paletteCount())
                properties.palette = record.palette;
            else
                reportLink(i, QSprites::tr("%1(%2): Sprite incorrectly linked to the palette index %3"),
                           record.palette);
        }
        sprite->setProperties(properties);
        if (record.length == 0) {
            if (record.link < i)
                sprite->shareImage(m_sprites->at(record.link)->imageData());
            else
                reportLink(i, QSprites::tr("%1(%2): Sprite incorrectly linked to the index %3"), record.link);
        } else {
            readV2Payload(sprite, record, header);
        }
        if (!step(header.paletteCount + uint(i) + 1, total))
            return false;
    }
    return true;
}

void QSFFReader::readV2Payload(QSprite* sprite, const QSFFv2Sprite& record, const QSFFv2Header& header)
{
    const QImage::Format format = depthToFormat(record.depth);
    if (format == QImage::Format_Invalid || record.width == 0 || record.height == 0)
        return;
    const qint64 block = (record.flags & sfDecompressOnLoad) ? header.tdataOffset : header.ldataOffset;
    const QByteArray data = bytesAt(block + record.offset, record.length);
    if (data.size() < qint64(record.length))
        pastTheEnd(spriteName(m_sprites->indexOf(sprite), record.group, record.index, header.spriteCount)
                   + QStringLiteral(": data"));
    // Judged by the bytes the file really holds, not the length it claims.
    if (!plausibleSize(record.width, record.height, format, data.size()))
        return;
    if (record.compression == scRaw) {
        // Raw pixels are rows of depth * width / 8 bytes end to end. The
        // engine's own raw fonts carry no size prefix; a payload exactly four
        // bytes longer than its rows has one, and it is skipped.
        const qint64 rows = qint64(formatToDepth(format)) * record.width / 8 * record.height;
        const QImage image = loadRAW(record.width, record.height, format, data.mid(data.size() == rows + 4 ? 4 : 0));
        sprite->setEncodedImage(imageBytes(image), cfNone, record.width, record.height, format);
        return;
    }
    if (data.size() < 4)
        return;
    const QByteArray payload = sharedSlice(data, 4, data.size() - 4);
    const QStreamCacheFilterType filter = sffFilterOf(record.compression);
    quint64 crc = 0;
    if (filter == cfPNG) {
        // A PNG names its own size and kind of pixels, which must be the sprite's.
        const QPngHash png = hashPNG(payload, m_pixels);
        const QString fault = png.fault.isEmpty() ? pngMismatch(png, record, format) : png.fault;
        if (!fault.isEmpty()) {
            m_faults << QStringLiteral("%1: PNG data: %2")
                            .arg(spriteName(m_sprites->indexOf(sprite), record.group, record.index, header.spriteCount),
                                 fault);
            return;
        }
        crc = png.crc;
    }
    sprite->setEncodedImage(payload, filter, record.width, record.height, format, crc);
}

void QSFFReader::joinDuplicates()
{
    // Candidates are grouped by size, format and CRC; a full comparison runs
    // only inside a group. Each record joins the first equal one before it.
    QHash<QByteArray, QList<QSpriteImageData*>> seen;
    QStreamCache* cache = m_sprites->cache();
    for (int i = 0; i < m_sprites->count(); ++i) {
        QSprite* sprite = m_sprites->at(i);
        QSpriteImageData* data = sprite->imageData();
        if (!data || !data->item)
            continue;
        QByteArray key(reinterpret_cast<const char*>(&data->item->crc), sizeof(quint64));
        key.append(reinterpret_cast<const char*>(&data->width), sizeof(data->width));
        key.append(reinterpret_cast<const char*>(&data->height), sizeof(data->height));
        key.append(char(data->format));
        QList<QSpriteImageData*>& candidates = seen[key];
        QSpriteImageData* equal = nullptr;
        for (QSpriteImageData* other : candidates) {
            // Equal payloads of one encoding decode alike (their size and format
            // are in the key); otherwise the decoded bytes decide: two PCX of one
            // picture differ in their colours, and a CRC match alone proves nothing.
            if (other == data || samePayload(*other->item, *data->item)
                || cache->itemData(other->item) == cache->itemData(data->item)) {
                equal = other;
                break;
            }
        }
        if (!equal)
            candidates.append(data);
        else if (equal != data)
            sprite->shareImage(equal);
    }
}
