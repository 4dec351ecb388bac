#pragma once

#include "text/qtextelement.h"

#include <QRect>

class QCollisionBoxes;

/**
 * A box line, "Clsn2[0] = left, top, right, bottom", in the coordinates of
 * the frame's axis. It belongs to the nearest declaration above it in the
 * same action, whatever word and index it was typed with: the declaration
 * gives its type, its place in the list gives its index.
 */
class QCollisionBox : public QTextElement
{
public:
    QTextElementType groupType() const override;
    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    /// The declaration it is listed in, or null.
    QCollisionBoxes* parent() const { return m_parent; }
    /// Its index in the declaration's list, -1 without one.
    int index() const;

    int left() const { return m_left; }
    int top() const { return m_top; }
    int right() const { return m_right; }
    int bottom() const { return m_bottom; }
    /// The box with both corners inside, as the engine counts them:
    /// QRect(left, top, right - left + 1, bottom - top + 1).
    QRect rect() const;

    /**
     * Moves or resizes the box: rewrites its line (one undo step of the text).
     * With `continueDrag` the edit joins the previous undo step, so a mouse
     * drag that calls this on every move is undone at once; the first call of
     * a drag passes false.
     */
    void setRect(const QRect& rect, bool continueDrag = false);
    /// Writes the line again from the values, with its list's word and index.
    void indexChanged();

private:
    friend class QAnimationsLinker;

    QCollisionBoxes* m_parent = nullptr;
    qint32 m_left = 0;
    qint32 m_top = 0;
    qint32 m_right = 0;
    qint32 m_bottom = 0;
};
