#pragma once

#include "qvieweditor.h"

class QAnimSpriteWorkspace;
class QFrameTableModel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QTableView;
class QTextUndoStack;
class QToolBar;
class QVBoxLayout;

/**
 * The actions of the AIR file: their list (number and name) with a search
 * field, the frames of the current action as an editable table, and the
 * shared view that draws the current frame with its collision boxes and
 * plays the action at the engine's tick.
 *
 * The AIR text is the one truth: the list, the table and the view edit it
 * through the animations model, so its undo history (this editor's undo
 * stack) holds every change, whichever of them made it.
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
    void navigateTo(int fileIndex, int index, int line) override;
    QUndoStack* undoStack() const override;

    QListView* actionList() const { return m_list; }
    QTableView* frameTable() const { return m_frames; }
    /// Position of the action shown in the list of the file; -1 for none.
    int currentAction() const;
    void setCurrentAction(int position);
    /// Adds an action with the next free number and shows it.
    void newAction();
    /// Appends a frame of the sprite the sprites editor shows, or of the
    /// last frame's sprite, and selects it.
    void addFrame();
    /// Copies the boxes of the current frame to every other frame of the action.
    void copyBoxesToAll();

private:
    void buildToolBar();
    void duplicateAction();
    void removeAction();
    void removeFrame();
    void play();
    void stop();
    void showFrame();
    void actionChanged();
    void updateSummary();

    QAnimSpriteWorkspace* m_view;
    QProject* m_project = nullptr;
    QTextUndoStack* m_undo = nullptr;
    QSortFilterProxyModel* m_filter;
    QFrameTableModel* m_model;
    QToolBar* m_toolBar;
    QLineEdit* m_search;
    QListView* m_list;
    QTableView* m_frames;
    QVBoxLayout* m_viewSlot;
    /// The frame row kept across a reread of the table.
    int m_frameRow = -1;
};
