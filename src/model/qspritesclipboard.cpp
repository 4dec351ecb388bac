// Sprites on the clipboard: pixels, own colours and properties, so that a
// paste into another file gives the same sprites.

#include "qsprites.h"

#include <QDataStream>
#include <QVariantMap>
#include <cstring>

namespace {

QByteArray colorBytes(const QVector<QRgb>& table)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    for (QRgb colour : table)
        stream << quint32(colour);
    return bytes;
}

QVector<QRgb> colorTable(const QByteArray& bytes)
{
    QVector<QRgb> table;
    QDataStream stream(bytes);
    stream.setByteOrder(QDataStream::LittleEndian);
    while (!stream.atEnd() && table.size() < 256) {
        quint32 colour = 0;
        stream >> colour;
        table.append(colour);
    }
    return table;
}

QVariantMap spriteEntry(const QSprite* sprite)
{
    QVariantMap entry;
    entry[QStringLiteral("group")] = sprite->itemGroup();
    entry[QStringLiteral("index")] = sprite->itemIndex();
    entry[QStringLiteral("x")] = sprite->offsetX();
    entry[QStringLiteral("y")] = sprite->offsetY();
    entry[QStringLiteral("flags")] = sprite->flags();
    const QImage image = sprite->image(sipOwn);
    if (!image.isNull()) {
        entry[QStringLiteral("width")] = image.width();
        entry[QStringLiteral("height")] = image.height();
        entry[QStringLiteral("format")] = int(image.format());
        entry[QStringLiteral("pixels")] =
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
        entry[QStringLiteral("colors")] = colorBytes(image.colorTable());
    }
    return entry;
}

/// The picture of an entry; null when it has none or it does not add up.
QImage entryImage(const QVariantMap& entry)
{
    const QByteArray pixels = entry.value(QStringLiteral("pixels")).toByteArray();
    const auto format = QImage::Format(entry.value(QStringLiteral("format")).toInt());
    if (pixels.isEmpty()
        || (format != QImage::Format_Indexed8 && format != QImage::Format_RGB32 && format != QImage::Format_ARGB32))
        return QImage();
    QImage image(entry.value(QStringLiteral("width")).toInt(), entry.value(QStringLiteral("height")).toInt(),
                 format);
    if (image.isNull() || image.sizeInBytes() != pixels.size())
        return QImage();
    std::memcpy(image.bits(), pixels.constData(), size_t(pixels.size()));
    if (format == QImage::Format_Indexed8)
        image.setColorTable(colorTable(entry.value(QStringLiteral("colors")).toByteArray()));
    return image;
}

} // namespace

QString QSprites::mimeType()
{
    return QStringLiteral("application/x-pugilforge-sprites");
}

QMimeData* QSprites::copy(const QList<int>& positions) const
{
    QVariantList entries;
    QImage first;
    for (int position : positions) {
        if (const QSprite* sprite = at(position)) {
            entries.append(spriteEntry(sprite));
            if (first.isNull())
                first = sprite->image(sipOwn);
        }
    }
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << entries;
    auto* data = new QMimeData;
    data->setData(mimeType(), bytes);
    // Other programs get the first picture.
    if (!first.isNull())
        data->setImageData(first);
    return data;
}

int QSprites::paste(const QMimeData* data, int position)
{
    if (!data || !data->hasFormat(mimeType()))
        return 0;
    QVariantList entries;
    QDataStream stream(data->data(mimeType()));
    stream >> entries;
    if (stream.status() != QDataStream::Ok)
        return 0;
    if (position < 0 || position > m_sprites.size())
        position = m_sprites.size();
    beginMacro(QStringLiteral("paste"));
    for (const QVariant& value : std::as_const(entries)) {
        const QVariantMap entry = value.toMap();
        QSprite* sprite = insert(position);
        QSpriteProperties properties;
        properties.group = entry.value(QStringLiteral("group")).toInt();
        properties.index = entry.value(QStringLiteral("index")).toInt();
        properties.x = entry.value(QStringLiteral("x")).toInt();
        properties.y = entry.value(QStringLiteral("y")).toInt();
        properties.flags = quint16(entry.value(QStringLiteral("flags")).toUInt());
        sprite->setProperties(properties);
        sprite->setImage(entryImage(entry));
        ++position;
    }
    endMacro();
    return int(entries.size());
}
