#include "qcommandsorg.h"

#include "model/qcommand.h"
#include "model/qcommands.h"

QCommandsOrg::QCommandsOrg(QCommands* commands)
    : m_commands(commands)
{
}

void QCommandsOrg::beginChange()
{
    m_commands->beginChange();
}

void QCommandsOrg::endChange()
{
    m_commands->endChange();
}

void QCommandsOrg::remove(unsigned int position)
{
    m_commands->remove(position);
}

void QCommandsOrg::move(unsigned int from, unsigned int to)
{
    m_commands->move(from, to);
}

void QCommandsOrg::autoOrganize()
{
    m_commands->autoOrganize();
}

int QCommandsOrg::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_commands->count();
}

QVariant QCommandsOrg::data(const QModelIndex& index, int role) const
{
    const QCommand* command = m_commands->at(index.row());
    if (!command || role != Qt::DisplayRole)
        return QVariant();
    const QString name = command->name(false);
    return name.isEmpty() ? command->name(true) : name;
}

void QCommandsOrg::cmdChanged(QCommand* command)
{
    const int row = m_commands->indexOf(command);
    if (row >= 0)
        emit dataChanged(index(row), index(row));
}
