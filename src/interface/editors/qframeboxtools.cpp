#include "qframeboxtools.h"

#include "model/qanimation.h"
#include "model/qanimationedit.h"
#include "model/qanimationframe.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "qeditorpage.h"
#include "render/qsprrender.h"

#include <QAction>
#include <QLabel>
#include <QToolBar>

QFrameBoxTools::QFrameBoxTools(QSprRender* renderer, QObject* parent)
    : QObject(parent)
    , m_renderer(renderer)
{
    // The right button ends drawing in the view: the commands follow.
    connect(m_renderer, &QSprRender::clsnModeExit, this, [this] {
        for (QAction* draw : m_draw)
            if (draw)
                draw->setChecked(false);
    });
}

void QFrameBoxTools::addActions(QWidget* page, QToolBar* toolBar)
{
    toolBar->addWidget(new QLabel(tr("Boxes")));
    for (const bool clsn2 : { false, true }) {
        QAction*& draw = m_draw[clsn2 ? 1 : 0];
        draw = QEditorPage::addAction(page, toolBar,
            clsn2 ? QStringLiteral("anim_draw_clsn2") : QStringLiteral("anim_draw_clsn1"),
            clsn2 ? tr("Clsn2") : tr("Clsn1"), QKeySequence(Qt::ALT | (clsn2 ? Qt::Key_2 : Qt::Key_1)));
        draw->setCheckable(true);
        draw->setToolTip(tr("Draw %1 boxes with the mouse; the right button ends (%2)")
                             .arg(draw->text(), draw->shortcut().toString(QKeySequence::NativeText)));
        connect(draw, &QAction::toggled, this, [this, clsn2](bool on) { setDrawing(clsn2, on); });
    }
    // Short names on the bar, the whole story in the tool tips.
    auto add = [&](const QString& name, const QString& text, const QString& tip, const QKeySequence& keys,
                   auto slot) {
        QAction* action = QEditorPage::addAction(page, toolBar, name, text, keys);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(tip, keys.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, slot);
    };
    add(QStringLiteral("anim_delete_boxes"), tr("Delete"), tr("Delete the selected boxes"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete), &QFrameBoxTools::removeSelected);
    add(QStringLiteral("anim_boxes_default"), tr("Default"),
        tr("Make the selected boxes defaults of the frames that follow, or the frame's own again"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D), [this] { m_renderer->changeCLSNType(true); });
    add(QStringLiteral("anim_boxes_retype"), tr("Swap 1/2"),
        tr("Make the selected boxes Clsn2 if Clsn1, or Clsn1"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_T), [this] { m_renderer->changeCLSNType(false); });
    add(QStringLiteral("anim_boxes_to_next"), tr("To next"),
        tr("Give the next frame the boxes of this one, and go on to it"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B), &QFrameBoxTools::copyToNext);
    add(QStringLiteral("anim_boxes_to_all"), tr("To all"),
        tr("Give every frame of the action the boxes of this one"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A), &QFrameBoxTools::copyToAll);
}

void QFrameBoxTools::setDrawing(bool clsn2, bool on)
{
    QAction* other = m_draw[clsn2 ? 0 : 1];
    if (on && other && other->isChecked()) {
        const QSignalBlocker blocker(other);
        other->setChecked(false);
    }
    if (on || !(other && other->isChecked()))
        m_renderer->clsnCreationMode(on, clsn2 ? cbtClsn2 : cbtClsn1);
}

void QFrameBoxTools::copyBoxes(QAnimation* action, int source, const QList<int>& rows)
{
    const QAnimationFrame* from = action ? action->frame(source) : nullptr;
    if (!from)
        return;
    // The rectangles are taken first: each box written re-reads the text, and the frames with it.
    QList<QRect> rects[2];
    for (QCollisionBoxType type : { cbtClsn1, cbtClsn2 })
        if (const QCollisionBoxes* boxes = from->collisionBoxes(type))
            for (const QCollisionBox* box : boxes->boxes())
                rects[type].append(box->rect());
    if (rects[0].isEmpty() && rects[1].isEmpty())
        return;
    QAnimationEdit edit(action->editor());
    for (int row : rows) {
        if (row == source || !action->frame(row))
            continue;
        for (QCollisionBoxType type : { cbtClsn1, cbtClsn2 }) {
            if (rects[type].isEmpty())
                continue;
            if (QCollisionBoxes* old = action->frame(row)->collisionBoxes(type))
                old->clear();
            for (const QRect& rect : rects[type])
                action->frame(row)->insertBox(type, rect);
        }
    }
}

void QFrameBoxTools::copyToNext()
{
    QAnimation* action = m_renderer->animation();
    const int row = int(m_renderer->frameIndex());
    if (!action || !m_renderer->frame() || row + 1 >= action->frameCount())
        return;
    copyBoxes(action, row, { row + 1 });
    emit showFrame(row + 1);
}

void QFrameBoxTools::copyToAll()
{
    QAnimation* action = m_renderer->animation();
    if (!action || !m_renderer->frame())
        return;
    QList<int> rows;
    for (int row = 0; row < action->frameCount(); ++row)
        rows.append(row);
    copyBoxes(action, int(m_renderer->frameIndex()), rows);
}

void QFrameBoxTools::removeSelected()
{
    m_renderer->removeCLSNs();
}
