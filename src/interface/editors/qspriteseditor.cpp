// The sprites editor's page: the list (table or thumbnails), the view, the
// fields of the current sprite, and following the current sprite. What the
// tool bar does is in qspriteseditoractions.cpp.
#include "qspriteseditor.h"

#include "qeditorpage.h"
#include "qspritetablemodel.h"
#include "qthumbnailcache.h"
#include "qthumbnaildelegate.h"
#include "interface/qclickablelabel.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"
#include "util/qengineversion.h"
#include "util/qprompt.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMainWindow>
#include <QSpinBox>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTableView>
#include <QToolBar>
#include <QUndoStack>
#include <QVBoxLayout>

using QEditorPage::numberBox;

QSpritesEditor::QSpritesEditor(QViewWorkspace* workspace, QAnimSpriteWorkspace* view, QObject* parent)
    : QViewEditor(workspace, new QWidget, parent)
    , m_view(view)
    , m_model(new QSpriteTableModel(this))
    , m_toolBar(new QToolBar(this->view()))
    , m_goto(new QLineEdit)
    , m_table(new QTableView)
    , m_grid(new QListView)
    , m_lists(new QStackedWidget)
    , m_thumbnails(new QThumbnailCache(64, 1500, this))
    , m_version(new QClickableLabel)
    , m_viewSlot(new QVBoxLayout)
    , m_status(new QLabel)
{
    QWidget* page = this->view();
    page->setObjectName(QStringLiteral("spritesView"));
    m_toolBar->setObjectName(QStringLiteral("spritesToolBar"));
    m_goto->setObjectName(QStringLiteral("spritesGoTo"));
    m_goto->setPlaceholderText(tr("Go to group,index (Enter)"));
    m_goto->setClearButtonEnabled(true);
    connect(m_goto, &QLineEdit::returnPressed, this, [this] {
        if (!goTo(m_goto->text()))
            m_status->setText(tr("No sprite %1.").arg(m_goto->text()));
    });

    m_table->setObjectName(QStringLiteral("spritesList"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    // Group, index, axis and palette are typed into their cells (F2 or a double click).
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
        | QAbstractItemView::SelectedClicked);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 6);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    // Columns fit the rows in view rather than the first thousand, so a large file lists at once.
    m_table->horizontalHeader()->setResizeContentsPrecision(0);
    m_table->horizontalHeader()->setStretchLastSection(true);
    // The columns get their room from the splitter's first sizes; the minimum stays low enough that
    // the page, with both panels beside it, fits a 1280 pixels wide screen in any language.
    m_table->setMinimumWidth(320);
    buildGrid();
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        &QSpritesEditor::currentChanged);
    connect(m_model, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& first, const QModelIndex& last) {
            const int row = m_table->currentIndex().row();
            if (row >= first.row() && row <= last.row())
                currentChanged();
        });
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &QSpritesEditor::currentChanged);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &QSpritesEditor::updateSummary);
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &QSpritesEditor::updateSummary);
    connect(m_model, &QAbstractItemModel::modelReset, this, &QSpritesEditor::updateSummary);

    // The properties of the current sprite under the view.
    m_group = numberBox(page, QStringLiteral("spriteGroup"));
    m_index = numberBox(page, QStringLiteral("spriteIndex"));
    m_axisX = numberBox(page, QStringLiteral("spriteAxisX"));
    m_axisY = numberBox(page, QStringLiteral("spriteAxisY"));
    m_axisX->setToolTip(tr("Axis of every selected sprite; drag the sprite in the view to move it"));
    m_axisY->setToolTip(m_axisX->toolTip());
    for (QSpinBox* box : { m_group, m_index })
        connect(box, &QSpinBox::valueChanged, this, &QSpritesEditor::applyItem);
    for (QSpinBox* box : { m_axisX, m_axisY })
        connect(box, &QSpinBox::valueChanged, this, &QSpritesEditor::applyAxis);
    auto* properties = new QHBoxLayout;
    properties->setContentsMargins(6, 4, 6, 4);
    properties->addWidget(new QLabel(tr("Group")));
    properties->addWidget(m_group);
    properties->addWidget(new QLabel(tr("Index")));
    properties->addWidget(m_index);
    properties->addSpacing(16);
    properties->addWidget(new QLabel(tr("Axis X")));
    properties->addWidget(m_axisX);
    properties->addWidget(new QLabel(tr("Y")));
    properties->addWidget(m_axisY);
    properties->addStretch(1);
    m_status->setObjectName(QStringLiteral("spritesStatus"));
    properties->addWidget(m_status);

    auto* right = new QWidget;
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->setSpacing(0);
    rightLayout->addLayout(m_viewSlot, 1);
    rightLayout->addLayout(properties);

    m_lists->addWidget(m_table);
    m_lists->addWidget(m_grid);
    QEditorPage::layOut(page, m_toolBar, m_goto, m_lists, right, 400);
    buildToolBar();

    connect(m_view->renderer(), &QSprRender::axisChanged, this, [this](const QPoint& axis) {
        if (m_view->renderer()->hasFrame() || !m_table->isVisible())
            return;
        m_updating = true;
        m_axisX->setValue(axis.x());
        m_axisY->setValue(axis.y());
        m_updating = false;
    });
}

void QSpritesEditor::buildGrid()
{
    m_grid->setObjectName(QStringLiteral("spritesGrid"));
    auto* delegate = new QThumbnailDelegate(
        m_thumbnails,
        [this](const QModelIndex& index) {
            const QSprite* sprite = sprites() ? sprites()->at(index.row()) : nullptr;
            return QThumbnailDelegate::Cell { sprite,
                sprite ? QStringLiteral("%1,%2").arg(sprite->itemGroup()).arg(sprite->itemIndex())
                       : QString() };
        },
        m_grid);
    delegate->setUpGrid(m_grid);
    m_grid->setModel(m_model);
    // One selection for both lists, so switching between them keeps what the author picked.
    m_grid->setSelectionModel(m_table->selectionModel());
    m_grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void QSpritesEditor::showThumbnails(bool on)
{
    QAbstractItemView* shown = on ? static_cast<QAbstractItemView*>(m_grid) : m_table;
    const bool focused = m_lists->currentWidget()->hasFocus();
    if (!on) {
        // What was picked in the grid shows in the table as whole rows.
        QItemSelection rows;
        for (int row : selectedRows())
            rows.select(m_model->index(row, 0), m_model->index(row, 0));
        m_table->selectionModel()->select(rows, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    m_lists->setCurrentWidget(shown);
    if (m_thumbnailsAction && m_thumbnailsAction->isChecked() != on)
        m_thumbnailsAction->setChecked(on);
    shown->scrollTo(m_table->currentIndex(), QAbstractItemView::PositionAtCenter);
    if (focused)
        shown->setFocus();
}

void QSpritesEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QViewEditor::initialized(items, leftPage);
    // The version item joins the window's status bar, seen only while this editor is current.
    m_version->setObjectName(QStringLiteral("spritesVersion"));
    m_version->setCursor(Qt::PointingHandCursor);
    m_version->setToolTip(tr("The SFF version the sprites are saved in; click to change it"));
    m_version->hide();
    if (auto* window = qobject_cast<QMainWindow*>(leftPage->window()))
        window->statusBar()->addPermanentWidget(m_version);
    connect(m_version, &QClickableLabel::clicked, this, &QSpritesEditor::askVersion);
    updateSummary();
}

void QSpritesEditor::deactivate()
{
    QViewEditor::deactivate();
    m_version->hide();
}

void QSpritesEditor::activate(bool switched)
{
    QViewEditor::activate(switched);
    // The one view is shared with the animations editor: it comes here and shows sprites.
    m_view->stop();
    if (m_view->widget()->parentWidget() != m_viewSlot->parentWidget()
        || m_viewSlot->indexOf(m_view->widget()) < 0)
        m_viewSlot->addWidget(m_view->widget(), 1);
    m_view->widget()->show();
    m_view->renderer()->setRenderMode(RenderSprite);
    m_version->setVisible(isActive() && m_version->parentWidget());
    showSprite();
}

void QSpritesEditor::setProject(QProject* project)
{
    // The project may be gone already: the connection, not the project, is asked to end.
    disconnect(m_versionFollower);
    m_project = project;
    // The version is a setting of the file with no row of its own: its label follows every undo step.
    if (sprites())
        m_versionFollower = connect(
            sprites()->undoStack(), &QUndoStack::indexChanged, this, &QSpritesEditor::updateVersion);
    m_model->setSprites(project ? project->sprites() : nullptr);
    m_thumbnails->watch(project ? project->sprites() : nullptr);
    m_view->setProject(project);
    if (m_model->rowCount() > 0)
        m_table->setCurrentIndex(m_model->index(0, 0));
    updateSummary();
}

QSprites* QSpritesEditor::sprites() const
{
    return m_project ? m_project->sprites() : nullptr;
}

QSprite* QSpritesEditor::currentSprite() const
{
    return sprites() ? sprites()->at(m_table->currentIndex().row()) : nullptr;
}

void QSpritesEditor::updateSummary()
{
    const QSprites* sprites = this->sprites();
    const int count = sprites ? sprites->count() : 0;
    const QString file = sprites && !sprites->fileName().isEmpty() ? QFileInfo(sprites->fileName()).fileName()
                                                                   : tr("no sprite file");
    updateVersion();
    if (!summary())
        return;
    summary()->setText(
        tr("<b>File:</b> %1<br><b>Sprites:</b> %2<br><b>Palettes:</b> %3<br><b>Version:</b> %4")
            .arg(file.toHtmlEscaped())
            .arg(count)
            .arg(sprites ? sprites->paletteCount() : 0)
            .arg(engineVersion::dotted(sprites ? sprites->getVersion() : 0)));
}

void QSpritesEditor::navigateTo(int, int index, int)
{
    if (index >= 0 && index < m_model->rowCount())
        m_table->setCurrentIndex(m_model->index(index, 0));
}

QUndoStack* QSpritesEditor::undoStack() const
{
    return m_project ? m_project->sprites()->undoStack() : nullptr;
}

QList<int> QSpritesEditor::selectedRows() const
{
    // The grid selects the first cell of a row, the table the whole row: either counts.
    QList<int> rows;
    for (const QModelIndex& index : m_table->selectionModel()->selectedIndexes())
        if (!rows.contains(index.row()))
            rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

bool QSpritesEditor::goTo(const QString& text)
{
    int group = 0;
    int index = 0;
    if (!sprites() || !QSpriteTableModel::numberPair(text, group, index))
        return false;
    const int row = sprites()->find(0, group, index);
    if (row < 0)
        return false;
    m_table->setCurrentIndex(m_model->index(row, 0));
    m_table->scrollTo(m_model->index(row, 0), QAbstractItemView::PositionAtCenter);
    m_grid->scrollTo(m_model->index(row, 0), QAbstractItemView::PositionAtCenter);
    return true;
}

void QSpritesEditor::applyItem()
{
    QSprite* sprite = currentSprite();
    if (m_updating || !sprite)
        return;
    if (sprite->itemGroup() != m_group->value() || sprite->itemIndex() != m_index->value())
        sprite->setItem(m_group->value(), m_index->value());
}

void QSpritesEditor::applyAxis()
{
    if (!m_updating)
        setSelectionAxis(m_axisX->value(), m_axisY->value());
}

void QSpritesEditor::currentChanged()
{
    const QSprite* sprite = currentSprite();
    m_updating = true;
    for (QSpinBox* box : { m_group, m_index, m_axisX, m_axisY })
        box->setEnabled(sprite);
    if (sprite) {
        m_group->setValue(sprite->itemGroup());
        m_index->setValue(sprite->itemIndex());
        m_axisX->setValue(sprite->offsetX());
        m_axisY->setValue(sprite->offsetY());
    }
    m_updating = false;
    showSprite();
}

void QSpritesEditor::showSprite()
{
    if (!isActive() || m_view->widget()->parentWidget() != m_viewSlot->parentWidget())
        return;
    QSprRender* renderer = m_view->renderer();
    const int row = m_table->currentIndex().row();
    if (row >= 0)
        renderer->setIndex(uint(row));
    else
        renderer->reset();
    renderer->update();
}
