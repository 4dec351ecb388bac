// Collision boxes on the sprite view: the list of the frame's boxes, their
// painting, hit tests and every change the mouse and keys make to them.
#include "qsprrender.h"

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "render/qrenderhost.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>

namespace {

/// Index into the colour list, which runs Clsn1, Clsn1 default, Clsn2, Clsn2 default.
int colorSlot(QCollisionBoxType type)
{
    return ((type & 1) << 1) | ((type >> 1) & 1);
}

/// Raises the flag that makes the view ignore the notices of its own changes.
/// Adds the list `box` is in to `lists`, once.
void listOf(const QCollisionBox* box, QList<QCollisionBoxes*>& lists)
{
    if (QCollisionBoxes* list = box->parent(); list && !lists.contains(list))
        lists.append(list);
}

/// Removes the declarations of `lists` that lost all their boxes: an empty
/// list of the frame's own would hide the defaults from it.
void dropEmpty(const QList<QCollisionBoxes*>& lists)
{
    for (QCollisionBoxes* list : lists)
        if (list->count() == 0)
            list->clear();
}

class ModelChange
{
public:
    ModelChange(bool& flag, QAnimations* animations) : m_flag(flag), m_animations(animations)
    {
        m_flag = true;
        if (m_animations)
            m_animations->beginChange();
    }
    ~ModelChange()
    {
        if (m_animations)
            m_animations->endChange();
        m_flag = false;
    }

private:
    bool& m_flag;
    QAnimations* m_animations;
};

} // namespace

void QSprRender::setAnimations(QAnimations* animations)
{
    if (m_animations)
        disconnect(m_animations, nullptr, this, nullptr);
    m_animations = animations;
    m_animation = nullptr;
    m_frameModel = nullptr;
    if (m_animations)
        connect(m_animations, &QAnimations::changed, this, &QSprRender::animationsChanged);
}

void QSprRender::setCLSNColor(const QColor& clsn1, const QColor& clsn1Default, const QColor& clsn2,
                              const QColor& clsn2Default, int opacityPercent)
{
    m_clsnColors[0] = clsn1;
    m_clsnColors[1] = clsn1Default;
    m_clsnColors[2] = clsn2;
    m_clsnColors[3] = clsn2Default;
    m_clsnOpacity = qBound(0, opacityPercent, 100) / 100.0f;
}

void QSprRender::animationsChanged()
{
    if (m_changingModel || m_mode != RenderAnimation || !m_animations)
        return;
    // A text edit may have removed or replaced the action shown.
    if (!m_animations->animations().contains(m_animation))
        m_animation = m_animations->at(int(m_animationIndex));
    const bool wasFrame = m_hasFrame;
    setFrame(m_frameIndex);
    if (wasFrame || m_hasFrame)
        update();
}

void QSprRender::setFrame(unsigned int index)
{
    m_frameIndex = index;
    forgetFrame();
    m_frameModel = m_animation ? m_animation->frame(int(index)) : nullptr;
    if (!m_frameModel) {
        showSprite(nullptr);
        m_image = QImage();
        return;
    }
    setFrameView(frameViewOf(*m_frameModel));
    updateCLSNs();
    updateBounds();
}

void QSprRender::updateCLSNs()
{
    m_clsns.clear();
    m_focused = -1;
    m_anySelected = false;
    if (!m_frameModel)
        return;
    // A frame's own boxes hide the defaults; a default lasts until a frame has its own.
    for (bool clsn2 : { false, true }) {
        const QCollisionBoxes* list = m_frameModel->activeBoxes(clsn2);
        if (!list)
            continue;
        for (QCollisionBox* box : list->boxes()) {
            QRenderCLSN record;
            record.box = box;
            record.type = list->clsnType();
            m_clsns.append(record);
        }
    }
}

void QSprRender::updateCLSNSizers()
{
    QRect bounds = selectionBounds();
    const int left = bounds.left(), top = bounds.top(), right = bounds.right(), bottom = bounds.bottom();
    const int midX = m_anySelected ? (right - left) / 2 + left : 0;
    const int midY = m_anySelected ? (bottom - top) / 2 + top : 0;
    m_sizers[0] = QPoint(left, top);
    m_sizers[1] = QPoint(midX, top);
    m_sizers[2] = QPoint(right, top);
    m_sizers[3] = QPoint(right, midY);
    m_sizers[4] = QPoint(left, midY);
    m_sizers[5] = QPoint(left, bottom);
    m_sizers[6] = QPoint(midX, bottom);
    m_sizers[7] = QPoint(right, bottom);
}

QRect QSprRender::selectionBounds() const
{
    int left = 5000, top = 5000, right = -5000, bottom = -5000;
    for (const QRenderCLSN& record : m_clsns) {
        if (!record.selected)
            continue;
        left = qMin(left, record.rect.left());
        top = qMin(top, record.rect.top());
        right = qMax(right, record.rect.right());
        bottom = qMax(bottom, record.rect.bottom());
    }
    QRect bounds;
    bounds.setCoords(left, top, right, bottom);
    return bounds;
}

void QSprRender::renderCLSNs(QPainter* painter)
{
    if (m_mode != RenderAnimation)
        return;
    const int t = thickness();
    painter->setPen(Qt::NoPen);
    for (const QRenderCLSN& record : m_clsns) {
        if (!m_showClsn[record.type])
            continue;
        const QColor color = m_clsnColors[colorSlot(record.type)];
        const QRect& r = record.rect;
        if (record.selected)
            painter->fillRect(r, QBrush(color, record.type & 2 ? Qt::FDiagPattern : Qt::BDiagPattern));
        painter->setOpacity(m_clsnOpacity);
        painter->fillRect(r.left(), r.top(), t, r.height(), color);
        painter->fillRect(r.left(), r.top(), r.width(), t, color);
        painter->fillRect(r.right() - t + 1, r.top(), t, r.height(), color);
        painter->fillRect(r.left(), r.bottom() - t + 1, r.width(), t, color);
        painter->setOpacity(1.0);
    }
    if (!m_anySelected || (m_creating && m_buttonDown))
        return;
    QPen pen(Qt::gray, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    painter->setPen(pen);
    painter->setBrush(Qt::white);
    for (const QPoint& sizer : m_sizers)
        painter->drawRect(sizer.x() - 4, sizer.y() - 4, 8, 8);
    painter->setBrush(Qt::NoBrush);
}

bool QSprRender::hitTestCLSN(const QPoint& point, QRenderElement& element, bool cycle) const
{
    if (m_mode != RenderAnimation || m_clsns.isEmpty())
        return false;
    if (m_anySelected) {
        for (int i = 0; i < 8; ++i) {
            if (QRect(m_sizers[i].x() - 4, m_sizers[i].y() - 4, 8, 8).contains(point)) {
                element = QRenderElement(ElementSizerTL + i);
                return true;
            }
        }
    }
    bool hitFocused = false;
    for (int i = 0; i < m_clsns.size(); ++i) {
        const QRenderCLSN& record = m_clsns[i];
        if (!m_showClsn[record.type] || !record.rect.contains(point))
            continue;
        if (i == m_focused) {
            hitFocused = true;
            continue;
        }
        // Another box under the point: a click moves the focus on to it, so
        // repeated clicks walk through overlapping boxes.
        if (cycle)
            m_focused = i;
        element = ElementClsn;
        return true;
    }
    if (hitFocused)
        element = ElementClsn;
    return hitFocused;
}

void QSprRender::selectCLSN(int index, bool add)
{
    if (index < 0 || index >= m_clsns.size())
        return;
    if (!add)
        for (QRenderCLSN& record : m_clsns)
            record.selected = false;
    m_focused = index;
    m_clsns[index].selected = true;
    m_anySelected = true;
    updateCLSNSizers();
}

void QSprRender::unselectCLSN()
{
    for (QRenderCLSN& record : m_clsns)
        record.selected = false;
    m_anySelected = false;
    updateCLSNSizers();
}

void QSprRender::clsnCreationMode(bool on, QCollisionBoxType type)
{
    m_creating = on;
    m_newType = type;
    if (on)
        unselectCLSN();
}

void QSprRender::startCLSN(QPoint point)
{
    for (QRenderCLSN& record : m_clsns)
        record.selected = false;
    const int step = int(zoom());
    if (zoom() > 1)
        point -= QPoint(point.x() % step, point.y() % step);
    QRenderCLSN record;
    record.type = m_newType;
    record.rect = record.start = QRect(point, point);
    record.selected = true;
    m_clsns.append(record);
    m_anchor = QRect(point, point + QPoint(1, 1));
    m_focused = int(m_clsns.size()) - 1;
    m_anySelected = true;
}

void QSprRender::pressCLSN(const QPoint& point, QRenderElement element, Qt::KeyboardModifiers modifiers)
{
    if (element == ElementClsn && m_focused >= 0) {
        const bool keep = m_anySelected && (modifiers & Qt::ShiftModifier);
        if (!keep && !m_clsns[m_focused].selected)
            unselectCLSN();
        selectCLSN(m_focused, true);
    }
    // The drag starts from the rectangles as they are now.
    for (QRenderCLSN& record : m_clsns)
        if (record.selected)
            record.start = record.rect;
    m_anchor = selectionBounds();
    Q_UNUSED(point);
    update();
}

void QSprRender::sizeMoveCLSN(bool resize, QRenderElement element, const QPoint& delta)
{
    if (m_clsns.isEmpty())
        return;
    if (!resize) {
        for (QRenderCLSN& record : m_clsns)
            if (record.selected)
                record.rect.translate(delta);
        for (QPoint& sizer : m_sizers)
            sizer += delta;
        return;
    }
    int dx = delta.x(), dy = delta.y();
    const bool left = element == ElementSizerTL || element == ElementSizerL || element == ElementSizerBL;
    const bool right = element == ElementSizerTR || element == ElementSizerR || element == ElementSizerBR;
    const bool top = element == ElementSizerTL || element == ElementSizerT || element == ElementSizerTR;
    const bool bottom = element == ElementSizerBL || element == ElementSizerB || element == ElementSizerBR;
    if (!left && !right)
        dx = 0;
    if (!top && !bottom)
        dy = 0;
    if (left)
        dx = -dx;
    if (top)
        dy = -dy;
    const int w = m_anchor.right() - m_anchor.left();
    const int h = m_anchor.bottom() - m_anchor.top();
    const double sx = w ? double(dx + w) / w : 1.0;
    const double sy = h ? double(dy + h) / h : 1.0;
    // All selected boxes scale as one group about the anchor.
    for (QRenderCLSN& record : m_clsns) {
        if (!record.selected)
            continue;
        const QRect& s = record.start;
        int l = int((s.left() - m_anchor.left()) * sx + m_anchor.left());
        int t = int((s.top() - m_anchor.top()) * sy + m_anchor.top());
        if (left)
            l -= dx;
        if (top)
            t -= dy;
        const int r = l + int((s.right() + 1 - s.left()) * sx) - 1;
        const int b = t + int((s.bottom() + 1 - s.top()) * sy) - 1;
        record.rect.setCoords(l, t, r, b);
    }
    if (!m_creating)
        updateCLSNSizers();
}

QRect QSprRender::adjustCLSN(const QRect& rect, float zoom) const
{
    const QRect r = rect.normalized();
    const int width = qRound((r.right() + 1 - r.left()) / zoom);
    const int height = qRound((r.bottom() + 1 - r.top()) / zoom);
    const int x = qRound((r.left() - m_axis.x()) / zoom);
    const int y = qRound((r.top() - m_axis.y()) / zoom);
    return QRect(x, y, width, height);
}

void QSprRender::releaseCLSN()
{
    const float z = zoom();
    if (m_creating) {
        const QRenderCLSN record = m_clsns.takeLast();
        const QRect r = record.rect.normalized();
        QCollisionBox* made = nullptr;
        if (m_moved && m_frameModel && r.left() != r.right() && r.top() != r.bottom()) {
            ModelChange change(m_changingModel, nullptr);
            made = m_frameModel->insertBox(m_newType, adjustCLSN(r, z));
        }
        updateCLSNs();
        updateBounds();
        for (int i = 0; i < m_clsns.size(); ++i)
            if (made && m_clsns[i].box == made)
                selectCLSN(i);
        update();
        return;
    }
    if (!m_moved)
        return;
    {
        // One undo step for the whole drag, however many boxes moved.
        ModelChange change(m_changingModel, m_animations);
        for (QRenderCLSN& record : m_clsns)
            if (record.selected && record.box)
                record.box->setRect(adjustCLSN(record.rect, z));
    }
    // The boxes snap to what the file now says, so that the next drag starts from it.
    updateBounds();
    update();
}

void QSprRender::moveCLSNs(const QPoint& delta)
{
    const float z = zoom();
    const QPoint screen(qRound(delta.x() * z), qRound(delta.y() * z));
    {
        ModelChange change(m_changingModel, nullptr);
        for (QRenderCLSN& record : m_clsns) {
            if (!record.selected)
                continue;
            if (record.box)
                record.box->setRect(record.box->rect().translated(delta));
            record.rect.translate(screen);
        }
    }
    for (QPoint& sizer : m_sizers)
        sizer += screen;
    update();
}

void QSprRender::changeCLSNType(bool switchDefault)
{
    if (!m_anySelected || !m_frameModel)
        return;
    {
        ModelChange change(m_changingModel, m_animations);
        QList<QCollisionBoxes*> lists;
        for (QRenderCLSN& record : m_clsns) {
            if (!record.selected || !record.box)
                continue;
            const QRect rect = record.box->rect();
            const QCollisionBoxType type = QCollisionBoxType(record.type ^ (switchDefault ? 2 : 1));
            listOf(record.box, lists);
            record.box->remove(true);
            record.box = m_frameModel->insertBox(type, rect);
            record.type = type;
        }
        dropEmpty(lists);
    }
    // The model renumbered around the change; show it as it now stands, the
    // same boxes still selected.
    QList<QCollisionBox*> selected;
    for (const QRenderCLSN& record : m_clsns)
        if (record.selected)
            selected.append(record.box);
    updateCLSNs();
    updateBounds();
    for (int i = 0; i < m_clsns.size(); ++i)
        if (selected.contains(m_clsns[i].box))
            selectCLSN(i, true);
    update();
}

void QSprRender::removeCLSNs()
{
    if (!m_anySelected)
        return;
    {
        ModelChange change(m_changingModel, m_animations);
        QList<QCollisionBoxes*> lists;
        for (int i = int(m_clsns.size()) - 1; i >= 0; --i) {
            if (m_clsns[i].selected && m_clsns[i].box) {
                listOf(m_clsns[i].box, lists);
                m_clsns[i].box->remove(true);
            }
        }
        dropEmpty(lists);
    }
    updateCLSNs();
    updatePos();
}

bool QSprRender::copyCLSNs()
{
    if (!m_anySelected)
        return false;
    QString text;
    // Default blocks first, then the frame's own, each numbered from 0.
    for (QCollisionBoxType type : { cbtClsn1Default, cbtClsn2Default, cbtClsn1, cbtClsn2 }) {
        QString lines;
        int count = 0;
        for (const QRenderCLSN& record : m_clsns) {
            if (!record.selected || record.type != type || !record.box)
                continue;
            const QRect r = record.box->rect();
            lines += QStringLiteral("  Clsn%1[%2] = %3, %4, %5, %6\n")
                         .arg(type & 1 ? 2 : 1)
                         .arg(count++)
                         .arg(r.left())
                         .arg(r.top())
                         .arg(r.right())
                         .arg(r.bottom());
        }
        if (count > 0)
            text += collisionDeclarationText(type, count) + QLatin1Char('\n') + lines;
    }
    QGuiApplication::clipboard()->setText(text);
    return true;
}

bool QSprRender::pasteCLSNs()
{
    if (!m_frameModel)
        return false;
    const QString text = QGuiApplication::clipboard()->text();
    // Boxes only: a whole animation goes to the animations list instead.
    if (!text.contains(QLatin1String("Clsn"), Qt::CaseInsensitive)
        || text.contains(QLatin1String("begin"), Qt::CaseInsensitive))
        return false;
    {
        ModelChange change(m_changingModel, nullptr);
        m_frameModel->insertBoxes(text);
    }
    unselectCLSN();
    updateCLSNs();
    updatePos();
    return true;
}
