#pragma once

#include "interface/qinterfaceeditor.h"
#include "interface/qinterfaceworkspace.h"

#include <QPointer>

class QLabel;
class QListView;
class QModelIndex;
class QProject;
class QSpriteDragListView;
class QThumbnailCache;
class QToolButton;

/**
 * Thumbnails on the right panel: the pictures of the sprites, or, while the
 * animations editor is current, the first frame of each action; two buttons
 * switch between them. A click (or Enter) on one brings its editor forward on
 * that sprite or action, and sprites drag into the frames table. Only the
 * cells in view are decoded, as in the sprites editor's grid.
 */
class QThumbnailsEditor : public QInterfaceExtraEditor
{
    Q_OBJECT
public:
    using QInterfaceExtraEditor::QInterfaceExtraEditor;

    int id() const override { return 2; }
    QString name() const override { return QStringLiteral("thumbnails"); }
    QString title() const override { return tr("Thumbnails"); }
    void initialized(QWidget* rightPage) override;
    void setProject(QProject* project) override;

    /// Shows what belongs with `editor`: actions for the animations editor, sprites for any other.
    void follow(QInterfaceEditors editor);
    /// Shows the actions' first frames, or the sprites.
    void showActions(bool actions);
    bool showsActions() const { return m_actions; }
    QSpriteDragListView* grid() const { return m_grid; }
    QThumbnailCache* cache() const { return m_cache; }

private:
    void fill();
    void open(const QModelIndex& index);

    QPointer<QProject> m_project;
    bool m_actions = false;
    QLabel* m_caption = nullptr;
    QToolButton* m_showSprites = nullptr;
    QToolButton* m_showActions = nullptr;
    QSpriteDragListView* m_grid = nullptr;
    QThumbnailCache* m_cache = nullptr;
};
