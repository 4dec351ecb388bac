#pragma once

#include "qanimation.h"
#include "qanimationframe.h"
#include "qcollisionbox.h"
#include "qcollisionboxes.h"
#include "qinterframeelement.h"
#include "text/qtextelementreg.h"
#include "util/qrecycleallocator.h"

/**
 * The recognisers of the lines of an AIR file, and the pools of their
 * elements. QAnimations::init() registers them once, in priority order:
 * action header, frame, inter-frame line, declaration, box line.
 */

extern QRecycleAllocator<QAnimation> animAlloc;
extern QRecycleAllocator<QAnimationFrame> frmAlloc;
extern QRecycleAllocator<QCollisionBoxes> clsnDeclAlloc;
extern QRecycleAllocator<QCollisionBox> clsnAlloc;
extern QRecycleAllocator<QInterFrameElement> ifrmAlloc;

/// "[Begin Action n]", anything behind the bracket.
class AnimReg : public QTextElementReg
{
public:
    QTextElementType type() const override { return animationElement::action; }
    unsigned int beginsWith() const override { return 0x5B03; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;
};

/// Five numbers separated by commas; anything behind them.
class FrameReg : public QTextElementReg
{
public:
    QTextElementType type() const override { return animationElement::frame; }
    unsigned int beginsWith() const override { return 2; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;
};

/// "LoopStart", or "Interpolate" and one of Blend, Angle, Scale, Offset.
class InterFrameReg : public QTextElementReg
{
public:
    QTextElementType type() const override { return animationElement::interFrame; }
    unsigned int beginsWith() const override { return 0x494C07; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;

private:
    /// The line began with "interpolate": a second word is wanted.
    mutable bool m_interpolate = false;
};

/// "Clsn1: n", "Clsn2: n", "Clsn1Default: n", "Clsn2Default: n".
class CLSNDeclReg : public QTextElementReg
{
public:
    QTextElementType type() const override { return animationElement::declaration; }
    unsigned int beginsWith() const override { return 0x4306; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;
};

/// "ClsnN[i] = left, top, right, bottom".
class CLSNReg : public QTextElementReg
{
public:
    QTextElementType type() const override { return animationElement::box; }
    unsigned int beginsWith() const override { return 0x4306; }
    bool matchToken(unsigned int index, const QTextToken& token) const override;
    QTextElement* create() override;
};
