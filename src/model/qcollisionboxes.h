#pragma once

#include "qanimationtypes.h"
#include "text/qtextelement.h"

#include <QList>
#include <QRect>

class QAnimationFrame;
class QCollisionBox;

/**
 * A declaration line, "Clsn2: 3", with the box lines that follow it. It
 * belongs to the first frame below it, unless that frame already has a
 * declaration of the same type above it (the first one wins). The boxes
 * are the box lines from it to the next declaration, frame-independent:
 * the count in the text is not trusted, and while the model renumbers it is
 * rewritten whenever the list changes.
 */
class QCollisionBoxes : public QTextElement
{
public:
    QTextElementType groupType() const override { return animationElement::declaration; }
    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    QCollisionBoxType clsnType() const { return m_type; }
    /// The frame the boxes are for, or null.
    QAnimationFrame* parent() const { return m_parent; }
    /// The count the line declares, which may be wrong until it is rewritten.
    int declaredCount() const { return m_declaredCount; }

    int count() const { return int(m_boxes.size()); }
    const QList<QCollisionBox*>& boxes() const { return m_boxes; }
    /// The box at `index`, null out of range.
    QCollisionBox* at(int index) const { return m_boxes.value(index); }

    /// Adds a box line behind the last box (behind the declaration when the
    /// list is empty); the count and the index follow. Returns the new box.
    QCollisionBox* insert(const QRect& rect);
    /// Removes every box line and the declaration itself.
    void clear();
    /// Writes the declaration line again with the list's real count.
    void countChanged();

private:
    friend class QAnimationsLinker;

    QCollisionBoxType m_type = cbtClsn1;
    int m_declaredCount = 0;
    QAnimationFrame* m_parent = nullptr;
    QList<QCollisionBox*> m_boxes;
};
