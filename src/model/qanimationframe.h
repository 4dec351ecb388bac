#pragma once

#include "qanimationtypes.h"
#include "qsubitem.h"
#include "text/qtextelement.h"

#include <QList>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QTextCursor>

class QAnimation;
class QCollisionBox;
class QCollisionBoxes;
class QInterFrameElement;

/**
 * A frame line: "group,index, x,y, time[, flip[, blend[, scaleX, scaleY, angle]]]".
 *
 * The frame owns what stands above it up to the frame before it: one box
 * declaration of each type (the one nearest the frame when there are two)
 * and one inter-frame line of each type (the first when there are two).
 *
 * Every setter writes the whole line once, and only when a value differs:
 * one line of the text changes, as one undo step. A setter called with
 * `continueDrag` joins the undo step before it, for mouse drags.
 */
class QAnimationFrame : public QTextElement
{
public:
    /// The text of a frame made by QAnimation::addFrame().
    static const QString emptyFrame;

    QTextElementType groupType() const override { return animationElement::frame; }
    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    /// The action the frame is in, or null for a frame outside any action.
    QAnimation* parent() const { return m_parent; }
    /// Its position in the action, -1 outside one.
    int index() const;
    /// The first line of what belongs to the frame: its earliest declaration
    /// or inter-frame line, or its own line.
    int topLine() const;

    qint32 spriteGroup() const { return m_group; }
    qint32 spriteIndex() const { return m_index; }
    QSubItem sprite() const { return QSubItem(m_group, m_index); }
    qint32 offsetX() const { return m_x; }
    qint32 offsetY() const { return m_y; }
    QPoint offset() const { return QPoint(m_x, m_y); }
    /// Ticks the frame shows; -1 is kept as an ordinary value.
    qint32 time() const { return m_time; }
    /// Bit 0 flips vertically, bit 1 horizontally.
    unsigned int flipFlags() const { return m_flip; }
    QAnimationFrameBlend blend() const { return m_blend; }
    QBlendTarget blendTarget() const { return m_target; }
    double scaleX() const { return m_scaleX; }
    double scaleY() const { return m_scaleY; }
    QPointF scaleFactor() const { return QPointF(m_scaleX, m_scaleY); }
    /// Degrees, counter-clockwise as the engine turns.
    double angle() const { return m_angle; }

    /// Sets everything the line holds but scale and angle.
    void setProperties(QSubItem sprite, QPoint offset, int time, unsigned int flip, QAnimationFrameBlend blend,
                       QBlendTarget target);
    /// Sets everything the line holds.
    void setProperties(QSubItem sprite, QPoint offset, int time, unsigned int flip, QAnimationFrameBlend blend,
                       QBlendTarget target, QPointF scale, double angle);
    /// Moves the frame's sprite; see the class comment for `continueDrag`.
    void setOffset(QPoint offset, bool continueDrag = false);
    void setAngle(double angle);
    void setScaleX(double scale);
    void setScaleY(double scale);
    void setScaleFactor(QPointF scale);

    /// The frame's own declaration of that type, or null.
    QCollisionBoxes* collisionBoxes(QCollisionBoxType type) const { return m_boxes[type & 3]; }
    /**
     * The boxes that are in force on this frame for Clsn1 (`clsn2` false) or
     * Clsn2: its own, else its own default, else the nearest default declared
     * above an earlier frame of the action. Null when none is.
     */
    QCollisionBoxes* activeBoxes(bool clsn2) const;
    /**
     * Adds a box of that type, declaring the type above the frame first if
     * the frame has none (declarations are kept in the order Clsn1Default,
     * Clsn2Default, Clsn1, Clsn2). One undo step. Returns the new box.
     */
    QCollisionBox* insertBox(QCollisionBoxType type, const QRect& rect);
    /**
     * Adds the boxes of pasted declarations ("Clsn2: 2" and two box lines,
     * any number of them); a missing number reads as 0, 0, -1, -1 for left,
     * top, right, bottom. One undo step.
     */
    void insertBoxes(const QString& text);
    /// A cursor over the frame's declarations and their boxes (empty at the
    /// frame's start when it has none): what copying the boxes takes.
    QTextCursor selectBoxes() const;

    /// The frame's inter-frame lines, in text order.
    const QList<QInterFrameElement*>& interFrameElements() const { return m_inter; }
    /// Whether the frame has a line of that type above it.
    bool checkInterElem(QInterFrameElementType type) const;
    /// Adds (directly above the frame line) or removes a line of that type.
    void setInterElem(QInterFrameElementType type, bool on);

    /**
     * Mirrors a point of a `width` x `height` picture as a flip does: bit 1 of
     * `flags` mirrors x to width - 1 - x, bit 0 mirrors y to height - 1 - y.
     */
    static void invertAxis(int& x, int& y, int width, int height, unsigned int flags);

private:
    friend class QAnimationsLinker;

    /// The line as the values say, in the engine's own layout.
    QString lineText() const;
    void writeLine(bool continueDrag = false);
    /// Inserts a line directly above `element`'s line; the new element or null.
    QTextElement* insertAbove(QTextElement* element, const QString& text);

    qint32 m_group = 0;
    qint32 m_index = 0;
    qint32 m_x = 0;
    qint32 m_y = 0;
    qint32 m_time = 0;
    unsigned int m_flip = 0;
    QAnimationFrameBlend m_blend = afbNone;
    QBlendTarget m_target;
    double m_scaleX = 0;
    double m_scaleY = 0;
    double m_angle = 0;
    QAnimation* m_parent = nullptr;
    QCollisionBoxes* m_boxes[collisionBoxTypeCount] = {};
    QList<QInterFrameElement*> m_inter;
};
