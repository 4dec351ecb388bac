#pragma once

/// The tools of the image editor, in the order of its tool bar.
enum QImageToolType {
    itPen = 0,
    itEraser,
    itReplace,
    itFloodFill,
    itPicker,
    itRectSel,
    itPenSel,
    itSelMove,
    itCanvasMove,
    itCount,
};
