#pragma once

#include "text/qtextelementtypes.h"

#include <QString>
#include <QtGlobal>

/**
 * The values an AIR file speaks in: how a frame is blended, the four kinds of
 * collision box, the inter-frame lines, and the element types of the lines.
 */

/// How a frame's sprite is drawn over what is behind it.
enum QAnimationFrameBlend {
    afbNone = 0,
    afbAdditive = 1,
    afbSubtractive = 2,
};

/// The source and destination weights of an additive blend, 256 being full.
struct QBlendTarget
{
    qint16 source = 256;
    qint16 destination = 256;

    bool operator==(const QBlendTarget& other) const
    {
        return source == other.source && destination == other.destination;
    }
    bool operator!=(const QBlendTarget& other) const { return !(*this == other); }
};

/// Bit 0 says Clsn2 (the box that can be hit), bit 1 says default (valid
/// for every frame that follows until another default is declared).
enum QCollisionBoxType {
    cbtClsn1 = 0,
    cbtClsn2 = 1,
    cbtClsn1Default = 2,
    cbtClsn2Default = 3,
};
constexpr int collisionBoxTypeCount = 4;

/// The lines that stand above a frame and say something about it or the
/// step to the next frame.
enum QInterFrameElementType {
    ifeLoopStart = 0,
    ifeBlend = 1,
    ifeOffset = 2,
    ifeScale = 3,
    ifeAngle = 4,
};
constexpr int interFrameElementTypeCount = 5;

/// The text of an inter-frame line ("LoopStart", "Interpolate Blend"...);
/// empty for a value out of range.
QString interFrameElementName(int type);

/// The declaration line of a box list of that type, "Clsn2: %1" and so on.
QString collisionDeclarationText(QCollisionBoxType type, int count);

/// A box line, "  Clsn2[0] = left, top, right, bottom"; default boxes are
/// written with the plain word, as the engine reads them.
QString collisionBoxText(QCollisionBoxType type, int index, int left, int top, int right, int bottom);

/// Element types of the lines of an AIR file.
namespace animationElement {
constexpr QTextElementType action = 0x80;
constexpr QTextElementType frame = 0x100;
constexpr QTextElementType declaration = 0x200;
constexpr QTextElementType box = 0x400;
constexpr QTextElementType interFrame = 0x800;
} // namespace animationElement
