// What the sprites editor's tool bar does to the selection: each edit is one
// undo step of the sprite file, however many sprites it touches.
#include "qspriteseditor.h"

#include "qeditorpage.h"
#include "qspritetablemodel.h"
#include "image/gui/imgedit.h"
#include "model/qsprite.h"
#include "model/qspritepalette.h"
#include "model/qsprites.h"

#include <QAction>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>

QAction* QSpritesEditor::addTool(
    const QString& name, const QString& text, const QKeySequence& keys, void (QSpritesEditor::*slot)())
{
    QAction* action = QEditorPage::addAction(view(), m_toolBar, name, text, keys);
    connect(action, &QAction::triggered, this, slot);
    return action;
}

void QSpritesEditor::buildToolBar()
{
    addTool(QStringLiteral("sprites_add"), tr("Add..."), QKeySequence(Qt::Key_Insert),
        &QSpritesEditor::addImages);
    addTool(QStringLiteral("sprites_add_series"), tr("Add series..."),
        QKeySequence(Qt::SHIFT | Qt::Key_Insert), &QSpritesEditor::addSeries);
    addTool(QStringLiteral("sprites_duplicate"), tr("Duplicate"), QKeySequence(Qt::CTRL | Qt::Key_D),
        &QSpritesEditor::duplicateSelection);
    addTool(QStringLiteral("sprites_delete"), tr("Delete"), QKeySequence(Qt::Key_Delete),
        &QSpritesEditor::removeSelection);
    m_toolBar->addSeparator();
    addTool(QStringLiteral("sprites_crop"), tr("Crop"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
        &QSpritesEditor::cropSelection);
    addTool(QStringLiteral("sprites_axis_bottom"), tr("Axis to bottom"),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B), &QSpritesEditor::axisToBottomCentre);
    addTool(QStringLiteral("sprites_edit_image"), tr("Edit image..."), QKeySequence(Qt::CTRL | Qt::Key_E),
        &QSpritesEditor::openImageEditor);
    m_toolBar->addSeparator();
    addTool(QStringLiteral("sprites_replace"), tr("Replace picture..."), QKeySequence(Qt::CTRL | Qt::Key_R),
        &QSpritesEditor::askReplaceImage);
    addTool(QStringLiteral("sprites_move_up"), tr("Move up"), QKeySequence(Qt::ALT | Qt::Key_Up),
        &QSpritesEditor::moveUp);
    addTool(QStringLiteral("sprites_move_down"), tr("Move down"), QKeySequence(Qt::ALT | Qt::Key_Down),
        &QSpritesEditor::moveDown);
    addTool(QStringLiteral("sprites_link"), tr("Link to sprite..."), QKeySequence(Qt::CTRL | Qt::Key_L),
        &QSpritesEditor::askLink);
    addTool(QStringLiteral("sprites_unlink"), tr("Unlink"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L),
        &QSpritesEditor::unlinkSelection);
    addTool(QStringLiteral("sprites_palette"), tr("Use palette..."), QKeySequence(Qt::CTRL | Qt::Key_P),
        &QSpritesEditor::askPalette);
    addTool(QStringLiteral("sprites_export"), tr("Export pictures..."),
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E), &QSpritesEditor::askExport);
    m_toolBar->addSeparator();
    m_thumbnailsAction = QEditorPage::addAction(view(), m_toolBar, QStringLiteral("sprites_thumbnails"),
        tr("Thumbnails"), QKeySequence(Qt::CTRL | Qt::Key_T));
    m_thumbnailsAction->setCheckable(true);
    connect(m_thumbnailsAction, &QAction::toggled, this, &QSpritesEditor::showThumbnails);

    // The daily few keep their names beside the icon; the rest show icons alone, named in their tool tips,
    // so the whole bar fits beside the view on a laptop screen.
    const QStringList named = { QStringLiteral("sprites_add"), QStringLiteral("sprites_add_series"),
        QStringLiteral("sprites_delete"), QStringLiteral("sprites_thumbnails") };
    for (QAction* action : m_toolBar->actions())
        if (auto* button = qobject_cast<QToolButton*>(m_toolBar->widgetForAction(action)))
            if (!named.contains(action->objectName()))
                button->setToolButtonStyle(Qt::ToolButtonIconOnly);
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
    const int count = editSelection(
        tr("delete sprites"), [this](QSprite* sprite) { sprites()->remove(sprites()->indexOf(sprite)); });
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

void QSpritesEditor::moveSelection(int step)
{
    const QList<int> rows = selectedRows();
    if (rows.isEmpty() || !step || rows.first() + step < 0 || rows.last() + step >= sprites()->count())
        return;
    const int current = m_table->currentIndex().row();
    sprites()->beginMacro(tr("move sprites"));
    // Down from the last, up from the first, so no sprite passes over another of the selection.
    for (int i = 0; i < rows.size(); ++i) {
        const int row = step > 0 ? rows.at(rows.size() - 1 - i) : rows.at(i);
        sprites()->move(unsigned(row), unsigned(row + step));
    }
    sprites()->endMacro();
    // The list is reset by a move: the selection follows the sprites.
    m_table->setCurrentIndex(m_model->index(current + step, 0));
    QItemSelection moved;
    for (int row : rows)
        moved.select(m_model->index(row + step, 0), m_model->index(row + step, 0));
    m_table->selectionModel()->select(moved, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

bool QSpritesEditor::linkSelection(const QString& target)
{
    int group = 0;
    int index = 0;
    const QSprite* source = sprites() && QSpriteTableModel::numberPair(target, group, index)
        ? sprites()->at(sprites()->find(0, group, index))
        : nullptr;
    if (!source || !source->imageData()) {
        m_status->setText(tr("No sprite %1 with a picture.").arg(target));
        return false;
    }
    const QImage picture = source->image();
    const int count = editSelection(tr("link sprites"), [source, &picture](QSprite* sprite) {
        if (sprite == source || sprite->imageData() == source->imageData())
            return;
        // Same pixels and same palette: the file then stores the picture once.
        if (sprite->palette() != source->palette())
            sprite->setPalette(source->palette());
        sprite->setImage(picture, ssmShared);
    });
    m_status->setText(tr("%n sprite(s) linked to %1,%2.", nullptr, count).arg(group).arg(index));
    return true;
}

void QSpritesEditor::askLink()
{
    const QSprite* sprite = currentSprite();
    if (!sprite)
        return;
    bool ok = false;
    const QString target = QInputDialog::getText(view(), tr("Link to sprite"),
        tr("Show the picture of sprite (group,index):"), QLineEdit::Normal,
        QStringLiteral("%1,%2").arg(sprite->itemGroup()).arg(sprite->itemIndex()), &ok);
    if (ok)
        linkSelection(target);
}

void QSpritesEditor::unlinkSelection()
{
    editSelection(tr("unlink sprites"), [](QSprite* sprite) {
        if (sprite->imageIsShared())
            sprite->setImage(sprite->image(), ssmPrivate);
    });
}

int QSpritesEditor::setSelectionPalette(int position)
{
    QSpritePalette* palette = sprites() ? sprites()->paletteAt(position) : nullptr;
    if (!palette)
        return 0;
    return editSelection(tr("use palette"), [palette](QSprite* sprite) {
        if (sprite->palette() != palette)
            sprite->setPalette(palette);
    });
}

void QSpritesEditor::askPalette()
{
    const QSprite* sprite = currentSprite();
    if (!sprite || sprites()->paletteCount() == 0)
        return;
    QStringList names;
    for (int i = 0; i < sprites()->paletteCount(); ++i) {
        const QSpritePalette* palette = sprites()->paletteAt(i);
        names.append(QStringLiteral("%1,%2").arg(palette->itemGroup()).arg(palette->itemIndex()));
    }
    bool ok = false;
    const QString chosen = QInputDialog::getItem(view(), tr("Use palette"), tr("Palette (group,index):"),
        names, qMax(0, sprites()->indexOfPalette(sprite->palette())), false, &ok);
    if (ok)
        setSelectionPalette(int(names.indexOf(chosen)));
}
