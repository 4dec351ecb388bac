#include "qsprite.h"

#include "formats/qpalettematcher.h"
#include "formats/qrgbpalette.h"
#include "model/qgroupsteps.h"
#include "model/qspritecommands.h"
#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qsprites.h"
#include "util/qprompt.h"

#include <cstring>

namespace {

QByteArray imageBytes(const QImage& image)
{
    return QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
}

/// Turns the index order of an indexed image around: pixel p becomes 255 - p
/// and the colour table is mirrored, so the picture looks the same.
void reverseIndices(QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        uchar* line = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x)
            line[x] = uchar(255 - line[x]);
    }
    QVector<QRgb> table = image.colorTable();
    table.resize(256);
    for (int i = 0; i < 128; ++i)
        std::swap(table[i], table[255 - i]);
    image.setColorTable(table);
}

/// The picture in the colours of `palette`: each opaque pixel takes the
/// nearest entry from 1; fully transparent pixels take entry 0, the transparent one.
QImage remapToPalette(const QImage& image, const QRGBA* colors)
{
    QVector<QRgb> table(256);
    for (int i = 0; i < 256; ++i)
        table[i] = colors[i].toQRgb();
    QPaletteMatcher matcher(table, 1);
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    QImage target(source.size(), QImage::Format_Indexed8);
    target.setColorTable(table);
    for (int y = 0; y < source.height(); ++y) {
        const QRgb* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* out = target.scanLine(y);
        for (int x = 0; x < source.width(); ++x)
            out[x] = qAlpha(in[x]) == 0 ? 0 : uchar(matcher.index(in[x]));
    }
    return target;
}

} // namespace

QSprite::QSprite(QSprites* owner)
    : m_owner(owner)
{
}

QSprite::~QSprite()
{
    shareImage(nullptr);
}

int QSprite::index() const
{
    return m_owner->indexOf(this);
}

QSpriteProperties QSprite::properties() const
{
    QSpriteProperties properties;
    properties.palette = m_palette ? m_palette->index() : -1;
    properties.group = m_group;
    properties.index = m_index;
    properties.x = m_x;
    properties.y = m_y;
    properties.flags = m_flags;
    return properties;
}

bool QSprite::imageIsShared() const
{
    return m_image && m_image->references > 1;
}

QImageInfo QSprite::imageInfo() const
{
    QImageInfo info;
    if (m_image) {
        info.width = m_image->width;
        info.height = m_image->height;
        info.format = m_image->format;
    }
    return info;
}

QImage QSprite::image(QSpriteImagePalette mode) const
{
    if (!m_image)
        return QImage();
    QImage image(m_image->width, m_image->height, m_image->format);
    if (image.isNull())
        return image;
    const QByteArray bytes = m_image->cache->itemData(m_image->item);
    if (bytes.size() < image.sizeInBytes())
        image.fill(0);
    std::memcpy(image.bits(), bytes.constData(), size_t(qMin<qsizetype>(bytes.size(), image.sizeInBytes())));
    if (image.format() != QImage::Format_Indexed8 || mode == sipNone)
        return image;

    const QSpritePalette* palette = m_palette;
    QSubItem substitute;
    if (palette && mode == sipDisplay && m_owner->paletteMap()->find(palette->subItem(), substitute)) {
        const int found = m_owner->findPalette(0, substitute.group, substitute.index);
        if (found >= 0)
            palette = m_owner->paletteAt(found);
    }
    image.setColorTable(palette ? palette->colorTable() : QVector<QRgb>(256, 0));
    return image;
}

void QSprite::setImage(const QImage& source, QSpriteShareMode share, bool reverse,
                       QSpritePaletteMode paletteMode, const QSubItem& palette)
{
    const int position = index();
    if (!source.isNull() && source.format() != QImage::Format_Indexed8 && paletteMode != spmAdapt
        && m_owner->getVersion() < QSprites::defaultVersion)
        prompt().warning(tr("Warning!"),
                         tr("The image to be set to the sprite %1, %2 (#%3) isn't color indexed.\n"
                            "For the current SFF version, the image will be converted to indexed with an "
                            "optimized palette when you save the file.")
                             .arg(m_group)
                             .arg(m_index)
                             .arg(position + 1));

    const bool recording = !m_owner->isChangeLocked();
    SpriteChangeImage* command = nullptr;
    if (recording) {
        m_owner->beginMacro(QStringLiteral("setImage"));
        command = new SpriteChangeImage(m_owner, position);
    }

    QImage image = source;
    QList<int> followers;
    bool inPlace = false;
    if (image.isNull()) {
        shareImage(nullptr);
    } else {
        if (image.format() != QImage::Format_Indexed8 && image.format() != QImage::Format_RGB32
            && image.format() != QImage::Format_ARGB32)
            image = image.convertToFormat(QImage::Format_RGB32);
        if (reverse && image.format() == QImage::Format_Indexed8)
            reverseIndices(image);
        if (recording)
            adoptPalette(image, paletteMode, palette);
        inPlace = applyImage(image, share, followers);
    }

    if (recording) {
        command->setInPlace(inPlace);
        m_owner->pushCommand(command);
    }
    // The sprites that chose to go along with this change leave the record
    // they shared with this sprite for the new one.
    for (int follower : std::as_const(followers)) {
        QSprite* sprite = m_owner->at(follower);
        if (!sprite || sprite == this)
            continue;
        if (recording)
            m_owner->pushCommand(new SpriteChangeImage(m_owner, follower));
        sprite->shareImage(m_image);
        m_owner->itemChanged(follower);
    }
    if (recording)
        m_owner->endMacro();
    m_owner->itemChanged(position);
}

void QSprite::adoptPalette(QImage& image, QSpritePaletteMode mode, const QSubItem& palette)
{
    if (mode == spmAdapt || mode == spmUse) {
        const int found = m_owner->findPalette(0, palette.group, palette.index);
        if (found >= 0) {
            QSpritePalette* target = m_owner->paletteAt(found);
            if (mode == spmAdapt && target->colors())
                image = remapToPalette(image, target->colors());
            setPalette(target);
        }
    }
    if (image.format() == QImage::Format_Indexed8 && (mode == spmNew || !m_palette)) {
        QRGBA colors[256];
        colorTableToPalette(image.colorTable(), colors);
        colors[0].a = 0;
        setPalette(m_owner->addPalette(colors, spsReuse, 0, -1));
    }
}

bool QSprite::applyImage(const QImage& image, QSpriteShareMode share, QList<int>& followers)
{
    const QByteArray bytes = imageBytes(image);
    if (share == ssmReplace && m_image) {
        storeImage(image);
        return true;
    }
    if (share != ssmPrivate) {
        if (QSpriteImageData* equal = joinableRecord(image, bytes)) {
            shareImage(equal);
            return false;
        }
    }
    bool inPlace = false;
    if (!m_image) {
        newRecord();
    } else if (m_image->references < 2 || share == ssmShared) {
        inPlace = true;
    } else {
        if (share == ssmAsk) {
            const int position = index();
            QList<uint> sharers;
            for (int i = 0; i < m_owner->count(); ++i)
                if (i != position && m_owner->at(i)->imageData() == m_image)
                    sharers.append(uint(i));
            QList<uint> chosen = sharers;
            emit m_owner->dataSharing(chosen);
            for (uint sharer : std::as_const(chosen))
                if (sharers.contains(sharer))
                    followers.append(int(sharer));
        }
        shareImage(nullptr);
        newRecord();
    }
    storeImage(image);
    return inPlace;
}

QSpriteImageData* QSprite::joinableRecord(const QImage& image, const QByteArray& bytes) const
{
    QStreamCacheItem* item = m_owner->cache()->find(bytes, m_image ? m_image->item : nullptr);
    if (!item || !item->filterParam)
        return nullptr;
    QSpriteImageData* record = QSpriteImageData::fromParam(item->filterParam);
    // Equal bytes can be another picture of a different shape.
    if (record->width != image.width() || record->height != image.height() || record->format != image.format())
        return nullptr;
    return record;
}

void QSprite::newRecord()
{
    shareImage(nullptr);
    m_image = new QSpriteImageData;
    m_image->references = 1;
    m_image->cache = m_owner->cache();
}

void QSprite::shareImage(QSpriteImageData* data)
{
    if (data)
        ++data->references;
    if (m_image && --m_image->references == 0) {
        if (m_image->item)
            m_image->cache->deleteItem(m_image->item);
        delete m_image;
    }
    m_image = data;
}

void QSprite::storeImage(const QImage& image)
{
    if (image.isNull()) {
        shareImage(nullptr);
        return;
    }
    if (!m_image)
        newRecord();
    m_image->width = quint16(image.width());
    m_image->height = quint16(image.height());
    m_image->format = image.format();
    m_image->displayPixmap = QPixmap();
    m_image->thumbnailPixmap = QPixmap();
    const QByteArray bytes = imageBytes(image);
    if (m_image->item)
        m_image->cache->setItemData(m_image->item, bytes, cfNone, m_image->param());
    else
        m_image->item = m_image->cache->addItem(bytes, cfNone, m_image->param());
}

void QSprite::setEncodedImage(const QByteArray& payload, QStreamCacheFilterType filter, quint16 width,
                              quint16 height, QImage::Format format, quint64 crc)
{
    newRecord();
    m_image->width = width;
    m_image->height = height;
    m_image->format = format;
    m_image->item = m_image->cache->addItem(payload, filter, m_image->param(), crc);
}

void QSprite::recordChange()
{
    if (!m_owner->isChangeLocked())
        m_owner->pushCommand(new SpriteChangeInfo(m_owner, index()));
}

void QSprite::setItem(qint32 group, qint32 index)
{
    recordChange();
    m_group = group;
    m_index = index;
    m_owner->itemChanged(this->index());
}

void QSprite::setItemGroup(qint32 group)
{
    setItem(group, m_index);
}

void QSprite::setItemIndex(qint32 index)
{
    setItem(m_group, index);
}

void QSprite::setOffset(const QPoint& offset)
{
    recordChange();
    m_x = offset.x();
    m_y = offset.y();
    m_owner->itemChanged(index());
}

void QSprite::setOffsetX(qint32 x)
{
    setOffset(QPoint(x, m_y));
}

void QSprite::setOffsetY(qint32 y)
{
    setOffset(QPoint(m_x, y));
}

void QSprite::setPalette(QSpritePalette* palette)
{
    recordChange();
    m_palette = palette;
    m_owner->itemChanged(index());
}

void QSprite::setFlag(QSpriteFlag flag, bool on)
{
    setFlags(on ? quint16(m_flags | flag) : quint16(m_flags & ~flag));
}

void QSprite::setFlags(quint16 flags)
{
    recordChange();
    m_flags = flags;
    m_owner->itemChanged(index());
}

void QSprite::setProperties(const QSpriteProperties& properties)
{
    recordChange();
    m_palette = m_owner->paletteAt(properties.palette);
    m_group = properties.group;
    m_index = properties.index;
    m_x = properties.x;
    m_y = properties.y;
    m_flags = properties.flags;
    m_owner->itemChanged(index());
}

int QSprite::nextGroup() const
{
    return nextGroupPosition(m_owner->count(), index(), [this](int i) { return m_owner->at(i)->itemGroup(); });
}

int QSprite::previousGroup() const
{
    return previousGroupPosition(m_owner->count(), index(),
                                 [this](int i) { return m_owner->at(i)->itemGroup(); });
}
