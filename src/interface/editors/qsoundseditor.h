#pragma once

#include "qvieweditor.h"

class QLabel;

/**
 * The sounds of a character: for now the SND file the DEF names, where it
 * is and how large, so the author sees it belongs to the project.
 */
class QSoundsEditor : public QViewEditor
{
    Q_OBJECT
public:
    explicit QSoundsEditor(QViewWorkspace* workspace, QObject* parent = nullptr);

    QInterfaceEditors id() const override { return ieSounds; }
    QString iconName() const override { return QStringLiteral("editor_snd"); }
    QString name() const override { return QStringLiteral("sounds"); }
    QString title() const override { return tr("Sounds"); }
    int file() const override { return 5; }
    unsigned int projectTypes() const override { return 2; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void setProject(QProject* project) override;
    void retranslate() override { update(); }

private:
    void update();

    QProject* m_project = nullptr;
    QLabel* m_view;
};
