#pragma once

#include "qanimationtypes.h"
#include "text/qtextelement.h"

class QAnimationFrame;

/**
 * A "LoopStart" or "Interpolate ..." line. It belongs to the first frame
 * below it, unless that frame already has a line of the same type above it
 * (the first one in the text wins; a second one belongs to no frame).
 */
class QInterFrameElement : public QTextElement
{
public:
    QTextElementType groupType() const override { return animationElement::interFrame; }
    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    QInterFrameElementType interType() const { return m_type; }
    /// The frame it speaks of, or null.
    QAnimationFrame* parent() const { return m_parent; }

private:
    friend class QAnimationsLinker;

    QInterFrameElementType m_type = ifeLoopStart;
    QAnimationFrame* m_parent = nullptr;
};
