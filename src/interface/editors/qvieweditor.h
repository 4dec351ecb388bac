#pragma once

#include "interface/qinterfaceeditor.h"

class QLabel;
class QViewWorkspace;

/**
 * Base of the editors that show a view of their own in the workspace of
 * sprites, animations and sounds, with a summary on their page of the left
 * panel. The workspace takes the view when it is first shown.
 */
class QViewEditor : public QInterfaceEditor
{
    Q_OBJECT
public:
    QViewEditor(QViewWorkspace* workspace, QWidget* view, QObject* parent = nullptr);
    ~QViewEditor() override;

    int areas() const override { return ExtraToolBar | LeftPanel | RightPanel; }
    int workspace() const override { return 1; }
    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void activate(bool switched) override;

protected:
    QWidget* view() const { return m_view; }
    /// The summary on the left panel; null before initialized().
    QLabel* summary() const { return m_summary; }

private:
    QViewWorkspace* m_workspace;
    QWidget* m_view;
    QLabel* m_summary = nullptr;
};
