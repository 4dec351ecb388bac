#include "imgedit.h"

#include "image/gui/imgeditcolor.h"
#include "image/gui/imgeditlayers.h"
#include "image/gui/imgedittoolbar.h"
#include "image/gui/imgeditview.h"
#include "formats/qrgbpalette.h"
#include "image/qimagelayer.h"
#include "image/qimagepainter.h"
#include "image/qimagetool.h"
#include "image/qrasterlayer.h"
#include "model/qsprites.h"
#include "util/qprompt.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QImageReader>
#include <QMenuBar>
#include <QScrollArea>
#include <QStatusBar>

ImgEdit::ImgEdit(QWidget* parent)
    : QMainWindow(parent)
    , m_canvas(&m_palette)
    , m_render(&m_canvas)
{
    setObjectName(QStringLiteral("imgEdit"));
    m_view = new ImgEditView(&m_render, this);
    setCentralWidget(m_view);

    m_toolBar = new ImgEditToolBar(&m_render, this);
    addToolBar(Qt::TopToolBarArea, m_toolBar);

    m_color = new ImgEditColor(&m_palette, this);
    auto* colorDock = new QDockWidget(tr("Palette"), this);
    colorDock->setObjectName(QStringLiteral("imgEditPalette"));
    colorDock->setWidget(m_color);
    addDockWidget(Qt::RightDockWidgetArea, colorDock);
    connect(m_color, &ImgEditColor::colorClicked, this,
        [this](bool left, unsigned char index) { m_render.currentTool()->colorClicked(left, index); });

    m_layers = new ImgEditLayers(&m_canvas, this);
    auto* layersDock = new QDockWidget(tr("Layers"), this);
    layersDock->setObjectName(QStringLiteral("imgEditLayers"));
    layersDock->setWidget(m_layers);
    addDockWidget(Qt::RightDockWidgetArea, layersDock);

    buildMenus();
    m_render.setVisibility(false, true);
    connect(&m_render, &QImageRender::updateRequested, this, [this]() {
        // The status line names the pixel under the mouse and its entry.
        const QPoint at = m_render.mapToCanvas(m_view->mapFromGlobal(QCursor::pos()));
        if (!QRect(QPoint(0, 0), m_canvas.size()).contains(at) || !m_canvas.painter())
            return;
        const uchar entry = m_canvas.painter()->color(at);
        m_color->setColor(m_palette.color(entry).rgba());
        statusBar()->showMessage(tr("x %1, y %2: entry %3").arg(at.x()).arg(at.y()).arg(entry));
    });
    resize(960, 640);
    setImage(QImage());
}

ImgEdit::~ImgEdit() = default;

void ImgEdit::buildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Import image as layer..."), this, &ImgEdit::importLayer);
    QAction* apply = file->addAction(tr("&Apply to sprite"), this, &ImgEdit::applyToSprite);
    apply->setObjectName(QStringLiteral("applyToSprite"));
    apply->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));
    file->addSeparator();
    file->addAction(tr("&Close"), QKeySequence::Close, this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* undo = m_canvas.undoStack()->createUndoAction(this, tr("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = m_canvas.undoStack()->createRedoAction(this, tr("&Redo"));
    redo->setShortcut(QKeySequence::Redo);
    edit->addAction(undo);
    edit->addAction(redo);
    edit->addSeparator();
    edit->addAction(tr("Cu&t"), QKeySequence::Cut, this, &ImgEdit::cut);
    edit->addAction(tr("&Copy"), QKeySequence::Copy, this, &ImgEdit::copy);
    edit->addAction(tr("&Paste as layer"), QKeySequence::Paste, this, &ImgEdit::paste);
    edit->addAction(
        tr("&Delete selected pixels"), QKeySequence::Delete, &m_canvas, &QImageCanvas::deleteSelection);
    edit->addSeparator();
    edit->addAction(tr("Select &all"), QKeySequence::SelectAll, &m_canvas, &QImageCanvas::selectAll);
    edit->addAction(tr("Select &none"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A), &m_canvas,
        &QImageCanvas::selectNone);

    QMenu* layer = menuBar()->addMenu(tr("&Layer"));
    layer->addAction(tr("&New layer"), m_layers, &ImgEditLayers::addLayer);
    layer->addAction(tr("&Duplicate layer"), m_layers, &ImgEditLayers::duplicateLayer);
    layer->addAction(tr("&Remove layer"), m_layers, &ImgEditLayers::removeLayer);
    layer->addAction(tr("&Merge down"), m_layers, &ImgEditLayers::mergeDown);
    layer->addAction(tr("&Flatten"), &m_canvas, &QImageCanvas::flatten);

    QMenu* image = menuBar()->addMenu(tr("&Image"));
    m_trueColour = image->addAction(tr("&True colour"));
    m_trueColour->setCheckable(true);
    connect(m_trueColour, &QAction::triggered, this, &ImgEdit::setTrueColour);
    image->addAction(tr("&Crop to content"), &m_canvas, &QImageCanvas::crop);
    image->addAction(tr("Flip &horizontally"), this, [this]() { m_canvas.flip(true, false); });
    image->addAction(tr("Flip &vertically"), this, [this]() { m_canvas.flip(false, true); });

    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addAction(tr("Zoom &in"), QKeySequence::ZoomIn, this, [this]() { m_render.wheel(1); });
    view->addAction(tr("Zoom &out"), QKeySequence::ZoomOut, this, [this]() { m_render.wheel(-1); });
    QAction* grid = view->addAction(tr("Pixel &grid"));
    grid->setCheckable(true);
    grid->setChecked(m_render.grid());
    connect(grid, &QAction::toggled, &m_render, &QImageRender::setGrid);
    QAction* actual = view->addAction(tr("&Actual size beside"));
    actual->setCheckable(true);
    connect(actual, &QAction::toggled, this, [this](bool on) { m_render.setVisibility(on, true); });
}

void ImgEdit::resetCanvas(const QImage& image, const QString& layerName)
{
    m_canvas.undoStack()->clear();
    m_canvas.layers()->removeAll();
    m_canvas.selectNone();
    const bool indexed = image.format() == QImage::Format_Indexed8;
    m_canvas.setFormat(indexed ? CanvasIndexed : CanvasRGBA, false);
    m_canvas.setSize(image.isNull() ? QSize(64, 64) : image.size(), QPoint(), false);
    QImageLayer* layer = m_canvas.newRasterLayer(image.isNull() ? nullptr : &image);
    layer->setName(layerName, false);
    m_canvas.layers()->add(layer, false);
    m_canvas.setActiveLayer(layer);
    m_canvas.setPosition(QPoint());
    m_canvas.setOrigin(QPoint());
    m_appliedOrigin = QPoint();
    m_canvas.setZoomLevel(
        qMax(1.0, qMin(480.0 / qMax(1, m_canvas.size().width()), 400.0 / qMax(1, m_canvas.size().height()))));
    m_trueColour->setChecked(!indexed);
    m_palette.setForeground(1);
    m_palette.setBackground(0);
}

void ImgEdit::setImage(const QImage& image)
{
    m_sprites = nullptr;
    m_sprite = nullptr;
    if (image.format() == QImage::Format_Indexed8) {
        QRGBA colors[256];
        colorTableToPalette(image.colorTable(), colors);
        m_palette.setColors(colors);
    }
    resetCanvas(image, tr("Background"));
    updateTitle();
}

bool ImgEdit::editSprite(QSprites* sprites, int position)
{
    QSprite* sprite = sprites ? sprites->at(position) : nullptr;
    if (!sprite || !sprite->imageData())
        return false;
    const QImage image = sprite->image(sipOwn);
    m_spriteIndexed = image.format() == QImage::Format_Indexed8;
    if (m_spriteIndexed) {
        // Only entry 0 is transparent while editing, whatever alpha the file
        // gives the others: the engine draws them opaque, and the indexed
        // merge must keep every other index as it is.
        QRGBA colors[256];
        colorTableToPalette(image.colorTable(), colors);
        colors[0].a = 0;
        for (int i = 1; i < 256; ++i)
            colors[i].a = 255;
        m_palette.setColors(colors);
    } else if (sprite->palette() && sprite->palette()->colors()) {
        m_palette.setColors(sprite->palette()->colors());
    }
    resetCanvas(image, tr("Sprite %1, %2").arg(sprite->itemGroup()).arg(sprite->itemIndex()));
    m_sprites = sprites;
    m_sprite = sprite;
    updateTitle();
    return true;
}

void ImgEdit::updateTitle()
{
    if (m_sprite)
        setWindowTitle(
            tr("Image editor - sprite %1, %2").arg(m_sprite->itemGroup()).arg(m_sprite->itemIndex()));
    else
        setWindowTitle(tr("Image editor"));
}

bool ImgEdit::applyToSprite()
{
    if (!m_sprites || !m_sprite || m_sprites->indexOf(m_sprite) < 0)
        return false;
    m_canvas.finishEdit();
    bool newPalette = false;
    if (m_spriteIndexed && m_canvas.format() == CanvasRGBA) {
        const QPrompt::Button answer = prompt().question(tr("Apply to sprite"),
            tr("The sprite is indexed, but the picture is in true colour now.\n"
               "Map its colours to the sprite's palette (Yes), or build a new palette "
               "for the sprite from the picture's colours (No)?"),
            QPrompt::Yes | QPrompt::No | QPrompt::Cancel, QPrompt::Yes);
        if (answer == QPrompt::Cancel)
            return false;
        newPalette = answer == QPrompt::No;
        m_canvas.toIndexed(newPalette);
        m_trueColour->setChecked(false);
    }
    QImage merged = m_canvas.mergeLayers();
    if (merged.format() == QImage::Format_Indexed8)
        merged.setColorTable(m_palette.toRgbPal());
    m_sprites->beginMacro(tr("Edit image"));
    m_sprite->setImage(merged, ssmAsk, false, newPalette ? spmNew : spmKeep);
    // A crop or a larger canvas moved the picture: the axis follows it.
    const QPoint moved = m_canvas.origin() - m_appliedOrigin;
    if (!moved.isNull())
        m_sprite->setOffset(m_sprite->offset() + moved);
    m_appliedOrigin = m_canvas.origin();
    m_sprites->endMacro();
    m_canvas.undoStack()->setClean();
    return true;
}

void ImgEdit::closeEvent(QCloseEvent* event)
{
    if (m_sprite && !m_canvas.undoStack()->isClean()) {
        const QPrompt::Button answer = prompt().question(tr("Image editor"),
            tr("Apply the changes to the sprite %1, %2 before closing?")
                .arg(m_sprite->itemGroup())
                .arg(m_sprite->itemIndex()),
            QPrompt::Save | QPrompt::Discard | QPrompt::Cancel, QPrompt::Save);
        if (answer == QPrompt::Cancel || (answer == QPrompt::Save && !applyToSprite())) {
            event->ignore();
            return;
        }
    }
    event->accept();
}

void ImgEdit::copy()
{
    const QImage selected = m_canvas.copySelection();
    if (!selected.isNull())
        QApplication::clipboard()->setImage(selected);
}

void ImgEdit::cut()
{
    copy();
    m_canvas.deleteSelection();
}

void ImgEdit::paste()
{
    const QImage image = QApplication::clipboard()->image();
    if (image.isNull()) {
        statusBar()->showMessage(tr("The clipboard holds no picture"), 3000);
        return;
    }
    // Where a selection is, the pasted pixels land on it; else at the top-left corner.
    const QRect selected = m_canvas.selection()->boundingRect();
    m_canvas.pasteImage(image, selected.isEmpty() ? QPoint() : selected.topLeft());
    m_render.setTool(itSelMove);
}

void ImgEdit::importLayer()
{
    const QString fileName = QFileDialog::getOpenFileName(
        this, tr("Import image as layer"), QString(), tr("Images (*.png *.bmp *.gif *.pcx *.jpg)"));
    if (!fileName.isEmpty())
        importLayerFrom(fileName);
}

bool ImgEdit::importLayerFrom(const QString& fileName)
{
    QImageReader reader(fileName);
    const QImage image = reader.read();
    if (image.isNull()) {
        prompt().warning(
            tr("Import image as layer"), tr("%1 could not be read: %2").arg(fileName, reader.errorString()));
        return false;
    }
    m_canvas.addLayer(image, QFileInfo(fileName).completeBaseName());
    return true;
}

void ImgEdit::setTrueColour(bool on)
{
    if (on)
        m_canvas.setFormat(CanvasRGBA, true);
    else
        m_canvas.toIndexed(false);
    m_trueColour->setChecked(m_canvas.format() == CanvasRGBA);
}
