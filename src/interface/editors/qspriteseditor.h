#pragma once

#include "qvieweditor.h"

class QLabel;
class QListView;

/**
 * The sprites of the project as a list the author can look through, with a
 * summary (file, count, format) on the left panel. Its undo stack is that of
 * the sprites, so their edits from elsewhere (scripts, the image editor) are
 * undone here.
 */
class QSpritesEditor : public QViewEditor
{
    Q_OBJECT
public:
    explicit QSpritesEditor(QViewWorkspace* workspace, QObject* parent = nullptr);

    QInterfaceEditors id() const override { return ieSprites; }
    QString iconName() const override { return QStringLiteral("editor_sff"); }
    QString name() const override { return QStringLiteral("sprites"); }
    QString title() const override { return tr("Sprites"); }
    int file() const override { return 1; }
    unsigned int projectTypes() const override { return 0xFF; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void setProject(QProject* project) override;
    void retranslate() override { updateSummary(); }
    void navigateTo(int fileIndex, int index, int line) override;
    QUndoStack* undoStack() const override;

private:
    void updateSummary();

    QProject* m_project = nullptr;
    QLabel* m_header;
    QListView* m_list;
};
