#include "qsprrender.h"

#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qsprite.h"
#include "model/qspritepalette.h"
#include "model/qsprites.h"
#include "render/qrenderhost.h"
#include "render/qzoomtable.h"

#include <QFileInfo>
#include <QLinearGradient>

/// The built-in pictures live in the core's resources, so the command-line
/// tool draws the same crosshairs as the window. (Outside any namespace: the
/// resource initialiser is a global function.)
static void loadResources()
{
    static const bool loaded = [] {
        Q_INIT_RESOURCE(render);
        return true;
    }();
    Q_UNUSED(loaded);
}

namespace {

const char* const crossFiles[2][3] = {
    { ":/imgs/Imgs/sff.png", ":/imgs/Imgs/air.png", ":/imgs/Imgs/extra.png" },
    { ":/imgs/Imgs/cruz.png", ":/imgs/Imgs/cruz2.png", ":/imgs/Imgs/cruz3.png" },
};

const char* const backgroundFiles[] = { ":/imgs/Imgs/240p.png", ":/imgs/Imgs/480p.png", ":/imgs/Imgs/720p.png",
                                        ":/imgs/Imgs/1080p.png" };

/// A rectangle from its left, top and its size scaled by `zoom`, the way
/// every screen rectangle of the view is formed: right = left - 1 + int(size * z).
QRect scaledRect(int left, int top, int width, int height, float zoom)
{
    QRect rect;
    rect.setCoords(left, top, left - 1 + int(width * zoom), top - 1 + int(height * zoom));
    return rect;
}

QImage crossImage(const QString& file, const char* fallback)
{
    if (!file.isEmpty() && QFileInfo::exists(file))
        return QImage(file);
    return QImage(QLatin1String(fallback));
}

} // namespace

QSprRender::QSprRender(QObject* parent) : QRenderer(parent)
{
    loadResources();
    setCrossHair(0, QString(), QString(), QString());
}

void QSprRender::setVisibility(bool clsn1, bool clsn2, bool clsn1Default, bool clsn2Default, bool rulers)
{
    m_showClsn[0] = clsn1;
    m_showClsn[1] = clsn2;
    m_showClsn[2] = clsn1Default;
    m_showClsn[3] = clsn2Default;
    m_showRulers = rulers;
}

void QSprRender::setCrossVisibility(bool sprite, bool animation)
{
    m_showMainCross = sprite;
    m_showAnimCross = animation;
}

void QSprRender::setPriority(bool clsnOverAxis, bool spriteOverGuides)
{
    m_clsnOverAxis = clsnOverAxis;
    m_spriteOverGuides = spriteOverGuides;
}

void QSprRender::setOnionSkin(bool on, QSpriteEffect effect, int opacityPercent)
{
    m_showOnion = on;
    m_onionEffect = effect;
    m_onionOpacity = qBound(0, opacityPercent, 100) / 100.0f;
}

void QSprRender::setBackground(const QColor& start, const QColor& end, unsigned char type, int x, int y,
                               const QString& file)
{
    m_backStart = start;
    m_backEnd = end;
    m_backPos = QPoint(x, y);
    if (type >= 1 && type <= 4)
        m_backImage = QImage(QLatin1String(backgroundFiles[type - 1]));
    else if (type == 5)
        m_backImage = QImage(file);
    else
        m_backImage = QImage();
    rebuildGradient();
    updateBounds();
}

void QSprRender::setCrossHair(unsigned char type, const QString& sprite, const QString& animation,
                              const QString& extra)
{
    if (type > 2)
        return;
    const int row = type == 1 ? 1 : 0;
    const bool files = type == 2;
    m_mainCross = crossImage(files ? sprite : QString(), crossFiles[row][0]);
    m_animCross = crossImage(files ? animation : QString(), crossFiles[row][1]);
    m_extraCross = crossImage(files ? extra : QString(), crossFiles[row][2]);
    updateBounds();
}

void QSprRender::setAxis(const QPoint& offset)
{
    if (!m_sprite) {
        m_effectiveAxis = -offset;
        return;
    }
    const int ax = m_sprite->offsetX();
    const int ay = m_sprite->offsetY();
    const int x = m_frame.flipH() ? m_spriteSize.width() - ax - 1 : ax;
    const int y = m_frame.flipV() ? m_spriteSize.height() - ay - 1 : ay;
    m_effectiveAxis = QPoint(x - offset.x(), y - offset.y());
}

void QSprRender::setViewTransColor(bool on)
{
    m_viewTransparent = on;
    update();
}

void QSprRender::setRenderMode(QRenderMode mode)
{
    m_mode = mode;
    reset();
}

void QSprRender::reset()
{
    showSprite(nullptr);
    m_animation = nullptr;
    forgetFrame();
    m_image = QImage();
    m_colorTable.clear();
}

void QSprRender::forgetFrame()
{
    m_frameModel = nullptr;
    m_clsns.clear();
    m_focused = -1;
    m_anySelected = false;
    m_hasFrame = false;
    m_frame = QFrameView();
}

void QSprRender::showSprite(QSprite* sprite)
{
    const bool other = sprite != m_sprite;
    m_sprite = sprite;
    const QImageInfo info = sprite ? sprite->imageInfo() : QImageInfo();
    m_spriteSize = QSize(info.width, info.height);
    if (other)
        emit spriteChanged();
}

void QSprRender::refresh()
{
    updateImg();
    update();
}

void QSprRender::update()
{
    if (host())
        host()->scheduleRepaint();
}

QSize QSprRender::hostSize() const
{
    return host() ? host()->hostSize() : QSize();
}

float QSprRender::zoom() const
{
    return QZoomTable::factor(m_zoomRow, m_zoomIndex);
}

int QSprRender::thickness() const
{
    return m_zoomIndex > 2 ? int(zoom()) : 1;
}

void QSprRender::setIndex(unsigned int index)
{
    reset();
    if (m_mode == RenderSprite) {
        if (m_sprites)
            showSprite(m_sprites->at(int(index)));
        validateZoom();
        updateImg();
    } else if (m_animations) {
        m_animationIndex = index;
        m_animation = m_animations->at(int(index));
    }
    updateBounds();
}

void QSprRender::setFrameView(const QFrameView& frame)
{
    m_hasFrame = true;
    m_frame = frame;
    showSprite(m_sprites ? m_sprites->at(m_sprites->find(0, frame.sprite.group, frame.sprite.index)) : nullptr);
    updateImg();
    validateZoom();
    updateBounds();
}

void QSprRender::clearFrame()
{
    forgetFrame();
    updateImg();
    updateBounds();
}

void QSprRender::updateImg()
{
    if (!m_sprite) {
        m_image = QImage();
        m_colorTable.clear();
        return;
    }
    m_image = m_sprite->image(sipDisplay);
    if (m_hasFrame && m_frame.flip != 0)
        m_image = m_image.mirrored(m_frame.flipH(), m_frame.flipV());
    m_colorTable = m_image.colorTable();
}

void QSprRender::setPalette(int index)
{
    QSpritePalette* palette = m_sprites ? m_sprites->paletteAt(index) : nullptr;
    if (!palette && m_sprite)
        palette = m_sprite->palette();
    if (!palette)
        return;
    QSubItem remapped;
    if (m_sprites && m_sprites->paletteMap()->find(palette->subItem(), remapped)) {
        if (QSpritePalette* target = m_sprites->paletteAt(m_sprites->findPalette(0, remapped.group, remapped.index)))
            palette = target;
    }
    m_colorTable = palette->colorTable();
}

void QSprRender::setOnionIndex(unsigned int index)
{
    m_onionSprite = m_sprites && index < unsigned(m_sprites->count()) ? m_sprites->at(int(index)) : nullptr;
    if (!m_onionSprite) {
        m_onionImage = QImage();
        return;
    }
    m_onionImage = m_onionSprite->image(sipOwn);
    if (m_onionImage.format() == QImage::Format_Indexed8)
        m_onionImage.setColorTable(QSpritePasses::applyEffect(m_onionEffect, m_onionImage.colorTable()));
    updateBounds();
}

int QSprRender::smallestZoomIndex() const
{
    if (!m_sprite)
        return 0;
    const int side = qMin(m_spriteSize.width(), m_spriteSize.height());
    return side < 2 ? 2 : side < 4 ? 1 : 0;
}

void QSprRender::validateZoom()
{
    if (m_sprite && m_zoomIndex < smallestZoomIndex())
        m_zoomIndex = quint8(smallestZoomIndex());
}

void QSprRender::applyZoom(int index)
{
    const QSize size = hostSize();
    const float before = zoom();
    const QPoint centre(qRound((size.width() / 2 - m_axis.x()) / before),
                        qRound((size.height() / 2 - m_axis.y()) / before));
    m_zoomIndex = quint8(index);
    if (m_zoomMode == ZoomOnCenter) {
        const float after = zoom();
        m_axis = QPoint(size.width() / 2 - int(centre.x() * after), size.height() / 2 - int(centre.y() * after));
    }
}

void QSprRender::setZoom(unsigned char index)
{
    // 255 is what subZoom() makes of index 0 less one.
    applyZoom(index == 255 ? 0 : qMin<int>(index, QZoomTable::steps - 1));
    updateBounds();
}

void QSprRender::setZoomTable(unsigned char row)
{
    m_zoomRow = quint8(qMin<int>(row, QZoomTable::rows - 1));
    m_zoomIndex = quint8(qMin<int>(m_zoomIndex, QZoomTable::steps - 1));
    updateBounds();
}

void QSprRender::addZoom()
{
    setZoom(m_zoomIndex + 1);
    updatePos();
}

void QSprRender::subZoom()
{
    if (m_zoomIndex <= smallestZoomIndex() && m_zoomIndex > 0)
        return;
    setZoom(quint8(m_zoomIndex - 1));
    updatePos();
}

void QSprRender::zoomActual()
{
    setZoom(QZoomTable::actualIndex(m_zoomRow));
    updatePos();
}

void QSprRender::updatePos()
{
    updateBounds();
    update();
}

void QSprRender::rebuildGradient()
{
    QLinearGradient gradient(0, 0, 0, qMax(1, hostSize().height()));
    gradient.setColorAt(0, m_backStart);
    gradient.setColorAt(1, m_backEnd);
    m_gradient = QBrush(gradient);
}

void QSprRender::sizeChanged()
{
    rebuildGradient();
    updateBounds();
}

void QSprRender::updateBounds()
{
    const float z = zoom();
    const int X = m_axis.x();
    const int Y = m_axis.y();

    m_backgroundRect = m_backImage.isNull()
        ? QRect()
        : scaledRect(int(m_backPos.x() * z + X), int(m_backPos.y() * z + Y), m_backImage.width(),
                     m_backImage.height(), z);

    if (!m_sprite) {
        m_spriteRect = QRect();
    } else if (m_hasFrame || m_mode == RenderSprite) {
        if (m_hasFrame)
            setAxis(m_frame.offset);
        else
            m_effectiveAxis = m_sprite->offset();
        m_spriteRect = scaledRect(int(X - m_effectiveAxis.x() * z), int(Y - m_effectiveAxis.y() * z),
                                  m_spriteSize.width(), m_spriteSize.height(), z);
    } else {
        m_spriteRect = scaledRect(m_spriteRect.left(), m_spriteRect.top(), m_spriteSize.width(),
                                  m_spriteSize.height(), z);
    }

    if (m_showOnion && m_onionSprite && !m_onionImage.isNull())
        m_onionRect = scaledRect(int(X + (m_onionOffset.x() - m_onionSprite->offsetX()) * z),
                                 int(Y + (m_onionOffset.y() - m_onionSprite->offsetY()) * z),
                                 m_onionImage.width(), m_onionImage.height(), z);
    else
        m_onionRect = QRect();

    // Crosshair pictures grow by whole factors only, and never shrink.
    const int s = z > 1 ? int(z) : 1;
    const int half = z > 1 ? s / 2 : 0;
    auto crossRect = [&](const QImage& image, int x, int y) {
        QRect rect;
        const int left = x + half - (image.width() * s >> 1);
        const int top = y + half - (image.height() * s >> 1);
        rect.setCoords(left, top, left + image.width() * s - 1, top + image.height() * s - 1);
        return rect;
    };
    m_mainCrossRect = crossRect(m_mainCross, X, Y);
    m_animCrossRect = m_hasFrame
        ? crossRect(m_animCross, X + int(z * m_frame.offset.x()), Y + int(z * m_frame.offset.y()))
        : QRect();
    m_extraCrossRect = crossRect(m_extraCross, X + int(z * m_extraPos.x()), Y + int(z * m_extraPos.y()));

    if (m_mode != RenderAnimation)
        return;
    for (QRenderCLSN& record : m_clsns) {
        if (!record.box)
            continue;
        const QRect box = record.box->rect();
        record.rect = scaledRect(int(box.left() * z + X), int(box.top() * z + Y), box.width(), box.height(), z);
    }
    if (m_anySelected)
        updateCLSNSizers();
}
