#pragma once

#include <QObject>

class QAnimations;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QToolBar;
class QWidget;

/**
 * The left side of the animations editor: the actions of the AIR file by
 * number and name, with a search field, and what an author does to whole
 * actions: add, duplicate under a new number, rename, delete, move and sort.
 * The page lays out its two widgets.
 *
 * Each of these is one edit of the AIR text through the animations model,
 * and so one step of the text's undo history.
 */
class QActionListPanel : public QObject
{
    Q_OBJECT
public:
    explicit QActionListPanel(QObject* parent = nullptr);

    void setAnimations(QAnimations* animations);
    /// Puts the panel's commands on `toolBar`, their keys working on `page`.
    void addActions(QWidget* page, QToolBar* toolBar);

    QListView* list() const { return m_list; }
    QLineEdit* searchField() const { return m_search; }
    /// Position of the action shown, in the file; -1 for none.
    int currentAction() const;
    void setCurrentAction(int position);

    /// Adds an action with the next free number and shows it.
    void newAction();
    /// Copies the current action under the first free number above its own.
    void duplicateAction();
    /**
     * Renames the current action: "name" sets the comment that names it,
     * "number - name" or "number" its number too. One undo step; false for
     * text that starts with a number that is no whole number.
     */
    bool renameAction(const QString& text);
    void removeAction();
    /// Moves the current action one place up (`up`) or down in the file.
    void moveAction(bool up);
    /// Orders the actions by number.
    void sortActions();

signals:
    /// The action shown changed (its position, -1 for none).
    void currentChanged(int position);

private:
    void askRename();
    /// The first number from `from` on that no action has.
    int freeNumber(int from) const;

    QAnimations* m_animations = nullptr;
    QSortFilterProxyModel* m_filter;
    QLineEdit* m_search;
    QListView* m_list;
};
