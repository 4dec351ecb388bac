#include "qanimspriteworkspace.h"

#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "model/qproject.h"
#include "render/gui/qoglrenderwidget.h"
#include "render/gui/qrenderwidget.h"
#include "render/qanimationplayer.h"
#include "render/qplaybackclock.h"
#include "render/qsprrender.h"

#include <QAction>
#include <QVBoxLayout>

QAnimSpriteWorkspace::QAnimSpriteWorkspace(QConfigManager* config, QWidget* parent)
    : QObject(parent)
    , m_config(config)
    , m_container(new QWidget(parent))
    , m_layout(new QVBoxLayout(m_container))
    , m_renderer(new QSprRender(this))
    , m_clock(new QSystemPlaybackClock)
    , m_player(new QAnimationPlayer(m_renderer, m_clock, this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    connect(m_player, &QAnimationPlayer::fpsChanged, this, &QAnimSpriteWorkspace::fpsChanged);
    connect(m_player, &QAnimationPlayer::positionChanged, this, &QAnimSpriteWorkspace::frameChanged);

    connect(addAction(QStringLiteral("view_center_axis"), tr("Center axis"), false, nullptr), &QAction::triggered,
            this, &QAnimSpriteWorkspace::centerAxis);
    const struct
    {
        const char* key;
        const char* text;
        const char* setting;
        void (QAnimSpriteWorkspace::*slot)(bool);
    } checkable[] = {
        { "view_spr_cross", QT_TR_NOOP("Sprite crosshair"), "show_spr_cross", &QAnimSpriteWorkspace::showCross },
        { "view_anim_cross", QT_TR_NOOP("Animation crosshair"), "show_anim_cross", &QAnimSpriteWorkspace::showCross },
        { "view_extra_cross", QT_TR_NOOP("Extra crosshair"), nullptr, &QAnimSpriteWorkspace::showExtraCross },
        { "view_rulers", QT_TR_NOOP("Rulers"), "show_rulers", &QAnimSpriteWorkspace::showCLSN },
        { "view_guide_lines", QT_TR_NOOP("Guide lines"), "show_guides", &QAnimSpriteWorkspace::showGuideLns },
        { "view_attack_clsn", QT_TR_NOOP("Attack boxes (Clsn1)"), "show_clsn1", &QAnimSpriteWorkspace::showCLSN },
        { "view_collision_clsn", QT_TR_NOOP("Collision boxes (Clsn2)"), "show_clsn2", &QAnimSpriteWorkspace::showCLSN },
        { "view_default_clsn1", QT_TR_NOOP("Default attack boxes"), "show_clsn_def1", &QAnimSpriteWorkspace::showCLSN },
        { "view_default_clsn2", QT_TR_NOOP("Default collision boxes"), "show_clsn_def2",
          &QAnimSpriteWorkspace::showCLSN },
    };
    for (const auto& entry : checkable)
        connect(addAction(QLatin1String(entry.key), tr(entry.text), true, entry.setting), &QAction::toggled, this,
                entry.slot);

    m_renderer->setCrossPos(number("main_axis_x", 150), number("main_axis_y", 250));
    reconfig();
    makeView();
    m_renderer->setZoom(quint8(number("zoom_level", 2)));
    showCross(true);
    showCLSN(true);
    showGuideLns(action(QStringLiteral("view_guide_lines"))->isChecked());
}

QAnimSpriteWorkspace::~QAnimSpriteWorkspace()
{
    m_player->stop();
    if (m_config) {
        (*m_config)[QStringLiteral("main_axis_x")] = m_renderer->crossPos().x();
        (*m_config)[QStringLiteral("main_axis_y")] = m_renderer->crossPos().y();
        (*m_config)[QStringLiteral("zoom_level")] = int(m_renderer->zoomIndex());
        for (const auto& saved : m_saved)
            (*m_config)[saved.second] = saved.first->isChecked();
    }
    delete m_view;
    delete m_clock;
}

QAction* QAnimSpriteWorkspace::addAction(const QString& key, const QString& text, bool checkable,
                                         const char* setting)
{
    auto* action = new QAction(text, this);
    action->setObjectName(key);
    action->setCheckable(checkable);
    if (setting) {
        // Everything shows at first but the guide lines.
        action->setChecked(this->setting(setting, key != QLatin1String("view_guide_lines")));
        m_saved.append({ action, QLatin1String(setting) });
    }
    m_actions.append(action);
    return action;
}

QAction* QAnimSpriteWorkspace::action(const QString& key) const
{
    for (QAction* action : m_actions)
        if (action->objectName() == key)
            return action;
    return nullptr;
}

bool QAnimSpriteWorkspace::setting(const char* key, bool fallback) const
{
    const QVariant value = m_config ? m_config->value(QLatin1String(key)) : QVariant();
    return value.isValid() ? value.toBool() : fallback;
}

int QAnimSpriteWorkspace::number(const char* key, int fallback) const
{
    const QVariant value = m_config ? m_config->value(QLatin1String(key)) : QVariant();
    return value.isValid() ? value.toInt() : fallback;
}

void QAnimSpriteWorkspace::setProject(QProject* project)
{
    m_player->stop();
    m_renderer->setSprites(project ? project->sprites() : nullptr);
    m_renderer->setAnimations(project ? project->animations() : nullptr);
    m_renderer->reset();
    m_renderer->update();
}

void QAnimSpriteWorkspace::makeView()
{
    delete m_view;
    m_openGL = setting("use_opengl", false);
    if (m_openGL) {
        m_view = new QOGLRenderWidget(m_renderer, m_container);
        m_status = tr("OpenGL mode");
    } else {
        m_view = new QRenderWidget(m_renderer, m_container);
        m_status = tr("Native mode");
    }
    m_view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_layout->addWidget(m_view);
    emit statusChanged(m_status);
}

void QAnimSpriteWorkspace::reconfig()
{
    // The colours of the view belong to the colour set; a key the set lacks
    // may still be in the configuration, and a missing colour counts as black.
    auto color = [this](const char* key) {
        const QColor fromSet = colorMan ? colorMan->color(QLatin1String(key)) : QColor();
        if (fromSet.isValid())
            return fromSet;
        const QVariant value = m_config ? m_config->value(QLatin1String(key)) : QVariant();
        return value.isValid() ? QColor(value.toString()) : QColor(Qt::black);
    };
    auto text = [this](const char* key) {
        return m_config ? m_config->value(QLatin1String(key)).toString() : QString();
    };
    m_renderer->setBackground(color("back_start"), color("back_end"), uchar(number("background_type", 1)),
                              number("background_x", -213), number("background_y", -208), text("background_file"));
    m_renderer->setCLSNColor(color("clsn1"), color("clsn1def"), color("clsn2"), color("clsn2def"),
                             number("clsn_opacity", 100));
    m_renderer->setCrossHair(uchar(number("crosshair_type", 0)), text("crosshair_sprite"),
                             text("crosshair_animation"), text("crosshair_extra"));
    m_renderer->setPriority(setting("clsn_over_axis", true), setting("sprite_over_guides", true));
    m_renderer->setZoomTable(uchar(number("zoom_mode", 1)));
    m_renderer->setZoomMode(QZoomMode(number("zoom_center", ZoomOnCenter)));
    if (m_view && m_openGL != setting("use_opengl", false))
        makeView();
    m_renderer->updatePos();
}

void QAnimSpriteWorkspace::play()
{
    if (QAnimation* animation = m_renderer->animation())
        m_player->play(animation, true);
}

void QAnimSpriteWorkspace::prepareStep()
{
    QAnimation* animation = m_renderer->animation();
    if (animation && !m_player->isAt(animation, int(m_renderer->frameIndex())))
        m_player->begin(animation, int(m_renderer->frameIndex()));
}

void QAnimSpriteWorkspace::stepTick()
{
    if (m_player->isPlaying() || !m_renderer->frame())
        return;
    prepareStep();
    m_player->tick();
}

void QAnimSpriteWorkspace::stepFrame()
{
    if (m_player->isPlaying() || !m_renderer->frame())
        return;
    prepareStep();
    m_player->advance();
}

bool QAnimSpriteWorkspace::isLooping() const
{
    return m_player->isLooping();
}

void QAnimSpriteWorkspace::setLooping(bool on)
{
    m_player->setLooping(on);
}

void QAnimSpriteWorkspace::setClock(QPlaybackClock* clock)
{
    m_player->stop();
    m_player->setClock(clock ? clock : m_clock);
}

void QAnimSpriteWorkspace::stop()
{
    m_player->stop();
}

bool QAnimSpriteWorkspace::isPlaying() const
{
    return m_player->isPlaying();
}

void QAnimSpriteWorkspace::zoomActual()
{
    m_renderer->zoomActual();
}

void QAnimSpriteWorkspace::zoomOut()
{
    m_renderer->subZoom();
}

void QAnimSpriteWorkspace::zoomIn()
{
    m_renderer->addZoom();
}

void QAnimSpriteWorkspace::centerAxis()
{
    if (!m_view)
        return;
    m_renderer->setCrossPos(m_view->width() / 2, m_view->height() / 2);
    m_renderer->updatePos();
}

void QAnimSpriteWorkspace::showCLSN(bool)
{
    auto checked = [this](const char* key) { return action(QLatin1String(key))->isChecked(); };
    m_renderer->setVisibility(checked("view_attack_clsn"), checked("view_collision_clsn"),
                              checked("view_default_clsn1"), checked("view_default_clsn2"), checked("view_rulers"));
    m_renderer->updatePos();
}

void QAnimSpriteWorkspace::showCross(bool)
{
    m_renderer->setCrossVisibility(action(QStringLiteral("view_spr_cross"))->isChecked(),
                                   action(QStringLiteral("view_anim_cross"))->isChecked());
    m_renderer->updatePos();
}

void QAnimSpriteWorkspace::showExtraCross(bool on)
{
    m_renderer->setExtraVisibility(on);
    m_renderer->updatePos();
}

void QAnimSpriteWorkspace::showGuideLns(bool on)
{
    m_renderer->setGuideLines(on);
    m_renderer->updatePos();
}
