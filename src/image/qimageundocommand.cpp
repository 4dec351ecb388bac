#include "qimageundocommand.h"

void ImageUndoCommand::redo()
{
    if (m_first) {
        m_first = false;
        return;
    }
    doRedo();
}
