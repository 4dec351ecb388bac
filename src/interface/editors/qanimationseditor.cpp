#include "qanimationseditor.h"

#include "interface/workspaces/qtexteditor.h"
#include "interface/workspaces/qtextundostack.h"
#include "model/qanimation.h"
#include "model/qanimationedit.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "qactionlistpanel.h"
#include "qeditorpage.h"
#include "qframeboxtools.h"
#include "qframetablemodel.h"
#include "qplaybackcontrols.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QAction>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSplitter>
#include <QTableView>
#include <QTextBlock>
#include <QTextDocument>
#include <QToolBar>
#include <QBoxLayout>
#include <QVBoxLayout>

namespace {

/// A tool bar over a part of the page, with its commands' text beside any icon.
QToolBar* partToolBar(const QString& name)
{
    auto* bar = new QToolBar;
    bar->setObjectName(name);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setIconSize(QSize(16, 16));
    return bar;
}

/// The parts in a row or column without margins or gaps, each with its stretch.
QWidget* tightBox(QBoxLayout::Direction direction, std::initializer_list<std::pair<QWidget*, int>> parts)
{
    auto* box = new QWidget;
    auto* layout = new QBoxLayout(direction, box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const auto& [widget, stretch] : parts)
        layout->addWidget(widget, stretch);
    return box;
}

} // namespace

QAnimationsEditor::QAnimationsEditor(QViewWorkspace* workspace, QAnimSpriteWorkspace* view, QObject* parent)
    : QViewEditor(workspace, new QWidget, parent)
    , m_view(view)
    , m_actions(new QActionListPanel(this))
    , m_model(new QFrameTableModel(nullptr, this))
    , m_playback(new QPlaybackControls(view, this))
    , m_boxes(new QFrameBoxTools(view->renderer(), this))
    , m_toolBar(new QToolBar(this->view()))
    , m_frames(new QTableView)
    , m_text(new QTextEditor)
    , m_emptyText(new QTextDocument(m_text))
    , m_viewSlot(new QVBoxLayout)
{
    QWidget* page = this->view();
    page->setObjectName(QStringLiteral("animationsView"));
    m_toolBar->setObjectName(QStringLiteral("animationsToolBar"));
    connect(m_actions, &QActionListPanel::currentChanged, this, &QAnimationsEditor::actionChanged);

    m_frames->setObjectName(QStringLiteral("framesTable"));
    m_frames->setModel(m_model);
    m_frames->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_frames->setSelectionMode(QAbstractItemView::SingleSelection);
    m_frames->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
        | QAbstractItemView::AnyKeyPressed);
    m_frames->setAlternatingRowColors(true);
    m_frames->setDragDropMode(QAbstractItemView::DropOnly);
    m_frames->setDropIndicatorShown(true);
    m_frames->setAcceptDrops(true);
    m_frames->verticalHeader()->setDefaultSectionSize(m_frames->fontMetrics().height() + 6);
    // Every title whole, every value readable: the columns take what their
    // text needs and the last one the rest; a narrow table scrolls.
    QHeaderView* header = m_frames->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setStretchLastSection(true);
    header->setMinimumSectionSize(m_frames->fontMetrics().horizontalAdvance(QStringLiteral("00000")));
    connect(m_frames->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        &QAnimationsEditor::showFrame);
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
    connect(m_model, &QAbstractItemModel::dataChanged, this, &QAnimationsEditor::showFrame);
    connect(m_view, &QAnimSpriteWorkspace::frameChanged, this, [this](int position) {
        const QSignalBlocker blocker(m_frames->selectionModel());
        m_frames->setCurrentIndex(m_model->index(position, 0));
    });
    connect(m_playback, &QPlaybackControls::rewound, this, [this] { showRow(0); });
    connect(m_boxes, &QFrameBoxTools::showFrame, this, &QAnimationsEditor::showRow);

    m_text->setObjectName(QStringLiteral("animationText"));
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setTextDocument(m_emptyText);
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(400);
    connect(&m_checkTimer, &QTimer::timeout, this, [this] {
        if (m_project)
            m_project->animations()->checkErrors();
    });

    auto* viewHost = new QWidget;
    viewHost->setLayout(m_viewSlot);
    m_viewSlot->setContentsMargins(0, 0, 0, 0);
    // The view arrives only when the editor is first shown: its place is held open.
    viewHost->setMinimumHeight(240);
    QToolBar* playBar = partToolBar(QStringLiteral("playbackToolBar"));
    // Short words only, the whole story in the tool tips, as the box commands beside the view.
    playBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    QToolBar* framesBar = partToolBar(QStringLiteral("framesToolBar"));
    // The box commands stand beside the view they work in, as a painter's tools do.
    QToolBar* boxesBar = partToolBar(QStringLiteral("boxesToolBar"));
    boxesBar->setOrientation(Qt::Vertical);
    boxesBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    QWidget* viewColumn = tightBox(QBoxLayout::LeftToRight, { { boxesBar, 0 }, { viewHost, 1 } });

    auto* top = new QSplitter(Qt::Horizontal);
    top->addWidget(viewColumn);
    top->addWidget(m_text);
    top->setStretchFactor(0, 3);
    top->setStretchFactor(1, 1);
    top->setSizes({ 600, 280 });
    auto* right = new QSplitter(Qt::Vertical);
    // The transport runs under the view and the text together: its words fit in any language.
    right->addWidget(tightBox(QBoxLayout::TopToBottom, { { top, 1 }, { playBar, 0 } }));
    right->addWidget(tightBox(QBoxLayout::TopToBottom, { { framesBar, 0 }, { m_frames, 1 } }));
    right->setStretchFactor(0, 3);
    right->setStretchFactor(1, 1);
    right->setSizes({ 480, 220 });

    QEditorPage::layOut(page, m_toolBar, m_actions->searchField(), m_actions->list(), right, 200);
    m_actions->addActions(page, m_toolBar);
    m_playback->addActions(page, playBar);
    buildToolBars(framesBar);
    m_boxes->addActions(page, boxesBar);
}

QAnimationsEditor::~QAnimationsEditor()
{
    delete m_undo;
}

void QAnimationsEditor::buildToolBars(QToolBar* framesBar)
{
    QWidget* page = view();
    connect(QEditorPage::addAction(page, framesBar, QStringLiteral("anim_add_frame"), tr("Add frame"),
                QKeySequence(Qt::Key_Insert)),
        &QAction::triggered, this, &QAnimationsEditor::addFrame);
    connect(QEditorPage::addAction(page, framesBar, QStringLiteral("anim_delete_frame"), tr("Delete frame"),
                QKeySequence(Qt::SHIFT | Qt::Key_Delete)),
        &QAction::triggered, this, &QAnimationsEditor::removeFrame);
}

void QAnimationsEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QViewEditor::initialized(items, leftPage);
    updateSummary();
}

void QAnimationsEditor::activate(bool switched)
{
    QViewEditor::activate(switched);
    // The sprite the sprites editor showed is the one "Add frame" takes.
    if (const QSprite* sprite = m_view->renderer()->sprite(); sprite && !m_view->renderer()->hasFrame()) {
        m_lastSprite = sprite->subItem();
        m_hasLastSprite = true;
    }
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
    m_view->renderer()->setOnionSkin(false, EffectMonochrome, 0);
    QViewEditor::deactivate();
}

void QAnimationsEditor::setProject(QProject* project)
{
    m_view->stop();
    if (m_project)
        m_project->animations()->disconnect(this);
    m_project = project;
    m_hasLastSprite = false;
    QAnimations* animations = project ? project->animations() : nullptr;
    m_model->setAnimations(animations);
    delete m_undo;
    QSyntaxTextEditor* text = project ? project->animationText() : nullptr;
    m_undo = text ? new QTextUndoStack(text->document()) : nullptr;
    m_shownText = text ? text->document() : nullptr;
    // The pane gives the document a layout of its own, and a new layout
    // reports the whole text as changed: the model reads it again, but must
    // not renumber boxes then, which would be an edit the author never made.
    const bool renumber = animations && animations->renumber();
    if (animations)
        animations->setRenumber(false);
    m_text->setTextDocument(text ? text->document() : m_emptyText);
    if (animations)
        animations->setRenumber(renumber);
    if (text) {
        // A closed project takes its text along; the pane must not keep showing it.
        QTextDocument* document = text->document();
        connect(document, &QObject::destroyed, this, [this, document] {
            if (m_shownText == document) {
                m_shownText = nullptr;
                m_text->setTextDocument(m_emptyText);
            }
        });
    }
    m_view->setProject(project);
    if (animations) {
        connect(animations, &QAnimations::changed, this, [this] {
            m_checkTimer.start();
            updateSummary();
        });
    }
    m_actions->setAnimations(animations);
    updateSummary();
    emit undoStackChanged(m_undo);
}

void QAnimationsEditor::updateSummary()
{
    if (!summary())
        return;
    const QAnimations* animations = m_project ? m_project->animations() : nullptr;
    summary()->setText(
        tr("<b>Actions:</b> %1<br>Double-click a cell of the frames to change it, drop sprites on "
           "the table to add frames; drag the sprite in the view to move it, Alt+2 draws a Clsn2 box.")
            .arg(animations ? animations->count() : 0));
}

void QAnimationsEditor::navigateTo(int, int index, int line)
{
    QAnimations* animations = m_project ? m_project->animations() : nullptr;
    if (!animations)
        return;
    // Without a line, what is named is an action by its place in the list.
    if (line < 0) {
        if (index >= 0 && index < animations->count())
            setCurrentAction(index);
        return;
    }
    // The action is the last one whose header stands at or above the line;
    // the frame the first of it at or below the line (its boxes stand above it).
    int action = -1;
    for (int i = 0; i < animations->count() && animations->at(i)->line() <= line; ++i)
        action = i;
    if (action >= 0) {
        setCurrentAction(action);
        const QAnimation* animation = animations->at(action);
        int row = animation->frameCount() - 1;
        for (int i = 0; i < animation->frameCount(); ++i) {
            if (animation->frame(i)->line() >= line) {
                row = i;
                break;
            }
        }
        if (row >= 0 && animation->line() < line)
            showRow(row);
    }
    const QTextBlock block = m_text->document()->findBlockByNumber(line);
    if (block.isValid()) {
        QTextCursor cursor(block);
        cursor.movePosition(
            QTextCursor::Right, QTextCursor::MoveAnchor, qBound(0, index, block.length() - 1));
        m_text->setTextCursor(cursor);
        m_text->centerCursor();
    }
}

QUndoStack* QAnimationsEditor::undoStack() const
{
    return m_undo;
}

QListView* QAnimationsEditor::actionList() const
{
    return m_actions->list();
}

int QAnimationsEditor::currentAction() const
{
    return m_actions->currentAction();
}

void QAnimationsEditor::setCurrentAction(int position)
{
    m_actions->setCurrentAction(position);
}

void QAnimationsEditor::newAction()
{
    m_actions->newAction();
}

void QAnimationsEditor::showRow(int row)
{
    if (row >= 0 && row < m_model->rowCount())
        m_frames->setCurrentIndex(
            m_model->index(row, m_frames->currentIndex().isValid() ? m_frames->currentIndex().column() : 0));
}

void QAnimationsEditor::actionChanged()
{
    const int position = currentAction();
    m_view->stop();
    m_frameRow = -1;
    m_model->setAction(position);
    if (position >= 0 && m_project) {
        m_project->animations()->setCurrentIndex(uint(position));
        // The text pane shows the action too, unless the author is typing there.
        if (!m_text->hasFocus()) {
            const QTextBlock header = m_text->document()->findBlockByNumber(m_model->action()->line());
            m_text->setTextCursor(QTextCursor(header));
            m_text->centerCursor();
        }
    }
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
    } else if (const int row = qMax(0, m_frames->currentIndex().row());
               renderer->animation() != m_model->action() || !renderer->frame()
               || int(renderer->frameIndex()) != row) {
        // The view follows the text's changes of the frame it shows by itself,
        // and keeps a drag or a selection of boxes across them.
        renderer->setIndex(uint(action));
        renderer->setFrame(uint(row));
    }
    m_playback->updateOnion();
}

void QAnimationsEditor::addFrame()
{
    QAnimation* action = m_model->action();
    if (!action)
        return;
    const QAnimationFrame* last = action->frame(action->frameCount() - 1);
    const QSubItem sprite = m_hasLastSprite ? m_lastSprite : last ? last->sprite() : QSubItem(0, 0);
    const int row = m_model->insertSprites(-1, { sprite });
    if (row >= 0)
        showRow(row);
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
    m_boxes->copyToAll();
}
