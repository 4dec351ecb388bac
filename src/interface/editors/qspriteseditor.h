#pragma once

#include "interface/qinterfaceeditor.h"

class QLabel;
class QListView;
class QViewWorkspace;

/**
 * The sprites of the project as a list the author can look through, with a
 * summary (file, count, format) on the left panel. Its undo stack is that of
 * the sprites, so their edits from elsewhere (scripts, the image editor) are
 * undone here.
 */
class QSpritesEditor : public QInterfaceEditor
{
    Q_OBJECT
public:
    explicit QSpritesEditor(QViewWorkspace* workspace, QObject* parent = nullptr);
    ~QSpritesEditor() override;

    QInterfaceEditors id() const override { return ieSprites; }
    QString iconName() const override { return QStringLiteral("editor_sff"); }
    QString name() const override { return QStringLiteral("sprites"); }
    QString title() const override { return tr("Sprites"); }
    int areas() const override { return ExtraToolBar | LeftPanel | RightPanel; }
    int workspace() const override { return 1; }
    int file() const override { return 1; }
    unsigned int projectTypes() const override { return 0xFF; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void activate(bool switched) override;
    void setProject(QProject* project) override;
    void retranslate() override { updateSummary(); }
    void navigateTo(int fileIndex, int index, int line) override;
    QUndoStack* undoStack() const override;

private:
    void updateSummary();

    QViewWorkspace* m_workspace;
    QProject* m_project = nullptr;
    QWidget* m_view;
    QLabel* m_header;
    QListView* m_list;
    QLabel* m_summary = nullptr;
};
