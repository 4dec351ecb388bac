#pragma once

#include <QUndoCommand>

/**
 * Base of the undo commands of a file model that keeps its own undo stack
 * (sprites, sounds). A command is pushed after the change it stands for,
 * which the caller has already made, so the first redo() that
 * QUndoStack::push runs does nothing; later ones replay the change through
 * doRedo(). Both directions run under the model's change lock, so that the
 * edits they replay make no commands of their own, and mark it modified.
 *
 * Model must offer a ChangeLock taking a Model* and setModified(bool).
 */
template <class Model> class QModelUndoCommand : public QUndoCommand
{
public:
    explicit QModelUndoCommand(Model* model)
        : m_model(model)
    {
    }

    void redo() final
    {
        if (m_first) {
            m_first = false;
            return;
        }
        typename Model::ChangeLock lock(m_model);
        doRedo();
        m_model->setModified(true);
    }

    void undo() final
    {
        typename Model::ChangeLock lock(m_model);
        doUndo();
        m_model->setModified(true);
    }

protected:
    virtual void doRedo() = 0;
    virtual void doUndo() = 0;

    Model* const m_model;

private:
    bool m_first = true;
};
