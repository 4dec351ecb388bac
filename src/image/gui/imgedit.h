#pragma once

#include "image/qimagecanvas.h"
#include "image/qimagerender.h"
#include "image/qtableimagepalette.h"

#include <QMainWindow>
#include <QPointer>

class ImgEditColor;
class ImgEditLayers;
class ImgEditToolBar;
class ImgEditView;
class QSprite;
class QSprites;

/**
 * The image editor window: one sprite as a small layered picture, with the
 * tools, the layers panel and the palette. It works on a canvas of its own
 * with its own undo history; "Apply to sprite" writes the composition back
 * into the sprite file as one undo step of the sprite file.
 *
 * An indexed sprite is edited as indices of its own palette, so every edit
 * keeps it indexed with that palette. If the author turns the picture into
 * true colour, applying it asks whether to map it back to the palette or to
 * give the sprite a new palette built by the colour quantizer.
 */
class ImgEdit : public QMainWindow
{
    Q_OBJECT
public:
    explicit ImgEdit(QWidget* parent = nullptr);
    ~ImgEdit() override;

    /// Opens the sprite at `position` of `sprites`; false for an empty or missing sprite.
    bool editSprite(QSprites* sprites, int position);
    /// Opens a free-standing picture, not tied to any sprite.
    void setImage(const QImage& image);

    QImageCanvas* canvas() { return &m_canvas; }
    QImageRender* render() { return &m_render; }
    QTableImagePalette* imagePalette() { return &m_palette; }
    ImgEditView* view() const { return m_view; }
    ImgEditLayers* layersPanel() const { return m_layers; }
    ImgEditColor* colorPanel() const { return m_color; }
    ImgEditToolBar* toolBar() const { return m_toolBar; }

public slots:
    /// Writes the picture into the sprite; false when there is none or the author cancelled.
    bool applyToSprite();
    void cut();
    void copy();
    void paste();
    /// Asks for an image file and puts it on a new layer.
    void importLayer();
    bool importLayerFrom(const QString& fileName);
    void setTrueColour(bool on);

protected:
    /// Unapplied edits of a sprite are offered for applying before the window closes.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void resetCanvas(const QImage& image, const QString& layerName);
    void updateTitle();

    QTableImagePalette m_palette;
    QImageCanvas m_canvas;
    QImageRender m_render;
    ImgEditView* m_view;
    ImgEditLayers* m_layers;
    ImgEditColor* m_color;
    ImgEditToolBar* m_toolBar;
    QAction* m_trueColour = nullptr;
    QSprites* m_sprites = nullptr;
    QPointer<QSprite> m_sprite;
    bool m_spriteIndexed = false;
    QPoint m_appliedOrigin; // the canvas origin that the sprite's axis matches
};
