#pragma once

// The values the sprite view speaks in: what it is showing, how zoom keeps its
// centre, how the onion skin is tinted, and what lies under the mouse.

/// Which editor drives the view: sprites show their own axis, animations a frame.
enum QRenderMode {
    RenderSprite = 0,
    RenderAnimation = 1,
};

/// The point that stays still when the zoom changes.
enum QZoomMode {
    ZoomOnAxis = 0,   ///< "Sprite's axis"
    ZoomOnCenter = 1, ///< "Center of workspace"
};

/// The tint of the onion-skin sprite; also the rows of its combo box.
enum QSpriteEffect {
    EffectNone = 0,
    EffectMonochrome = 1,
    EffectLighter = 2,
    EffectDarker = 3,
};

/// What a hit test finds, and what a drag moves. The order matters: values
/// above ElementClsn are the eight sizers of the selected boxes, and the
/// mouse code compares against it.
enum QRenderElement {
    ElementNone = 0,       ///< the empty view: dragging pans
    ElementSprite = 1,     ///< the sprite image
    ElementAnimCross = 2,  ///< the crosshair of the frame offset
    ElementExtraCross = 3, ///< the extra crosshair
    ElementGuideH = 4,
    ElementGuideV = 5,
    ElementClsn = 6, ///< the body of a collision box
    ElementSizerTL = 7,
    ElementSizerT = 8,
    ElementSizerTR = 9,
    ElementSizerR = 10,
    ElementSizerL = 11,
    ElementSizerBL = 12,
    ElementSizerB = 13,
    ElementSizerBR = 14, ///< also the element of a box being drawn
};
