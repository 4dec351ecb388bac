#pragma once

#include "model/qorganizableobject.h"

class QCommand;
class QCommands;

/**
 * The list model of the commands of a CMD file, for the organiser view: one
 * row per `[Command]` group in text order, shown by its name. Its edits go
 * to the text through QCommands, whose list it reads; QCommands tells it of
 * rows that come and go as the text changes.
 */
class QCommandsOrg : public QOrganizableObject
{
    Q_OBJECT
public:
    explicit QCommandsOrg(QCommands* commands);

    QCommands* commands() const { return m_commands; }

    void beginChange() override;
    void endChange() override;
    void remove(unsigned int position) override;
    void move(unsigned int from, unsigned int to) override;
    void autoOrganize() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// A row reads the command's name, or its naming comment when it has no name.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    /// The row of `command` shows a new name.
    void cmdChanged(QCommand* command);

private:
    friend class QCommands;

    QCommands* m_commands;
};
