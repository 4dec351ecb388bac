#pragma once

#include "interface/qinterfaceeditor.h"

class QLabel;
class QViewWorkspace;

/**
 * The sounds of a character: for now the SND file the DEF names, where it
 * is and how large, so the author sees it belongs to the project.
 */
class QSoundsEditor : public QInterfaceEditor
{
    Q_OBJECT
public:
    explicit QSoundsEditor(QViewWorkspace* workspace, QObject* parent = nullptr);
    ~QSoundsEditor() override;

    QInterfaceEditors id() const override { return ieSounds; }
    QString iconName() const override { return QStringLiteral("editor_snd"); }
    QString name() const override { return QStringLiteral("sounds"); }
    QString title() const override { return tr("Sounds"); }
    int areas() const override { return ExtraToolBar | LeftPanel | RightPanel; }
    int workspace() const override { return 1; }
    int file() const override { return 5; }
    unsigned int projectTypes() const override { return 2; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void activate(bool switched) override;
    void setProject(QProject* project) override;
    void retranslate() override { update(); }

private:
    void update();

    QViewWorkspace* m_workspace;
    QProject* m_project = nullptr;
    QLabel* m_view;
    QLabel* m_summary = nullptr;
};
