#pragma once

#include "qvieweditor.h"

#include <functional>

class ImgEdit;
class QAction;
class QAnimSpriteWorkspace;
class QLabel;
class QLineEdit;
class QSpinBox;
class QSprite;
class QSpriteTableModel;
class QSprites;
class QTableView;
class QToolBar;
class QVBoxLayout;

/**
 * The sprites of the project: a table of every sprite (group, index, size,
 * axis, palette, compression) beside the view that draws the current one.
 * The author jumps to a sprite by typing "group,index", selects several,
 * adds pictures one by one or as a numbered series, deletes, duplicates and
 * crops them, changes group and index, and sets the axis by dragging the
 * sprite in the view or by numbers (for the whole selection at once).
 *
 * Every change goes through the sprite file, so its undo stack, which is
 * this editor's, holds them all, together with edits made elsewhere.
 */
class QSpritesEditor : public QViewEditor
{
    Q_OBJECT
public:
    QSpritesEditor(QViewWorkspace* workspace, QAnimSpriteWorkspace* view, QObject* parent = nullptr);

    QInterfaceEditors id() const override { return ieSprites; }
    QString iconName() const override { return QStringLiteral("editor_sff"); }
    QString name() const override { return QStringLiteral("sprites"); }
    QString title() const override { return tr("Sprites"); }
    int file() const override { return 1; }
    unsigned int projectTypes() const override { return 0xFF; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void activate(bool switched) override;
    void setProject(QProject* project) override;
    void retranslate() override { updateSummary(); }
    void navigateTo(int fileIndex, int index, int line) override;
    QUndoStack* undoStack() const override;

    QTableView* table() const { return m_table; }
    /// Selects the sprite "group,index" the author typed; false when there is none.
    bool goTo(const QString& text);
    /// Appends the pictures of `files` from group,index on, `step` apart; a
    /// fault is told in one line naming the file. The number of sprites added.
    int addFiles(const QStringList& files, int group, int index, int step);
    /// Gives every selected sprite the axis x,y, as one undo step.
    void setSelectionAxis(int x, int y);
    /// Rows of the selection, in ascending order.
    QList<int> selectedRows() const;
    /// Opens the image editor on the current sprite, in a window of its own
    /// that writes back with one undo step of the sprite file; null when no
    /// sprite with a picture is current.
    ImgEdit* editImage();

private:
    void buildToolBar();
    /// Applies `edit` to each selected sprite, last first, as one undo step `name`; how many there were.
    int editSelection(const QString& name, const std::function<void(QSprite*)>& edit);
    void addImages();
    void addSeries();
    void removeSelection();
    void duplicateSelection();
    void cropSelection();
    void openImageEditor() { editImage(); }
    void axisToBottomCentre();
    void currentChanged();
    void applyItem();
    void applyAxis();
    void showSprite();
    void updateSummary();
    QSprites* sprites() const;

    QAnimSpriteWorkspace* m_view;
    QProject* m_project = nullptr;
    QSpriteTableModel* m_model;
    QToolBar* m_toolBar;
    QLineEdit* m_goto;
    QTableView* m_table;
    QVBoxLayout* m_viewSlot;
    QLabel* m_status;
    QSpinBox* m_group;
    QSpinBox* m_index;
    QSpinBox* m_axisX;
    QSpinBox* m_axisY;
    bool m_updating = false;
};
