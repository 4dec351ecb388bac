#pragma once

#include "render/qframeview.h"
#include "render/qrenderer.h"
#include "render/qrendertypes.h"

#include <QBrush>
#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QTransform>
#include <QList>
#include <QVector>

class QAnimation;
class QAnimationFrame;
class QAnimations;
class QCollisionBox;
class QSprite;
class QSprites;

/// A collision box as the view shows and drags it.
struct QRenderCLSN
{
    /// Null for a box still being drawn.
    QCollisionBox* box = nullptr;
    QCollisionBoxType type = cbtClsn1;
    /// On screen, and at the start of the present drag.
    QRect rect;
    QRect start;
    bool selected = false;
};

/**
 * The one view that shows a sprite or an animation frame for editing:
 * background, onion skin, guide lines, the sprite under the engine's
 * transparency, crosshairs and rulers, and the mouse work on them (axis,
 * guides, the extra crosshair, picking a palette index).
 *
 * It is not a widget: a host forwards input and paint events, and asks it to
 * paint with a QPainter, so the same code draws on screen, in OpenGL, into
 * an image for the command-line tool, and in tests without a window. Every
 * screen rectangle is computed outside render() (updateBounds()), so a paint
 * only reads ready coordinates.
 *
 * In animation mode it also shows the collision boxes of the frame and lets
 * the author draw, select, move, resize, retype, copy, paste and delete them
 * with the mouse and keys. Every change goes to the AIR model, and so into
 * its text: each mouse drag is one undo step of the text.
 *
 * The editors set it up while paused (only the background and rulers paint),
 * then unpause. Setters may come while a drag is under way, since playback
 * re-enters the event loop.
 */
class QSprRender : public QRenderer
{
    Q_OBJECT
public:
    explicit QSprRender(QObject* parent = nullptr);

    // Setters that only store.
    void setCrossPos(int x, int y) { m_axis = QPoint(x, y); }
    void setColorCapture(bool on) { m_colorCapture = on; }
    void setVisibility(bool clsn1, bool clsn2, bool clsn1Default, bool clsn2Default, bool rulers);
    void setExtraVisibility(bool on) { m_showExtraCross = on; }
    void setCrossVisibility(bool sprite, bool animation);
    void setGuideLines(bool on) { m_showGuides = on; }
    void setPriority(bool clsnOverAxis, bool spriteOverGuides);
    void lock(bool on) { m_locked = on; }
    void pause(bool on) { m_paused = on; }
    void setZoomMode(QZoomMode mode) { m_zoomMode = mode; }
    void setOnionSkin(bool on, QSpriteEffect effect, int opacityPercent);
    void setSprites(QSprites* sprites) { m_sprites = sprites; }
    QSprites* sprites() const { return m_sprites; }
    /// The animations the view shows frames of; it follows their changes.
    void setAnimations(QAnimations* animations);
    /// Box colours (Clsn1, Clsn1 default, Clsn2, Clsn2 default) and their opacity.
    void setCLSNColor(const QColor& clsn1, const QColor& clsn1Default, const QColor& clsn2,
                      const QColor& clsn2Default, int opacityPercent);

    // Setters with work.
    /// Gradient from `start` to `end` down the view; `type` picks the picture
    /// behind the sprite (0 none, 1-4 the screen sizes, 5 `file`), at x, y from the axis.
    void setBackground(const QColor& start, const QColor& end, unsigned char type, int x, int y,
                       const QString& file);
    /// `type` 0 and 1 are the built-in crosshairs; 2 takes the three files, each
    /// falling back to type 0 where it does not exist.
    void setCrossHair(unsigned char type, const QString& sprite, const QString& animation, const QString& extra);
    /// Sets the effective axis of the sprite from its axis, flips and the frame `offset`.
    void setAxis(const QPoint& offset);
    void setViewTransColor(bool on);
    /// Stores the mode and empties the view of sprite and frame.
    void setRenderMode(QRenderMode mode);
    void setZoom(unsigned char index);
    void setZoomTable(unsigned char row);
    /// Shows the sprite with palette `index` of the sprite file (a position
    /// in its list), or with its own palette when there is none at `index`.
    void setPalette(int index);
    /// Sprite mode: shows the sprite at `index`; animation mode: see the animations.
    void setIndex(unsigned int index);
    /// Shows a frame described by values: the sprite it names with its offset,
    /// flips, blend, scale and angle. The view's working copy becomes `frame`.
    void setFrameView(const QFrameView& frame);
    /// Shows the frame at `index` of the animation (setIndex() in animation
    /// mode chose it), with its boxes; out of range shows nothing.
    void setFrame(unsigned int index);
    /// Forgets the frame; the sprite mode's own axis applies again.
    void clearFrame();
    /// The sprite at `index` of the sprite file as onion skin; out of range shows none.
    void setOnionIndex(unsigned int index);
    /// Where the onion skin's axis stands from the view's axis: a frame's offset.
    void setOnionOffset(const QPoint& offset) { m_onionOffset = offset; }
    /// Forgets sprite, frame and images; keeps the view (axis, zoom, options).
    void reset();
    /// Asks the host for a paint.
    void update();
    /// Reads the pixels and colours of the sprite shown again (after an edit of
    /// its palette) and paints; the view stays as it is.
    void refresh();

    // View commands.
    void addZoom();
    void subZoom();
    void zoomActual();
    /// Recomputes every screen rectangle and asks for a paint.
    void updatePos();
    void updateBounds();

    // Collision boxes.
    /// While on, each left drag draws a new box of `type`; the right button ends it.
    void clsnCreationMode(bool on, QCollisionBoxType type);
    bool isCreatingCLSN() const { return m_creating; }
    void unselectCLSN();
    /// Moves the selected boxes by `delta` engine pixels, in the model at once.
    void moveCLSNs(const QPoint& delta);
    /// Gives the selected boxes the other default-ness (`switchDefault`) or the other of Clsn1 and Clsn2.
    void changeCLSNType(bool switchDefault);
    void removeCLSNs();
    /// Puts the selected boxes on the clipboard as AIR text; false without a selection.
    bool copyCLSNs();
    /// Adds the boxes of AIR text on the clipboard to the frame; false when there was none.
    bool pasteCLSNs();
    /// Reads the frame's boxes again (its own, else the defaults in force) and clears the selection.
    void updateCLSNs();
    void updateCLSNSizers();
    void sizeMoveCLSN(bool resize, QRenderElement element, const QPoint& delta);
    /// A screen rectangle in engine pixels from the axis.
    QRect adjustCLSN(const QRect& rect, float zoom) const;
    /// Selects the box at `index` of the list, as a click on it does.
    void selectCLSN(int index, bool add = false);

    /// What lies under `point`; with `cycle`, as a click does, the focus
    /// moves on through overlapping boxes.
    QRenderElement hitTest(const QPoint& point, bool cycle = false) const;
    void setupCursor(QRenderElement element);

    // What the view shows, for editors and tests.
    QSprite* sprite() const { return m_sprite; }
    QAnimation* animation() const { return m_animation; }
    QAnimationFrame* frame() const { return m_frameModel; }
    unsigned int frameIndex() const { return m_frameIndex; }
    const QList<QRenderCLSN>& clsns() const { return m_clsns; }
    /// The eight sizers, top-left, top, top-right, right, left, bottom-left, bottom, bottom-right.
    const QPoint* sizers() const { return m_sizers; }
    bool hasFrame() const { return m_hasFrame; }
    const QFrameView& frameView() const { return m_frame; }
    /// The working copy, as playback moves it between frames; nothing is written to the file.
    QFrameView& workingFrame() { return m_frame; }
    QPoint crossPos() const { return m_axis; }
    QPoint effectiveAxis() const { return m_effectiveAxis; }
    QPoint guides() const { return QPoint(m_guideX, m_guideY); }
    QPoint extraPos() const { return m_extraPos; }
    quint8 zoomIndex() const { return m_zoomIndex; }
    quint8 zoomRow() const { return m_zoomRow; }
    float zoom() const;
    /// Line thickness: the whole zoom factor above 1:1 indices, else 1.
    int thickness() const;
    QRect spriteRect() const { return m_spriteRect; }
    QRect mainCrossRect() const { return m_mainCrossRect; }
    QRect animCrossRect() const { return m_animCrossRect; }
    QRect extraCrossRect() const { return m_extraCrossRect; }
    QRect backgroundRect() const { return m_backgroundRect; }
    QRect onionRect() const { return m_onionRect; }
    const QVector<QRgb>& colorTable() const { return m_colorTable; }
    /// Where the sprite lands on screen, after a frame's scale and angle; empty without one.
    QRect paintedBounds() const;

    // QRenderer
    void keyPressed(QKeyEvent* event) override;
    void keyReleased(QKeyEvent* event) override;
    void mousePressed(QMouseEvent* event) override;
    void mouseReleased(QMouseEvent* event) override;
    void mouseMoved(QMouseEvent* event) override;
    void mouseWheel(QWheelEvent* event) override;
    void sizeChanged() override;
    void render(QPainter* painter, QPaintEvent* event) override;

signals:
    /// The sprite's axis or the frame's offset being dragged.
    void axisChanged(const QPoint& value);
    void extraAxisChanged();
    /// The right button ended the box creation mode.
    void clsnModeExit();
    void colorCaptured(unsigned char index);
    /// Another sprite (or none) is shown, by the sprite list or by an animation frame.
    void spriteChanged();
    /// The mouse position relative to the view axis, in screen pixels.
    void cursorChanged(const QPoint& position);

private:
    QSize hostSize() const;
    /// Takes the sprite shown and its size (null: none).
    void showSprite(QSprite* sprite);
    /// Drops the frame, its working copy and its boxes.
    void forgetFrame();
    void updateImg();
    void validateZoom();
    void rebuildGradient();
    /// Moves the axis so that the engine point at the host's centre stays there.
    void applyZoom(int index);
    /// The smallest zoom index a sprite of this size may be shown at.
    int smallestZoomIndex() const;
    void captureColor(const QPoint& point);
    /// The frame's drawing: about the view axis, turned, scaled, then back by
    /// the effective axis, so that the image is drawn at 0, 0.
    QTransform frameTransform() const;
    void renderSprite(QPainter* painter);
    void renderCrosshairs(QPainter* painter);
    void renderGuides(QPainter* painter);
    void renderRulers(QPainter* painter);
    void renderRuler(QPainter* painter, Qt::Orientation orientation);
    bool hitGuide(const QPoint& point, QRenderElement& element) const;
    /// The screen delta of a drag step, in engine pixels for objects; false when there is none.
    bool dragDelta(const QPoint& mouse, QPoint& delta);
    void dragAxis(const QPoint& delta);
    void writeAxis();
    void renderCLSNs(QPainter* painter);
    /// The box element under `point`; with `cycle` a click's focus walks
    /// through overlapping boxes, without it the focus stays (hovering).
    bool hitTestCLSN(const QPoint& point, QRenderElement& element, bool cycle) const;
    void pressCLSN(const QPoint& point, QRenderElement element, Qt::KeyboardModifiers modifiers);
    void startCLSN(QPoint point);
    void releaseCLSN();
    /// The selection's bounding box on screen.
    QRect selectionBounds() const;
    void animationsChanged();

    QSprites* m_sprites = nullptr;
    QSprite* m_sprite = nullptr;
    QSprite* m_onionSprite = nullptr;
    QSize m_spriteSize;
    bool m_hasFrame = false;
    QFrameView m_frame;
    QPoint m_extraPos { 100, -100 };

    QColor m_backStart;
    QColor m_backEnd;
    QBrush m_gradient;
    QPoint m_backPos { -213, -208 };
    QImage m_backImage;

    QPoint m_axis { 250, 250 };
    int m_guideX = 0;
    int m_guideY = 0;
    QPoint m_effectiveAxis;
    QImage m_mainCross;
    QImage m_animCross;
    QImage m_extraCross;
    QImage m_onionImage;
    QImage m_image;
    QVector<QRgb> m_colorTable;
    QPoint m_dragValue;

    QZoomMode m_zoomMode = ZoomOnCenter;
    quint8 m_zoomRow = 1;
    quint8 m_zoomIndex = 2;
    QRenderMode m_mode = RenderSprite;
    bool m_locked = false;
    bool m_paused = false;
    QSpriteEffect m_onionEffect = EffectMonochrome;
    float m_onionOpacity = 1.0f;
    QPoint m_onionOffset;

    bool m_showMainCross = true;
    bool m_showAnimCross = false;
    bool m_showOnion = false;
    bool m_viewTransparent = false;
    bool m_colorCapture = false;
    bool m_showRulers = true;
    bool m_showExtraCross = false;
    bool m_showGuides = false;
    bool m_showClsn[4] = { true, true, true, true };
    bool m_clsnOverAxis = true;
    bool m_spriteOverGuides = true;

    QRect m_spriteRect;
    QRect m_mainCrossRect;
    QRect m_animCrossRect;
    QRect m_extraCrossRect;
    QRect m_backgroundRect;
    QRect m_onionRect;

    QAnimations* m_animations = nullptr;
    QAnimation* m_animation = nullptr;
    unsigned int m_animationIndex = 0;
    QAnimationFrame* m_frameModel = nullptr;
    unsigned int m_frameIndex = 0;
    QColor m_clsnColors[4] = { Qt::red, Qt::magenta, Qt::blue, Qt::darkBlue };
    float m_clsnOpacity = 1.0f;
    bool m_creating = false;
    QCollisionBoxType m_newType = cbtClsn2;
    QList<QRenderCLSN> m_clsns;
    /// The box a click focused; clicks on overlapping boxes move it on. -1 for none.
    mutable int m_focused = -1;
    bool m_anySelected = false;
    /// Set around this view's own changes of the animations, whose notices it then ignores.
    bool m_changingModel = false;
    QPoint m_sizers[8];
    QRect m_anchor;

    bool m_buttonDown = false;
    bool m_moved = false;
    QPoint m_lastMouse;
    QRenderElement m_dragElement = ElementNone;
};
