#pragma once

#include <QAbstractListModel>

/**
 * A list model whose items the author can reorder and remove: sprites,
 * palettes, sounds and commands. Subclasses make each of these operations
 * one undoable edit; beginChange() and endChange() bracket a batch of edits
 * that views should see, and undo should take back, as one.
 */
class QOrganizableObject : public QAbstractListModel
{
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    virtual void beginChange() = 0;
    virtual void endChange() = 0;
    virtual void remove(unsigned int position) = 0;
    virtual void move(unsigned int from, unsigned int to) = 0;
    /// Sorts the items into the order the engine expects.
    virtual void autoOrganize() = 0;
};
