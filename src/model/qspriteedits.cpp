// The composite edits of one sprite: each is a single undoable step built
// from the primitive edits.

#include "qsprite.h"

#include "formats/qimagefiles.h"
#include "formats/qrgbpalette.h"
#include "image/qopaquebounds.h"
#include "model/qspritecommands.h"
#include "model/qspriteimagedata.h"
#include "model/qsprites.h"

#include <cstring>

namespace {

/// A palette whose entry i is level i of one channel (0 red, 1 green, 2 blue),
/// entry 0 transparent.
void channelRamp(int channel, QRGBA (&colors)[256])
{
    for (int i = 0; i < 256; ++i) {
        const uchar level = uchar(i);
        colors[i] = QRGBA(channel == 0 ? level : 0, channel == 1 ? level : 0, channel == 2 ? level : 0, 255);
    }
    colors[0].a = 0;
}

/// One channel of a true-colour picture as indexes, weighted by alpha.
QImage channelImage(const QImage& source, int channel)
{
    QImage target(source.size(), QImage::Format_Indexed8);
    QRGBA ramp[256];
    channelRamp(channel, ramp);
    const QVector<QRgb> table = paletteToColorTable(ramp);
    target.setColorTable(table);
    for (int y = 0; y < source.height(); ++y) {
        const QRgb* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* out = target.scanLine(y);
        for (int x = 0; x < source.width(); ++x) {
            const int value = channel == 0 ? qRed(in[x]) : (channel == 1 ? qGreen(in[x]) : qBlue(in[x]));
            out[x] = uchar(value * qAlpha(in[x]) / 255);
        }
    }
    return target;
}

} // namespace

void QSprite::replaceImage(const QImage& image)
{
    if (!m_owner->isChangeLocked())
        m_owner->pushCommand(new SpriteChangeImage(m_owner, index()));
    QList<int> none;
    applyImage(image, imageIsShared() ? ssmPrivate : ssmShared, none);
    m_owner->itemChanged(index());
}

QSprite* QSprite::duplicate()
{
    const int position = index() + 1;
    m_owner->beginMacro(QStringLiteral("duplicate"));
    QSprite* copy = m_owner->insert(position);
    QSpriteProperties properties = this->properties();
    properties.index = m_owner->nextSpriteIndex(m_group);
    copy->setProperties(properties);
    if (!m_owner->isChangeLocked())
        m_owner->pushCommand(new SpriteChangeImage(m_owner, position));
    copy->shareImage(m_image);
    m_owner->endMacro();
    m_owner->itemChanged(position);
    return copy;
}

bool QSprite::crop()
{
    const QImage present = image();
    if (present.isNull())
        return false;
    const QRect bounds = opaqueBounds(present);
    if (bounds.isEmpty() || bounds == present.rect())
        return false;
    m_owner->beginMacro(QStringLiteral("crop"));
    replaceImage(present.copy(bounds));
    setOffset(QPoint(m_x - bounds.left(), m_y - bounds.top()));
    m_owner->endMacro();
    return true;
}

bool QSprite::saveAligned(const QString& fileName, const QRect& frame) const
{
    QImage source = image(sipOwn);
    if (source.isNull() || frame.isEmpty())
        return false;
    if (source.format() == QImage::Format_RGB32)
        source = source.convertToFormat(QImage::Format_ARGB32);
    QImage canvas(frame.size(), source.format());
    if (source.format() == QImage::Format_Indexed8)
        canvas.setColorTable(source.colorTable());
    canvas.fill(0);
    // The sprite's top left corner stands at minus the axis.
    const QRect placed(QPoint(-m_x, -m_y) - frame.topLeft(), source.size());
    const QRect visible = placed.intersected(canvas.rect());
    const int bytesPerPixel = source.depth() / 8;
    for (int y = visible.top(); y <= visible.bottom(); ++y)
        std::memcpy(canvas.scanLine(y) + visible.left() * bytesPerPixel,
                    source.constScanLine(y - placed.top()) + (visible.left() - placed.left()) * bytesPerPixel,
                    size_t(visible.width() * bytesPerPixel));
    return saveImage(fileName, canvas);
}

bool QSprite::splitRGB()
{
    const QImage present = image();
    if (present.isNull() || present.format() == QImage::Format_Indexed8)
        return false;
    const QImage source = present.convertToFormat(QImage::Format_ARGB32);
    m_owner->beginMacro(QStringLiteral("splitRGB"));
    QSprite* part = this;
    for (int channel = 0; channel < 3; ++channel) {
        QRGBA ramp[256];
        channelRamp(channel, ramp);
        QSpritePalette* palette = m_owner->addPalette(ramp, spsReuse, 0, -1);
        if (channel > 0) {
            part = m_owner->insert(index() + channel);
            QSpriteProperties properties = this->properties();
            properties.index = m_owner->nextSpriteIndex(m_group);
            part->setProperties(properties);
        }
        part->replaceImage(channelImage(source, channel));
        part->setPalette(palette);
    }
    m_owner->endMacro();
    return true;
}
