#include "qthumbnailseditor.h"

#include "qspritedraglistview.h"
#include "interface/editors/qthumbnailcache.h"
#include "interface/editors/qthumbnaildelegate.h"
#include "interface/qinterface.h"
#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

void QThumbnailsEditor::initialized(QWidget* rightPage)
{
    m_cache = new QThumbnailCache(48, 1000, this);
    m_caption = new QLabel(rightPage);
    m_caption->setObjectName(QStringLiteral("thumbnailsCaption"));
    m_caption->setWordWrap(true);
    m_grid = new QSpriteDragListView(rightPage);
    m_grid->setObjectName(QStringLiteral("thumbnailsGrid"));
    auto* delegate = new QThumbnailDelegate(
        m_cache,
        [this](const QModelIndex& index) {
            QThumbnailDelegate::Cell cell;
            if (!m_project)
                return cell;
            QSprites* sprites = m_project->sprites();
            if (!m_actions) {
                cell.sprite = sprites->at(index.row());
                if (cell.sprite)
                    cell.caption
                        = QStringLiteral("%1,%2").arg(cell.sprite->itemGroup()).arg(cell.sprite->itemIndex());
                return cell;
            }
            const QAnimation* action = m_project->animations()->at(index.row());
            if (!action)
                return cell;
            cell.caption = QString::number(action->number());
            if (const QAnimationFrame* first = action->frame(0))
                cell.sprite = sprites->at(sprites->find(0, first->sprite().group, first->sprite().index));
            return cell;
        },
        m_grid);
    delegate->setUpGrid(m_grid);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A sprite changed in place shows in the actions' first frames too, where the grid's model is another.
    connect(m_cache, &QThumbnailCache::dropped, m_grid->viewport(), qOverload<>(&QWidget::update));
    m_grid->setSprites([this](const QModelIndexList& rows) {
        QList<QSubItem> sprites;
        if (m_actions || !m_project)
            return sprites;
        for (const QModelIndex& row : rows)
            if (const QSprite* sprite = m_project->sprites()->at(row.row()))
                sprites.append(QSubItem(sprite->itemGroup(), sprite->itemIndex()));
        return sprites;
    });
    connect(m_grid, &QListView::clicked, this, &QThumbnailsEditor::open);
    connect(m_grid, &QListView::activated, this, &QThumbnailsEditor::open);

    // Beside the animations editor the author may want the sprites, to drag them in as frames.
    auto* choice = new QButtonGroup(this);
    auto* buttons = new QHBoxLayout;
    for (QToolButton** button : { &m_showSprites, &m_showActions }) {
        *button = new QToolButton(rightPage);
        (*button)->setCheckable(true);
        (*button)->setAutoRaise(true);
        choice->addButton(*button);
        buttons->addWidget(*button);
    }
    buttons->addStretch(1);
    m_showSprites->setObjectName(QStringLiteral("thumbnailsShowSprites"));
    m_showSprites->setText(tr("Sprites"));
    m_showActions->setObjectName(QStringLiteral("thumbnailsShowActions"));
    m_showActions->setText(tr("Actions"));
    connect(m_showSprites, &QToolButton::clicked, this, [this] { showActions(false); });
    connect(m_showActions, &QToolButton::clicked, this, [this] { showActions(true); });

    auto* layout = new QVBoxLayout(rightPage);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(buttons);
    layout->addWidget(m_caption);
    layout->addWidget(m_grid, 1);
    if (intf)
        connect(intf, &QInterface::editorSwitched, this, &QThumbnailsEditor::follow);
    fill();
}

void QThumbnailsEditor::setProject(QProject* project)
{
    m_project = project;
    fill();
}

void QThumbnailsEditor::follow(QInterfaceEditors editor)
{
    showActions(editor == ieAnimations);
}

void QThumbnailsEditor::showActions(bool actions)
{
    if (m_grid && actions == m_actions && m_grid->model())
        return;
    m_actions = actions;
    fill();
}

void QThumbnailsEditor::fill()
{
    if (!m_grid)
        return;
    // Kept across the switch between sprites and actions: both show the same pictures.
    m_cache->watch(m_project ? m_project->sprites() : nullptr);
    QAbstractItemModel* model = nullptr;
    if (m_project)
        model = m_actions ? static_cast<QAbstractItemModel*>(m_project->animations()) : m_project->sprites();
    m_grid->setModel(model);
    m_showSprites->setChecked(!m_actions);
    m_showActions->setChecked(m_actions);
    m_caption->setText(m_actions ? tr("First frame of each action; click to open it")
                                 : tr("Every sprite; click to open it, or drag it into an action's frames"));
}

void QThumbnailsEditor::open(const QModelIndex& index)
{
    if (intf && index.isValid())
        intf->navigateTo(m_actions ? pftAnimations : pftSprites, 0, index.row(), -1);
}
