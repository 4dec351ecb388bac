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
    auto add = [&](const QString& name, const QString& text, const QKeySequence& keys, auto slot) {
        QAction* action = QEditorPage::addAction(page, toolBar, name, text, keys);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    add(QStringLiteral("anim_play"), tr("Play"), QKeySequence(Qt::Key_F5), &QPlaybackControls::play);
    add(QStringLiteral("anim_pause"), tr("Pause"), QKeySequence(Qt::SHIFT | Qt::Key_F5),
        &QPlaybackControls::pause);
    add(QStringLiteral("anim_stop"), tr("Stop"), QKeySequence(Qt::Key_F6), &QPlaybackControls::stop);
    add(QStringLiteral("anim_step_tick"), tr("Tick"), QKeySequence(Qt::Key_F8), &QPlaybackControls::stepTick)
        ->setToolTip(tr("One tick on (F8)"));
    add(QStringLiteral("anim_step_frame"), tr("Next frame"), QKeySequence(Qt::Key_F9),
        &QPlaybackControls::stepFrame);
    toolBar->addSeparator();
    m_loop = QEditorPage::addAction(page, toolBar, QStringLiteral("anim_loop"), tr("Loop"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L));
    m_loop->setCheckable(true);
    m_loop->setChecked(m_view->isLooping());
    connect(m_loop, &QAction::toggled, m_view, &QAnimSpriteWorkspace::setLooping);
    m_onion = QEditorPage::addAction(page, toolBar, QStringLiteral("anim_onion"), tr("Onion skin"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    m_onion->setCheckable(true);
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
