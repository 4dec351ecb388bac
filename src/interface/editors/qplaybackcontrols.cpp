#include "qplaybackcontrols.h"

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qsprites.h"
#include "qeditorpage.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"

#include <QAction>
#include <QToolBar>

namespace {
/// How strongly the onion skin shows, in percent.
constexpr int onionOpacity = 40;
} // namespace

QPlaybackControls::QPlaybackControls(QAnimSpriteWorkspace* view, QObject* parent)
    : QObject(parent)
    , m_view(view)
{
    connect(m_view, &QAnimSpriteWorkspace::frameChanged, this, &QPlaybackControls::updateOnion);
}

void QPlaybackControls::addActions(QWidget* page, QToolBar* toolBar)
{
    // Short names on the bar, the whole story in the tool tips.
    auto add = [&](const QString& name, const QString& text, const QString& tip, const QKeySequence& keys,
                   auto slot) {
        QAction* action = QEditorPage::addAction(page, toolBar, name, text, keys);
        action->setToolTip(QStringLiteral("%1 (%2)").arg(tip, keys.toString(QKeySequence::NativeText)));
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    add(QStringLiteral("anim_play"), tr("Play"), tr("Play the action"), QKeySequence(Qt::Key_F5),
        &QPlaybackControls::play);
    add(QStringLiteral("anim_pause"), tr("Pause"), tr("Pause on the frame shown"),
        QKeySequence(Qt::SHIFT | Qt::Key_F5), &QPlaybackControls::pause);
    add(QStringLiteral("anim_stop"), tr("Stop"), tr("Stop and go back to the first frame"),
        QKeySequence(Qt::Key_F6), &QPlaybackControls::stop);
    add(QStringLiteral("anim_step_tick"), tr("Tick"), tr("One tick on"), QKeySequence(Qt::Key_F8),
        &QPlaybackControls::stepTick);
    add(QStringLiteral("anim_step_frame"), tr("Frame"), tr("On to the next frame"), QKeySequence(Qt::SHIFT | Qt::Key_F8),
        &QPlaybackControls::stepFrame);
    toolBar->addSeparator();
    m_loop = QEditorPage::addAction(page, toolBar, QStringLiteral("anim_loop"), tr("Loop"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
    m_loop->setCheckable(true);
    m_loop->setToolTip(tr("Start over after the last frame, else end there (%1)")
                           .arg(m_loop->shortcut().toString(QKeySequence::NativeText)));
    m_loop->setChecked(m_view->isLooping());
    connect(m_loop, &QAction::toggled, m_view, &QAnimSpriteWorkspace::setLooping);
    m_onion = QEditorPage::addAction(page, toolBar, QStringLiteral("anim_onion"), tr("Onion"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    m_onion->setCheckable(true);
    m_onion->setToolTip(tr("Show the frame before faintly behind this one (%1)")
                            .arg(m_onion->shortcut().toString(QKeySequence::NativeText)));
    connect(m_onion, &QAction::toggled, this, &QPlaybackControls::updateOnion);
}

void QPlaybackControls::play()
{
    if (!m_view->isPlaying())
        m_view->play();
}

void QPlaybackControls::pause()
{
    m_view->stop();
}

void QPlaybackControls::stop()
{
    m_view->stop();
    emit rewound();
}

void QPlaybackControls::stepTick()
{
    m_view->stepTick();
}

void QPlaybackControls::stepFrame()
{
    m_view->stepFrame();
}

void QPlaybackControls::updateOnion()
{
    QSprRender* renderer = m_view->renderer();
    const QAnimation* action = renderer->animation();
    const bool on
        = m_onion && m_onion->isChecked() && action && renderer->frame() && action->frameCount() > 1;
    renderer->setOnionSkin(on, EffectMonochrome, onionOpacity);
    if (on) {
        const int position = int(renderer->frameIndex());
        const QAnimationFrame* before = action->frame(position > 0 ? position - 1 : action->frameCount() - 1);
        const QSprites* sprites = renderer->sprites();
        const int found = sprites ? sprites->find(0, before->spriteGroup(), before->spriteIndex()) : -1;
        renderer->setOnionOffset(before->offset());
        renderer->setOnionIndex(found >= 0 ? uint(found) : ~0u);
    }
    renderer->updateBounds();
    renderer->update();
}
