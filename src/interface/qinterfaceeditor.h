#pragma once

#include <QObject>
#include <QString>
#include <QUndoStack>

class QLabel;
class QMenu;
class QProject;
class QToolBarItems;
class QUndoStack;
class QWidget;

/// The editors of the window, by the file type they edit.
enum QInterfaceEditors {
    ieDefinitions = 0,
    ieSprites = 1,
    ieAnimations = 2,
    ieCommands = 3,
    ieStates = 4,
    ieSounds = 5,
    ieNone = 9,
};

/// The editors of the right panel.
enum QInterfaceExtraEditors {
    ieeOrganizer = 0,
    ieePalettes = 1,
    ieeThumbnails = 2,
    ieeNone = 5,
};

/**
 * One editor of a file type, plugged into the window. It says what it is
 * (id, name, icon, the file type it edits, the project types it exists for)
 * and which areas it uses; the window switches it in and out and gives it
 * the current project. It fills its tool-bar items and its page of the left
 * panel once, in initialized().
 *
 * The window's shared Edit commands ask the current editor: cut(), copy()
 * and paste() act on its view, and Undo and Redo go to undoStack(), the
 * stack of the document it shows now (one per document), made active in the
 * window's undo group. An editor announces another stack with
 * undoStackChanged() and its modified state with modifiedChanged().
 */
class QInterfaceEditor : public QObject
{
    Q_OBJECT
public:
    /// Bits of areas().
    enum Area {
        ExtraToolBar = 1,
        LeftPanel = 2,
        RightPanel = 4,
        TextBar = 8, ///< a search bar of text editors
    };

    /// The Edit menu's find commands.
    enum FindCommand {
        FindStart,    ///< the find bar, on the selection
        FindReplace,  ///< the find bar with its replace field in front
        FindNext,
        FindPrevious,
        FindInFiles,  ///< find and replace in every text file of the project
    };

    explicit QInterfaceEditor(QObject* parent = nullptr);

    virtual QInterfaceEditors id() const = 0;
    /// The action and icon name: "editor_def"...
    virtual QString iconName() const = 0;
    /// The key of its tool-bar items, panel page and preset metrics.
    virtual QString name() const = 0;
    /// Its title, translated now ("Definitions"...).
    virtual QString title() const = 0;
    virtual bool isModified() const { return false; }
    virtual QMenu* menuItem() const { return nullptr; }
    virtual int areas() const = 0;
    /// The workspace it shows in.
    virtual int workspace() const = 0;
    /// The QProjectFileType it edits.
    virtual int file() const = 0;
    /// A mask of QProjectType values.
    virtual unsigned int projectTypes() const = 0;

    virtual void initialized(QToolBarItems* items, QWidget* leftPage) = 0;
    /// `switched` is true when the window makes it current.
    virtual void activate(bool switched);
    virtual void deactivate() { m_active = false; }
    /// Reads what it shows from the configuration again.
    virtual void reconfig() {}
    virtual void setProject(QProject* project) = 0;
    virtual void retranslate() {}
    /// Shows a place: which file of its type, the column and the line; without a line (-1), the item at `index`.
    virtual void navigateTo(int fileIndex, int index, int line) {}
    virtual void projectTypeChanged() {}

    virtual void clear() {}
    virtual void open() {}
    virtual void save() {}
    virtual void saveAs() {}
    virtual QUndoStack* undoStack() const { return nullptr; }
    virtual void cut() {}
    virtual void copy() {}
    virtual void paste() {}
    /// Runs a find command on what the editor shows.
    virtual void find(FindCommand) {}

    bool isActive() const { return m_active; }

public slots:
    /// Asks the window to make this editor current, unless it is already.
    void switchToThisEditor();

signals:
    void undoStackChanged(QUndoStack* stack);
    void modifiedChanged();

protected:
    /// A rich-text label filling a panel page from the top, for an editor's summary.
    static QLabel* addSummary(QWidget* page, const QString& objectName);

private:
    bool m_active = false;
};
