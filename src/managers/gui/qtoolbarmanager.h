#pragma once

class QAction;
class QToolBar;
class QToolBarItems;
class QWidget;

/**
 * One tool bar of the window whose contents change with the editor: the
 * editor's items replace (or follow) what is shown, so the bar never holds
 * buttons of an editor that is not current.
 */
class QToolBarManager
{
public:
    explicit QToolBarManager(QToolBar* bar)
        : m_bar(bar)
    {
    }

    /// Shows `items` (nothing for null), after what is there with `append`.
    void setItems(const QToolBarItems* items, bool append = false);
    QToolBar* widget() const { return m_bar; }

private:
    QToolBar* m_bar;
};
