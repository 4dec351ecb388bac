#pragma once

#include "qanimationtypes.h"
#include "text/qgroupheader.h"

#include <QList>

class QAnimationFrame;

/**
 * An action, "[Begin Action 200]", with the frames below it up to the next
 * group. Its name is the comment directly above the header (nameText()).
 */
class QAnimation : public QGroupHeader
{
public:
    QTextElementType groupType() const override { return animationElement::action; }
    void update(const QList<QTextToken>& tokens) override;
    void clean() override;

    /// The action number the engine knows the animation by.
    int number() const { return m_number; }
    /// Rewrites the header with another number.
    void setNumber(int number);

    /// The whole text of the action, its naming comment included, trimmed.
    QString text() const;
    /// Replaces the whole text of the action (header included) by `text`.
    void setText(const QString& text);

    const QList<QAnimationFrame*>& frames() const { return m_frames; }
    int frameCount() const { return int(m_frames.size()); }
    /// The frame at `index`, null out of range.
    QAnimationFrame* frame(int index) const { return m_frames.value(index); }
    /// The frame a view shows; 0 at first.
    unsigned int frameIndex() const { return m_frameIndex; }
    void setFrameIndex(unsigned int index) { m_frameIndex = index; }
    /// Sum of the frames' times, or -1 when a frame lasts for ever (time -1).
    int totalTime() const;
    /// The frame a "LoopStart" line marks, 0 without one.
    int loopStart() const;

    /// Appends a frame ("-1,0, 0,0, 10") behind the last frame, or behind the
    /// header; returns it.
    QAnimationFrame* addFrame();
    /// Inserts a frame before the frame at `position`, or appends one past the end.
    QAnimationFrame* insertFrame(unsigned int position);

    /// The header's text for an action number.
    static QString headerText(int number);

private:
    friend class QAnimationsLinker;

    int m_number = 0;
    unsigned int m_frameIndex = 0;
    QList<QAnimationFrame*> m_frames;
};
