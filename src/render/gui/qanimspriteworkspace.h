#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

class QAction;
class QAnimation;
class QAnimationPlayer;
class QConfigManager;
class QPlaybackClock;
class QProject;
class QSprRender;
class QSystemPlaybackClock;
class QVBoxLayout;

/**
 * The central view of the sprites, animations and palettes editors: one
 * area holding a host widget for the one QSprRender, the "View" actions for
 * crosshairs, rulers, guide lines and box kinds, and the animation playback.
 *
 * The host is a plain widget ("Native mode") or an OpenGL one ("OpenGL
 * mode") after "use_opengl"; reconfig() swaps it while the program runs,
 * and the view keeps its state because the renderer holds no graphics
 * objects. The settings are read from, and at the end written back to, the
 * configuration map it is given.
 */
class QAnimSpriteWorkspace : public QObject
{
    Q_OBJECT
public:
    QAnimSpriteWorkspace(QConfigManager* config, QWidget* parent = nullptr);
    ~QAnimSpriteWorkspace() override;

    int id() const { return 1; }
    QString name() const { return tr("Sprites and animations"); }
    QWidget* widget() const { return m_container; }
    /// The host widget in use.
    QWidget* view() const { return m_view; }
    QSprRender* renderer() const { return m_renderer; }
    /// "OpenGL mode" or "Native mode".
    QString statusText() const { return m_status; }
    /// The "View" menu's actions, in order, each under its key as object name.
    const QList<QAction*>& actions() const { return m_actions; }
    QAction* action(const QString& key) const;

    void setProject(QProject* project);
    /// Builds the host widget that "use_opengl" asks for, replacing any other.
    void makeView();
    /// Passes the configuration on to the view, and changes the host if asked to.
    void reconfig();

    /// Plays the animation the view shows, from its frame, until stop(); returns
    /// then. After a pause on the same frame it goes on where it stopped.
    void play();
    void stop();
    bool isPlaying() const;
    /// Counts one tick of the animation the view shows, as playing would.
    void stepTick();
    /// Goes on to the frame that follows, as the end of the present one would.
    void stepFrame();
    bool isLooping() const;
    /// Without looping, playback ends on the last frame.
    void setLooping(bool on);
    /// The clock playback runs on from now on (tests give their own; null:
    /// the system's). The caller keeps it alive while it is in use.
    void setClock(QPlaybackClock* clock);

public slots:
    void zoomActual();
    void zoomOut();
    void zoomIn();
    void centerAxis();
    /// Whichever box-kind or ruler action changed, all five states go to the view.
    void showCLSN(bool);
    void showCross(bool);
    void showExtraCross(bool on);
    void showGuideLns(bool on);

signals:
    void statusChanged(const QString& text);
    /// The frames a second of the running playback, as "60 FPS".
    void fpsChanged(const QString& text);
    /// Playback moved to another frame.
    void frameChanged(int position);

private:
    QAction* addAction(const QString& key, const QString& text, bool checkable, const char* setting);
    bool setting(const char* key, bool fallback) const;
    int number(const char* key, int fallback) const;
    /// Makes sure the player stands where the view does, for stepping.
    void prepareStep();

    QConfigManager* m_config;
    // Widgets belong to the window and may go before this object does.
    QPointer<QWidget> m_container;
    QVBoxLayout* m_layout;
    QPointer<QWidget> m_view;
    bool m_openGL = false;
    QSprRender* m_renderer;
    QSystemPlaybackClock* m_clock;
    QAnimationPlayer* m_player;
    QString m_status;
    QList<QAction*> m_actions;
    /// Settings keys of the checkable actions, saved at the end.
    QList<QPair<QAction*, QString>> m_saved;
};
