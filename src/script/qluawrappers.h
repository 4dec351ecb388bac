#pragma once

// What a script holds of the program's models. Objects of Qt are held by a
// guarded pointer (LObject); elements of a text model (an action, a frame, a
// box, a command) are held with the model that owns them and are looked up
// again at each use, so a script that keeps one after the author removed it
// gets the error "deleted object", never freed memory.

#include "qluaobject.h"

#include <QTextCursor>

#include <memory>

#include "model/qanimation.h"
#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qcollisionbox.h"
#include "model/qcollisionboxes.h"
#include "model/qcommand.h"
#include "model/qcommands.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"

class LProject : public LObject
{
public:
    using LObject::LObject;
    QProject* project() const { return live<QProject>(); }
};

/// A text file of the project (a state file, the DEF, the CMD) with a cursor of its own.
class LTextDocument : public LObject
{
public:
    explicit LTextDocument(QSyntaxTextEditor* text = nullptr);
    QSyntaxTextEditor* text() const { return live<QSyntaxTextEditor>(); }
    /// The script's cursor, shared by the copies Lua makes of this handle.
    QTextCursor& cursor() const;

private:
    std::shared_ptr<QTextCursor> m_cursor;
};

class LDefinitions : public LTextDocument
{
public:
    using LTextDocument::LTextDocument;
    QDefinitions* definitions() const;
};

class LCommands : public LTextDocument
{
public:
    using LTextDocument::LTextDocument;
    QCommands* commands() const;
};

class LCommand
{
public:
    LCommand(QCommands* owner, QCommand* command) : m_owner(owner), m_command(command) {}
    QCommand* command() const;
    QCommands* owner() const;

private:
    QPointer<QCommands> m_owner;
    QCommand* m_command;
};

class LSprites : public LObject
{
public:
    using LObject::LObject;
    QSprites* sprites() const { return live<QSprites>(); }
};

class LSprite : public LObject
{
public:
    using LObject::LObject;
    /// The sprite while it is in its file; a removed one (kept only by undo) counts as deleted.
    QSprite* sprite() const;
};

class LSpritePalette : public LObject
{
public:
    using LObject::LObject;
    QSpritePalette* palette() const;
};

class LAnimations : public LObject
{
public:
    using LObject::LObject;
    QAnimations* animations() const { return live<QAnimations>(); }
};

class LAnimation
{
public:
    LAnimation(QAnimations* owner, QAnimation* animation) : m_owner(owner), m_animation(animation) {}
    QAnimation* animation() const;
    QAnimations* owner() const;

private:
    QPointer<QAnimations> m_owner;
    QAnimation* m_animation;
};

class LAnimationFrame
{
public:
    LAnimationFrame(const LAnimation& animation, QAnimationFrame* frame) : m_animation(animation), m_frame(frame) {}
    QAnimationFrame* frame() const;
    const LAnimation& animation() const { return m_animation; }

private:
    LAnimation m_animation;
    QAnimationFrame* m_frame;
};

class LHitBoxes
{
public:
    LHitBoxes(const LAnimationFrame& frame, int type) : m_frame(frame), m_type(type) {}
    QCollisionBoxes* boxes() const;
    const LAnimationFrame& frame() const { return m_frame; }
    int type() const { return m_type; }

private:
    LAnimationFrame m_frame;
    int m_type;
};

class LHitBox
{
public:
    LHitBox(const LHitBoxes& boxes, QCollisionBox* box) : m_boxes(boxes), m_box(box) {}
    QCollisionBox* box() const;

private:
    LHitBoxes m_boxes;
    QCollisionBox* m_box;
};

class LSounds : public LObject
{
public:
    using LObject::LObject;
    QSounds* sounds() const { return live<QSounds>(); }
};

/// Checks a 0-based position against a count, raising a Lua error outside it.
void checkIndex(int index, int count);
