#include "qanimationseditor.h"

#include "qframetablemodel.h"
#include "interface/workspaces/qtextundostack.h"
#include "model/qanimation.h"
#include "model/qanimationedit.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "qeditorpage.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

QAnimationsEditor::QAnimationsEditor(QViewWorkspace* workspace, QAnimSpriteWorkspace* view, QObject* parent)
    : QViewEditor(workspace, new QWidget, parent)
    , m_view(view)
    , m_filter(new QSortFilterProxyModel(this))
    , m_model(new QFrameTableModel(nullptr, this))
    , m_toolBar(new QToolBar(this->view()))
    , m_search(new QLineEdit)
    , m_list(new QListView)
    , m_frames(new QTableView)
    , m_viewSlot(new QVBoxLayout)
{
    QWidget* page = this->view();
    page->setObjectName(QStringLiteral("animationsView"));
    m_toolBar->setObjectName(QStringLiteral("animationsToolBar"));

    m_filter->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_search->setObjectName(QStringLiteral("actionsSearch"));
    m_search->setPlaceholderText(tr("Search number or name"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::textChanged, m_filter, &QSortFilterProxyModel::setFilterFixedString);
    m_list->setObjectName(QStringLiteral("actionsList"));
    m_list->setModel(m_filter);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setUniformItemSizes(true);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &QAnimationsEditor::actionChanged);

    m_frames->setObjectName(QStringLiteral("framesTable"));
    m_frames->setModel(m_model);
    m_frames->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_frames->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                              | QAbstractItemView::AnyKeyPressed);
    m_frames->setAlternatingRowColors(true);
    m_frames->verticalHeader()->setDefaultSectionSize(m_frames->fontMetrics().height() + 6);
    m_frames->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(m_frames->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &QAnimationsEditor::showFrame);
    // The table is read again after each change of the text; the author stays on the frame.
    connect(m_model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this] { m_frameRow = m_frames->currentIndex().row(); });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] {
        if (m_frameRow >= 0 && m_model->rowCount() > 0) {
            const QSignalBlocker blocker(m_frames->selectionModel());
            m_frames->setCurrentIndex(m_model->index(qMin(m_frameRow, m_model->rowCount() - 1), 0));
        }
        showFrame();
    });
    connect(m_view, &QAnimSpriteWorkspace::frameChanged, this, [this](int position) {
        const QSignalBlocker blocker(m_frames->selectionModel());
        m_frames->setCurrentIndex(m_model->index(position, 0));
    });

    auto* viewHost = new QWidget;
    viewHost->setLayout(m_viewSlot);
    m_viewSlot->setContentsMargins(0, 0, 0, 0);
    auto* right = new QSplitter(Qt::Vertical);
    right->addWidget(viewHost);
    right->addWidget(m_frames);
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 1);
    // The view arrives only when the editor is first shown: its place is held open.
    viewHost->setMinimumHeight(240);
    right->setSizes({ 520, 180 });

    QEditorPage::layOut(page, m_toolBar, m_search, m_list, right, 240);
    buildToolBar();
}

QAnimationsEditor::~QAnimationsEditor()
{
    delete m_undo;
}

void QAnimationsEditor::buildToolBar()
{
    auto add = [this](const QString& name, const QString& text, const QKeySequence& keys,
                      void (QAnimationsEditor::*slot)()) {
        connect(QEditorPage::addAction(view(), m_toolBar, name, text, keys), &QAction::triggered, this, slot);
    };
    add(QStringLiteral("anim_new"), tr("New action"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), &QAnimationsEditor::newAction);
    add(QStringLiteral("anim_duplicate"), tr("Duplicate"),
        QKeySequence(Qt::CTRL | Qt::Key_D), &QAnimationsEditor::duplicateAction);
    add(QStringLiteral("anim_delete"), tr("Delete action"),
        QKeySequence(Qt::CTRL | Qt::Key_Delete), &QAnimationsEditor::removeAction);
    m_toolBar->addSeparator();
    add(QStringLiteral("anim_add_frame"), tr("Add frame"), QKeySequence(Qt::Key_Insert),
        &QAnimationsEditor::addFrame);
    add(QStringLiteral("anim_delete_frame"), tr("Delete frame"),
        QKeySequence(Qt::SHIFT | Qt::Key_Delete), &QAnimationsEditor::removeFrame);
    add(QStringLiteral("anim_boxes_to_all"), tr("Boxes to all frames"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A), &QAnimationsEditor::copyBoxesToAll);
    m_toolBar->addSeparator();
    add(QStringLiteral("anim_play"), tr("Play"), QKeySequence(Qt::Key_F5),
        &QAnimationsEditor::play);
    add(QStringLiteral("anim_stop"), tr("Stop"), QKeySequence(Qt::Key_F6),
        &QAnimationsEditor::stop);
}

void QAnimationsEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QViewEditor::initialized(items, leftPage);
    updateSummary();
}

void QAnimationsEditor::activate(bool switched)
{
    QViewEditor::activate(switched);
    if (m_viewSlot->indexOf(m_view->widget()) < 0)
        m_viewSlot->addWidget(m_view->widget(), 1);
    m_view->widget()->show();
    m_view->renderer()->setRenderMode(RenderAnimation);
    actionChanged();
}

void QAnimationsEditor::deactivate()
{
    // Playback re-enters the event loop; it must not run on behind another editor.
    m_view->stop();
    QViewEditor::deactivate();
}

void QAnimationsEditor::setProject(QProject* project)
{
    m_view->stop();
    m_project = project;
    QAnimations* animations = project ? project->animations() : nullptr;
    m_filter->setSourceModel(animations);
    m_model->setAnimations(animations);
    delete m_undo;
    m_undo = project && project->animationText() ? new QTextUndoStack(project->animationText()->document())
                                                 : nullptr;
    m_view->setProject(project);
    if (m_filter->rowCount() > 0)
        m_list->setCurrentIndex(m_filter->index(0, 0));
    updateSummary();
    emit undoStackChanged(m_undo);
}

void QAnimationsEditor::updateSummary()
{
    if (!summary())
        return;
    const QAnimations* animations = m_project ? m_project->animations() : nullptr;
    summary()->setText(tr("<b>Actions:</b> %1<br>Double-click a cell of the frames to change it; drag the sprite "
                          "in the view to move it.")
                           .arg(animations ? animations->count() : 0));
}

void QAnimationsEditor::navigateTo(int, int index, int)
{
    setCurrentAction(index);
}

QUndoStack* QAnimationsEditor::undoStack() const
{
    return m_undo;
}

int QAnimationsEditor::currentAction() const
{
    const QModelIndex index = m_filter->mapToSource(m_list->currentIndex());
    return index.isValid() ? index.row() : -1;
}

void QAnimationsEditor::setCurrentAction(int position)
{
    if (!m_filter->sourceModel())
        return;
    m_list->setCurrentIndex(m_filter->mapFromSource(m_filter->sourceModel()->index(position, 0)));
}

void QAnimationsEditor::actionChanged()
{
    const int position = currentAction();
    m_frameRow = -1;
    m_model->setAction(position);
    if (position >= 0 && m_project)
        m_project->animations()->setCurrentIndex(uint(position));
    if (m_model->rowCount() > 0)
        m_frames->setCurrentIndex(m_model->index(0, 0));
    showFrame();
}

void QAnimationsEditor::showFrame()
{
    if (!isActive() || m_viewSlot->indexOf(m_view->widget()) < 0 || m_view->isPlaying())
        return;
    QSprRender* renderer = m_view->renderer();
    const int action = currentAction();
    if (action < 0) {
        renderer->reset();
    } else {
        renderer->setIndex(uint(action));
        renderer->setFrame(uint(qMax(0, m_frames->currentIndex().row())));
    }
    renderer->update();
}

void QAnimationsEditor::newAction()
{
    QAnimations* animations = m_project ? m_project->animations() : nullptr;
    if (!animations)
        return;
    int number = 0;
    for (const QAnimation* animation : animations->animations())
        number = qMax(number, animation->number() + 1);
    animations->add(number);
    setCurrentAction(animations->count() - 1);
}

void QAnimationsEditor::duplicateAction()
{
    QAnimations* animations = m_project ? m_project->animations() : nullptr;
    const int position = currentAction();
    if (!animations || position < 0)
        return;
    int number = 0;
    for (const QAnimation* animation : animations->animations())
        number = qMax(number, animation->number() + 1);
    animations->duplicate(uint(position), number);
    setCurrentAction(animations->find(0, number));
}

void QAnimationsEditor::removeAction()
{
    const int position = currentAction();
    if (position >= 0) {
        m_project->animations()->remove(uint(position));
        setCurrentAction(qMin(position, m_project->animations()->count() - 1));
    }
}

void QAnimationsEditor::addFrame()
{
    QAnimation* action = m_model->action();
    if (!action)
        return;
    const int row = action->frameCount();
    const QAnimationFrame* last = action->frame(row - 1);
    QAnimationFrame* frame = action->addFrame();
    if (!frame)
        return;
    const QSprite* sprite = m_view->renderer()->sprite();
    const QSubItem item = last ? last->sprite() : sprite ? sprite->subItem() : QSubItem(0, 0);
    frame->setProperties(item, last ? last->offset() : QPoint(), last ? last->time() : 5, 0, afbNone, QBlendTarget());
    m_frames->setCurrentIndex(m_model->index(row, 0));
}

void QAnimationsEditor::removeFrame()
{
    QAnimation* action = m_model->action();
    const int row = m_frames->currentIndex().row();
    QAnimationFrame* frame = action ? action->frame(row) : nullptr;
    if (!frame)
        return;
    // The frame's text goes with its boxes and inter-frame lines: the AIR model removes the whole group.
    QAnimationEdit edit(m_project->animationText());
    frame->remove(true);
}

void QAnimationsEditor::copyBoxesToAll()
{
    QAnimation* action = m_model->action();
    const int sourceRow = m_frames->currentIndex().row();
    const QAnimationFrame* source = action ? action->frame(sourceRow) : nullptr;
    if (!source)
        return;
    // The rectangles are taken first: each box written re-reads the text, and the frames with it.
    QList<QRect> rects[2];
    for (QCollisionBoxType type : { cbtClsn1, cbtClsn2 })
        if (const QCollisionBoxes* boxes = source->collisionBoxes(type))
            for (const QCollisionBox* box : boxes->boxes())
                rects[type].append(box->rect());
    QAnimationEdit edit(m_project->animationText());
    for (int row = 0; row < action->frameCount(); ++row) {
        if (row == sourceRow)
            continue;
        for (QCollisionBoxType type : { cbtClsn1, cbtClsn2 }) {
            if (rects[type].isEmpty())
                continue;
            if (QCollisionBoxes* old = action->frame(row)->collisionBoxes(type))
                old->clear();
            for (const QRect& rect : rects[type])
                action->frame(row)->insertBox(type, rect);
        }
    }
}

void QAnimationsEditor::play()
{
    if (!m_view->isPlaying())
        m_view->play();
}

void QAnimationsEditor::stop()
{
    m_view->stop();
}
