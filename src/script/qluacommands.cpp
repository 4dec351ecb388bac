// Commands and Command: the CMD's [Command] groups, edited through its text.
#include "qluabindings.h"
#include "qluawrappers.h"
#include "model/qcommand.h"
#include "model/qcommands.h"
#include "text/qgroupparam.h"

#include <QTextBlock>

QCommands* LCommands::commands() const
{
    return static_cast<QCommands*>(text());
}

QCommands* LCommand::owner() const
{
    if (!m_owner)
        throw deletedObject();
    return m_owner.data();
}

QCommand* LCommand::command() const
{
    if (owner()->indexOf(m_command) < 0)
        throw deletedObject();
    return m_command;
}

namespace {

int count(const LCommands& c) { return c.commands()->count(); }

LCommand at(const LCommands& c, int index)
{
    checkIndex(index, c.commands()->count());
    return LCommand(c.commands(), c.commands()->at(index));
}

LCommand add(const LCommands& c) { return LCommand(c.commands(), c.commands()->add()); }

LCommand insert(const LCommands& c, int position)
{
    checkIndex(position, c.commands()->count() + 1);
    return LCommand(c.commands(), c.commands()->insert(unsigned(position)));
}

void removeCommand(const LCommands& c, int position)
{
    checkIndex(position, c.commands()->count());
    c.commands()->remove(unsigned(position));
}

void duplicate(const LCommands& c, int position)
{
    checkIndex(position, c.commands()->count());
    c.commands()->duplicate(unsigned(position));
}

void move(const LCommands& c, int from, int to)
{
    checkIndex(from, c.commands()->count());
    checkIndex(to, c.commands()->count());
    c.commands()->move(unsigned(from), unsigned(to));
}

int find(const LCommands& c, const std::string& name) { return c.commands()->find(0, lua::str(name)); }
int findFrom(const LCommands& c, int from, const std::string& name) { return c.commands()->find(unsigned(from), lua::str(name)); }
void autoOrganize(const LCommands& c) { c.commands()->autoOrganize(); }

// The value of a key as written, without its comment; empty when the key is absent.
std::string paramValue(const LCommand& c, const std::string& key)
{
    const QGroupParam* param = c.command()->parameter(lua::str(key));
    if (!param)
        return std::string();
    QString line = param->block().text();
    line = line.mid(line.indexOf(QLatin1Char('=')) + 1);
    const int comment = int(line.indexOf(QLatin1Char(';')));
    return lua::std((comment >= 0 ? line.left(comment) : line).trimmed());
}

void setValue(const LCommand& c, const std::string& key, const std::string& text)
{
    QCommand* command = c.command();
    const QGroupParam* param = command->parameter(lua::str(key));
    command->setParamValue(param ? param->id() : QGroupParamID(0), lua::str(key), lua::str(text));
}

std::string name(const LCommand& c) { return lua::std(c.command()->name(false)); }
void setName(const LCommand& c, const std::string& name) { c.command()->setName(lua::str(name), false); }
std::string keys(const LCommand& c) { return paramValue(c, "command"); }
void setKeys(const LCommand& c, const std::string& keys) { setValue(c, "command", keys); }
int commandTime(const LCommand& c) { return lua::str(paramValue(c, "time")).toInt(); }
void setTime(const LCommand& c, int time) { setValue(c, "time", std::to_string(time)); }
int bufferTime(const LCommand& c) { return lua::str(paramValue(c, "buffer.time")).toInt(); }
void setBufferTime(const LCommand& c, int time) { setValue(c, "buffer.time", std::to_string(time)); }
int length(const LCommand& c) { return c.command()->length(); }
int line(const LCommand& c) { return c.command()->line(); }

} // namespace

void registerLuaCommands(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LCommands, LTextDocument>("Commands")
            .property("count", &count)
            .def("at", &at)
            .def("add", &add)
            .def("insert", &insert)
            .def("remove", &removeCommand)
            .def("duplicate", &duplicate)
            .def("move", &move)
            .def("find", &find)
            .def("find", &findFrom)
            .def("autoOrganize", &autoOrganize),
        class_<LCommand>("Command")
            .property("name", &name, &setName)
            .property("command", &keys, &setKeys)
            .property("time", &commandTime, &setTime)
            .property("bufferTime", &bufferTime, &setBufferTime)
            .property("length", &length)
            .property("line", &line)
            .def("value", &paramValue)
            .def("setValue", &setValue)
    ];
}
