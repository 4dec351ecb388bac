#pragma once

#include <QObject>

class QAction;
class QAnimSpriteWorkspace;
class QToolBar;
class QWidget;

/**
 * The playback commands of the animations editor: play, pause, stop, one
 * tick, one frame, loop, and the onion skin of the frame before. They drive
 * the view's player; playing re-enters the event loop, so every command
 * here also works while an action plays.
 *
 * The onion skin shows the sprite of the frame before the one shown (the
 * last frame before the first) faintly behind it, at that frame's offset,
 * and follows playback and stepping.
 */
class QPlaybackControls : public QObject
{
    Q_OBJECT
public:
    QPlaybackControls(QAnimSpriteWorkspace* view, QObject* parent = nullptr);

    /// Puts the commands on `toolBar`, their keys working on `page`.
    void addActions(QWidget* page, QToolBar* toolBar);
    QAction* loopAction() const { return m_loop; }
    QAction* onionAction() const { return m_onion; }

    void play();
    void pause();
    /// Ends playback and goes back to the first frame.
    void stop();
    void stepTick();
    void stepFrame();
    /// Shows the onion skin for the frame the view shows now, or hides it.
    void updateOnion();

signals:
    /// Stop went back to the first frame: the editor shows it.
    void rewound();

private:
    QAnimSpriteWorkspace* m_view;
    QAction* m_loop = nullptr;
    QAction* m_onion = nullptr;
};
