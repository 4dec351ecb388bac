#pragma once

#include <QUndoCommand>

/**
 * Base of the image editor's undo commands. A command is pushed after the
 * change it stands for has been made, so the first redo() (the one push
 * makes) does nothing; later ones replay the change through doRedo().
 */
class ImageUndoCommand : public QUndoCommand
{
public:
    using QUndoCommand::QUndoCommand;

    void redo() final;

protected:
    virtual void doRedo() = 0;

private:
    bool m_first = true;
};

/// Merge ids of the commands that fold a drag into one step.
enum ImageUndoCommandId {
    idImageLayerOpacity = 0x1701,
};
