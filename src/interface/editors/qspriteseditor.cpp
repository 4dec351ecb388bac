#include "qspriteseditor.h"

#include "qspritefileimport.h"
#include "qspritetablemodel.h"
#include "qeditorpage.h"
#include "image/gui/imgedit.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"
#include "util/qprompt.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSpinBox>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

const char imageFilter[] = QT_TRANSLATE_NOOP("QSpritesEditor", "Images (*.png *.pcx *.gif *.bmp)");

QSpinBox* numberBox(QWidget* parent, const QString& name)
{
    auto* box = new QSpinBox(parent);
    box->setObjectName(name);
    box->setRange(-32768, 32767);
    box->setKeyboardTracking(false);
    return box;
}

/// Asks where a numbered series of `count` pictures goes: first group, index and step.
bool askSeriesPlace(QWidget* parent, int count, int& group, int& index, int& step)
{
    QDialog dialog(parent);
    dialog.setWindowTitle(QSpritesEditor::tr("Add a numbered series"));
    auto* form = new QFormLayout(&dialog);
    form->addRow(new QLabel(QSpritesEditor::tr("%n picture(s) will be added.", nullptr, count)));
    QSpinBox* groupBox = numberBox(&dialog, QStringLiteral("seriesGroup"));
    QSpinBox* indexBox = numberBox(&dialog, QStringLiteral("seriesIndex"));
    QSpinBox* stepBox = numberBox(&dialog, QStringLiteral("seriesStep"));
    groupBox->setValue(group);
    indexBox->setValue(index);
    stepBox->setRange(1, 1000);
    stepBox->setValue(step);
    form->addRow(QSpritesEditor::tr("First group:"), groupBox);
    form->addRow(QSpritesEditor::tr("First index:"), indexBox);
    form->addRow(QSpritesEditor::tr("Step:"), stepBox);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    form->addRow(buttons);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    group = groupBox->value();
    index = indexBox->value();
    step = stepBox->value();
    return true;
}

} // namespace

QSpritesEditor::QSpritesEditor(QViewWorkspace* workspace, QAnimSpriteWorkspace* view, QObject* parent)
    : QViewEditor(workspace, new QWidget, parent)
    , m_view(view)
    , m_model(new QSpriteTableModel(this))
    , m_toolBar(new QToolBar(this->view()))
    , m_goto(new QLineEdit)
    , m_table(new QTableView)
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
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 6);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setMinimumWidth(380);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &QSpritesEditor::currentChanged);
    connect(m_model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& first, const QModelIndex& last) {
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

    QEditorPage::layOut(page, m_toolBar, m_goto, m_table, right, 400);
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

void QSpritesEditor::buildToolBar()
{
    auto add = [this](const QString& name, const QString& text, const QKeySequence& keys,
                      void (QSpritesEditor::*slot)()) {
        connect(QEditorPage::addAction(view(), m_toolBar, name, text, keys), &QAction::triggered, this, slot);
    };
    add(QStringLiteral("sprites_add"), tr("Add..."), QKeySequence(Qt::Key_Insert),
        &QSpritesEditor::addImages);
    add(QStringLiteral("sprites_add_series"), tr("Add series..."),
        QKeySequence(Qt::SHIFT | Qt::Key_Insert), &QSpritesEditor::addSeries);
    add(QStringLiteral("sprites_duplicate"), tr("Duplicate"),
        QKeySequence(Qt::CTRL | Qt::Key_D), &QSpritesEditor::duplicateSelection);
    add(QStringLiteral("sprites_delete"), tr("Delete"), QKeySequence(Qt::Key_Delete),
        &QSpritesEditor::removeSelection);
    m_toolBar->addSeparator();
    add(QStringLiteral("sprites_crop"), tr("Crop"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), &QSpritesEditor::cropSelection);
    add(QStringLiteral("sprites_axis_bottom"), tr("Axis to bottom"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B), &QSpritesEditor::axisToBottomCentre);
    add(QStringLiteral("sprites_edit_image"), tr("Edit image..."), QKeySequence(Qt::CTRL | Qt::Key_E),
        &QSpritesEditor::openImageEditor);
}

ImgEdit* QSpritesEditor::editImage()
{
    const int row = m_table->currentIndex().row();
    if (!sprites() || row < 0)
        return nullptr;
    auto* editor = new ImgEdit(m_table->window());
    // A window of its own over the main one; it goes when the author closes it.
    editor->setWindowFlag(Qt::Window);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    if (!editor->editSprite(sprites(), row)) {
        delete editor;
        return nullptr;
    }
    editor->show();
    return editor;
}

void QSpritesEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QViewEditor::initialized(items, leftPage);
    updateSummary();
}

void QSpritesEditor::activate(bool switched)
{
    QViewEditor::activate(switched);
    // The one view is shared with the animations editor: it comes here and shows sprites.
    m_view->stop();
    if (m_view->widget()->parentWidget() != m_viewSlot->parentWidget() || m_viewSlot->indexOf(m_view->widget()) < 0)
        m_viewSlot->addWidget(m_view->widget(), 1);
    m_view->widget()->show();
    m_view->renderer()->setRenderMode(RenderSprite);
    showSprite();
}

void QSpritesEditor::setProject(QProject* project)
{
    m_project = project;
    m_model->setSprites(project ? project->sprites() : nullptr);
    m_view->setProject(project);
    if (m_model->rowCount() > 0)
        m_table->setCurrentIndex(m_model->index(0, 0));
    updateSummary();
}

QSprites* QSpritesEditor::sprites() const
{
    return m_project ? m_project->sprites() : nullptr;
}

void QSpritesEditor::updateSummary()
{
    const QSprites* sprites = this->sprites();
    const int count = sprites ? sprites->count() : 0;
    const QString file = sprites && !sprites->fileName().isEmpty() ? QFileInfo(sprites->fileName()).fileName()
                                                                    : tr("no sprite file");
    if (!summary())
        return;
    const quint32 version = sprites ? sprites->getVersion() : 0;
    summary()->setText(tr("<b>File:</b> %1<br><b>Sprites:</b> %2<br><b>Palettes:</b> %3<br><b>Version:</b> %4")
                           .arg(file.toHtmlEscaped())
                           .arg(count)
                           .arg(sprites ? sprites->paletteCount() : 0)
                           .arg(QStringLiteral("%1.%2.%3.%4")
                                    .arg(version >> 24)
                                    .arg((version >> 16) & 0xFF)
                                    .arg((version >> 8) & 0xFF)
                                    .arg(version & 0xFF)));
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
    QList<int> rows;
    for (const QModelIndex& index : m_table->selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

bool QSpritesEditor::goTo(const QString& text)
{
    static const QRegularExpression pair(QStringLiteral("^\\s*(-?\\d+)\\s*[,. ]\\s*(-?\\d+)\\s*$"));
    const QRegularExpressionMatch match = pair.match(text);
    if (!sprites() || !match.hasMatch())
        return false;
    const int row = sprites()->find(0, match.captured(1).toInt(), match.captured(2).toInt());
    if (row < 0)
        return false;
    m_table->setCurrentIndex(m_model->index(row, 0));
    m_table->scrollTo(m_model->index(row, 0), QAbstractItemView::PositionAtCenter);
    return true;
}

int QSpritesEditor::addFiles(const QStringList& files, int group, int index, int step)
{
    if (!sprites())
        return 0;
    const int first = sprites()->count();
    QSpriteFileImport import(sprites());
    const int added = import.add(files, group, index, step);
    if (!import.error().isEmpty()) {
        prompt().warning(tr("Add pictures"), import.error());
        m_status->setText(import.error());
        return 0;
    }
    if (added > 0) {
        m_table->clearSelection();
        m_table->setCurrentIndex(m_model->index(first, 0));
        m_table->selectionModel()->select(QItemSelection(m_model->index(first, 0),
                                                         m_model->index(first + added - 1, 0)),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
        m_status->setText(tr("%n sprite(s) added.", nullptr, added));
    }
    return added;
}

void QSpritesEditor::addImages()
{
    if (!sprites())
        return;
    const QStringList files = QFileDialog::getOpenFileNames(view(), tr("Add pictures"), QString(), tr(imageFilter));
    if (files.isEmpty())
        return;
    const QSprite* current = sprites()->at(m_table->currentIndex().row());
    const int group = current ? current->itemGroup() : 0;
    addFiles(files, group, sprites()->nextSpriteIndex(group), 1);
}

void QSpritesEditor::addSeries()
{
    if (!sprites())
        return;
    const QString first = QFileDialog::getOpenFileName(view(), tr("First picture of the series"), QString(),
                                                       tr(imageFilter));
    if (first.isEmpty())
        return;
    const QStringList files = QSpriteFileImport::numberedSeries(first);
    const QSprite* current = sprites()->at(m_table->currentIndex().row());
    int group = current ? current->itemGroup() : 0;
    int index = sprites()->nextSpriteIndex(group);
    int step = 1;
    if (askSeriesPlace(view(), files.size(), group, index, step))
        addFiles(files, group, index, step);
}

int QSpritesEditor::editSelection(const QString& name, const std::function<void(QSprite*)>& edit)
{
    // Sprites rather than rows: deleting and duplicating move the rows that follow.
    QList<QSprite*> selected;
    const QList<int> rows = selectedRows();
    for (int i = rows.size() - 1; i >= 0; --i)
        selected.append(sprites()->at(rows.at(i)));
    if (selected.isEmpty())
        return 0;
    sprites()->beginMacro(name);
    for (QSprite* sprite : selected)
        edit(sprite);
    sprites()->endMacro();
    return selected.size();
}

void QSpritesEditor::removeSelection()
{
    const int count = editSelection(tr("delete sprites"),
                                    [this](QSprite* sprite) { sprites()->remove(sprites()->indexOf(sprite)); });
    if (count > 0)
        m_status->setText(tr("%n sprite(s) deleted.", nullptr, count));
}

void QSpritesEditor::duplicateSelection()
{
    editSelection(tr("duplicate sprites"), [](QSprite* sprite) { sprite->duplicate(); });
}

void QSpritesEditor::cropSelection()
{
    editSelection(tr("crop sprites"), [](QSprite* sprite) { sprite->crop(); });
}

void QSpritesEditor::axisToBottomCentre()
{
    editSelection(tr("axis to bottom centre"), [](QSprite* sprite) {
        const QImageInfo info = sprite->imageInfo();
        sprite->setOffset(QPoint(info.width / 2, info.height));
    });
}

void QSpritesEditor::setSelectionAxis(int x, int y)
{
    editSelection(tr("set axis"), [x, y](QSprite* sprite) {
        if (sprite->offset() != QPoint(x, y))
            sprite->setOffset(QPoint(x, y));
    });
}

void QSpritesEditor::applyItem()
{
    QSprite* sprite = sprites() ? sprites()->at(m_table->currentIndex().row()) : nullptr;
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
    const QSprite* sprite = sprites() ? sprites()->at(m_table->currentIndex().row()) : nullptr;
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
