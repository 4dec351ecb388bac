#pragma once

#include "model/qsubitem.h"
#include "qvieweditor.h"

#include <QTimer>

class QActionListPanel;
class QAnimSpriteWorkspace;
class QFrameBoxTools;
class QFrameTableModel;
class QListView;
class QPlaybackControls;
class QTableView;
class QTextDocument;
class QTextEditor;
class QTextUndoStack;
class QToolBar;
class QVBoxLayout;

/**
 * The actions of the AIR file: their list (number and name) with a search
 * field, the frames of the current action as an editable table, the AIR
 * text itself beside the shared view that draws the current frame with its
 * collision boxes and plays the action at the engine's tick.
 *
 * The AIR text is the one truth: the list, the table, the view and the text
 * pane all edit it, the first three through the animations model, so its
 * undo history (this editor's undo stack) holds every change, whichever of
 * them made it, and each shows at once what another changed.
 */
class QAnimationsEditor : public QViewEditor
{
    Q_OBJECT
public:
    QAnimationsEditor(QViewWorkspace* workspace, QAnimSpriteWorkspace* view, QObject* parent = nullptr);
    ~QAnimationsEditor() override;

    QInterfaceEditors id() const override { return ieAnimations; }
    QString iconName() const override { return QStringLiteral("editor_air"); }
    QString name() const override { return QStringLiteral("animations"); }
    QString title() const override { return tr("Animations"); }
    int file() const override { return 2; }
    unsigned int projectTypes() const override { return 0xEF; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void activate(bool switched) override;
    void deactivate() override;
    void setProject(QProject* project) override;
    void retranslate() override { updateSummary(); }
    /// Shows the action and frame that line `line` of the AIR text belongs
    /// to, with the text's cursor on that line at column `index`.
    void navigateTo(int fileIndex, int index, int line) override;
    QUndoStack* undoStack() const override;

    QActionListPanel* actions() const { return m_actions; }
    /// The shared view with its player.
    QAnimSpriteWorkspace* spriteView() const { return m_view; }
    QListView* actionList() const;
    QTableView* frameTable() const { return m_frames; }
    QTextEditor* textView() const { return m_text; }
    QFrameBoxTools* boxTools() const { return m_boxes; }
    QPlaybackControls* playback() const { return m_playback; }
    /// Position of the action shown in the list of the file; -1 for none.
    int currentAction() const;
    void setCurrentAction(int position);
    /// Adds an action with the next free number and shows it.
    void newAction();
    /// Appends a frame of the sprite the view showed last in the sprites
    /// editor (the one under the author's cursor there), else of the last
    /// frame's sprite, and selects it.
    void addFrame();
    /// Copies the boxes of the current frame to every other frame of the action.
    void copyBoxesToAll();

private:
    void buildToolBars(QToolBar* framesBar);
    void removeFrame();
    void showFrame();
    void actionChanged();
    void updateSummary();
    void showRow(int row);

    QAnimSpriteWorkspace* m_view;
    QProject* m_project = nullptr;
    QTextUndoStack* m_undo = nullptr;
    QActionListPanel* m_actions;
    QFrameTableModel* m_model;
    QPlaybackControls* m_playback;
    QFrameBoxTools* m_boxes;
    QToolBar* m_toolBar;
    QTableView* m_frames;
    QTextEditor* m_text;
    QTextDocument* m_emptyText;
    /// The project's AIR text the pane shows, null for none.
    QTextDocument* m_shownText = nullptr;
    QVBoxLayout* m_viewSlot;
    /// The sprite the sprites editor showed when it was left, as group and index.
    QSubItem m_lastSprite;
    bool m_hasLastSprite = false;
    /// The frame row kept across a reread of the table.
    int m_frameRow = -1;
    /// The file's faults are looked for again a moment after the text stops changing.
    QTimer m_checkTimer;
};
