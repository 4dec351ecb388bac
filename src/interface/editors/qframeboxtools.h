#pragma once

#include <QObject>

class QAction;
class QAnimation;
class QSprRender;
class QToolBar;
class QWidget;

/**
 * The collision-box commands of the animations editor. Boxes are drawn with
 * the mouse in the view while a drawing mode is on (the right button or the
 * command again ends it), moved and resized there with the mouse or the
 * arrow keys, and deleted with Delete; these commands add the modes, delete
 * and retype the selected boxes, and copy a frame's own boxes to the next
 * frame or to every frame of the action. Each is one step of the AIR text's
 * undo history.
 */
class QFrameBoxTools : public QObject
{
    Q_OBJECT
public:
    explicit QFrameBoxTools(QSprRender* renderer, QObject* parent = nullptr);

    /// Puts the commands on `toolBar`, their keys working on `page`.
    void addActions(QWidget* page, QToolBar* toolBar);
    QAction* drawAction(bool clsn2) const { return m_draw[clsn2 ? 1 : 0]; }

    /**
     * Gives the frames at `rows` of `action` the Clsn1 and Clsn2 boxes of the
     * frame at `source`, in place of their own of that type (a type the
     * source has none of stays as it was). One undo step.
     */
    static void copyBoxes(QAnimation* action, int source, const QList<int>& rows);

    /// The frame the view shows gives its boxes to the next frame, which is then shown.
    void copyToNext();
    /// The frame the view shows gives its boxes to every other frame of its action.
    void copyToAll();
    /// Deletes the selected boxes of the view.
    void removeSelected();

signals:
    /// Copying to the next frame moved on to it.
    void showFrame(int row);

private:
    void setDrawing(bool clsn2, bool on);

    QSprRender* m_renderer;
    QAction* m_draw[2] = {};
};
