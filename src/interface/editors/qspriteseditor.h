#pragma once

#include "qvieweditor.h"

#include <functional>

class ImgEdit;
class QAction;
class QAnimSpriteWorkspace;
class QClickableLabel;
class QLabel;
class QLineEdit;
class QListView;
class QSpinBox;
class QSprite;
class QSpriteTableModel;
class QSprites;
class QStackedWidget;
class QTableView;
class QThumbnailCache;
class QToolBar;
class QVBoxLayout;

/**
 * The sprites of the project: a table of every sprite (group, index, size,
 * axis, palette, compression), or a grid of their thumbnails sharing its
 * selection, beside the view that draws the current one. The author jumps to
 * a sprite by typing "group,index", selects several, adds pictures one by one
 * or as a numbered series, replaces, deletes, duplicates, moves, links and
 * crops them, changes group, index and palette in the table, sets the axis
 * by dragging the sprite in the view or by numbers (for the whole selection
 * at once) and exports the selection as pictures. A status-bar item shows
 * the SFF version the file will be saved in and changes it on a click.
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
    void deactivate() override;
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
    /// Replaces the current sprite's picture by the file's; a fault is told
    /// in one line naming the file and changes nothing.
    bool replaceImage(const QString& file);
    /// Moves the selected sprites `step` places up (negative) or down, as one undo step.
    void moveSelection(int step);
    /// Makes the selected sprites show the picture of sprite "group,index"
    /// (stored once in the file); false when there is no such sprite.
    bool linkSelection(const QString& target);
    /// Gives each selected sprite a copy of its picture of its own.
    void unlinkSelection();
    /// Makes the selected sprites use the palette at `position` of the file.
    int setSelectionPalette(int position);
    /// Writes each selected sprite with its palette as `path` ("png" or "pcx"
    /// by its suffix); with several, "-group-index" goes before the suffix.
    /// The number of files written; a failure is told in one line.
    int exportSelection(const QString& path);
    /// Sets the SFF version the file will be saved in, as one undo step.
    void setSaveVersion(quint32 version);
    /// Shows the thumbnail grid instead of the table (they share the selection).
    void showThumbnails(bool on);
    QListView* grid() const { return m_grid; }
    QThumbnailCache* thumbnailCache() const { return m_thumbnails; }
    QClickableLabel* versionLabel() const { return m_version; }
    /// Rows of the selection, in ascending order.
    QList<int> selectedRows() const;
    /// Opens the image editor on the current sprite, in a window of its own
    /// that writes back with one undo step of the sprite file; null when no
    /// sprite with a picture is current.
    ImgEdit* editImage();

private:
    void buildToolBar();
    QAction* addTool(const QString& name, const QString& text, const QKeySequence& keys,
                     void (QSpritesEditor::*slot)());
    void buildGrid();
    /// Applies `edit` to each selected sprite, last first, as one undo step `name`; how many there were.
    int editSelection(const QString& name, const std::function<void(QSprite*)>& edit);
    void addImages();
    void addSeries();
    void removeSelection();
    void duplicateSelection();
    void cropSelection();
    void openImageEditor() { editImage(); }
    void axisToBottomCentre();
    void askReplaceImage();
    void moveUp() { moveSelection(-1); }
    void moveDown() { moveSelection(1); }
    void askLink();
    void askPalette();
    void askExport();
    void askVersion();
    void updateVersion();
    void currentChanged();
    void applyItem();
    void applyAxis();
    void showSprite();
    void updateSummary();
    QSprites* sprites() const;
    QSprite* currentSprite() const;
    /// Tells the author in the status line and in a one-line warning.
    void warn(const QString& title, const QString& text);

    QAnimSpriteWorkspace* m_view;
    QProject* m_project = nullptr;
    QSpriteTableModel* m_model;
    QToolBar* m_toolBar;
    QLineEdit* m_goto;
    QTableView* m_table;
    QListView* m_grid;
    QStackedWidget* m_lists;
    QThumbnailCache* m_thumbnails;
    QAction* m_thumbnailsAction = nullptr;
    QClickableLabel* m_version;
    QVBoxLayout* m_viewSlot;
    QLabel* m_status;
    QSpinBox* m_group;
    QSpinBox* m_index;
    QSpinBox* m_axisX;
    QSpinBox* m_axisY;
    QMetaObject::Connection m_versionFollower;
    bool m_updating = false;
};
