// What a script asks and tells the author, files it writes, and the shared
// scripts it includes.
#include "qluabindings.h"
#include "qluaobject.h"
#include "qscriptmanager.h"
#include "util/qmessages.h"

#include <QSaveFile>

namespace {

// The answer the script's own `answers` table gives for `key`; a null string when it has none.
QString presetAnswer(lua_State* state, const std::string& key)
{
    const luabind::object answers = luabind::globals(state)["answers"];
    if (luabind::type(answers) != LUA_TTABLE)
        return QString();
    const luabind::object answer = answers[key];
    return luabind::type(answer) == LUA_TNIL ? QString() : lua::str(luabind::object_cast<std::string>(answer));
}

// ask(title, label, default): the text the author gives, nil when cancelled.
luabind::object ask(lua_State* state, const std::string& title, const std::string& label, const std::string& value)
{
    const QLuaDialogs& dialogs = QLuaDialogs::installed();
    QString answer;
    if (dialogs.ask) {
        answer = dialogs.ask(lua::str(title), lua::str(label), lua::str(value));
    } else {
        answer = presetAnswer(state, label);
        if (answer.isNull())
            answer = lua::str(value);
    }
    return answer.isNull() ? luabind::object() : luabind::object(state, lua::std(answer));
}

luabind::object saveFileName(lua_State* state, const std::string& title, const std::string& filter)
{
    const QLuaDialogs& dialogs = QLuaDialogs::installed();
    const QString name = dialogs.saveFileName ? dialogs.saveFileName(lua::str(title), lua::str(filter))
                                              : presetAnswer(state, title);
    return name.isEmpty() ? luabind::object() : luabind::object(state, lua::std(name));
}

void message(const std::string& title, const std::string& text)
{
    const QLuaDialogs& dialogs = QLuaDialogs::installed();
    if (dialogs.message)
        dialogs.message(lua::str(title), lua::str(text));
    QScriptManager::scriptMsgs().add(mtInformation, lua::str(text), 0, -1);
}

// writeFile(path, text): the whole file at once, the old one kept when the write fails.
bool writeFile(const std::string& path, const std::string& text)
{
    QSaveFile file(lua::str(path));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(text.data(), qint64(text.size()));
    return file.commit();
}

// include("common/Throw"): runs a shared script of the scripts folder in this state.
int include(lua_State* state)
{
    const char* name = luaL_checkstring(state, 1);
    int loaded;
    {
        // Lua raises its errors by a long jump: no C++ object may be alive below.
        const QString directory = scriptMan ? scriptMan->directory() : QString();
        const QByteArray path = (directory + QLatin1Char('/') + QString::fromUtf8(name) + QStringLiteral(".lua")).toLocal8Bit();
        loaded = luaL_loadfile(state, path.constData());
    }
    if (loaded != LUA_OK)
        return lua_error(state);
    lua_call(state, 0, 0);
    return 0;
}

} // namespace

void registerLuaAuthor(lua_State* state)
{
    lua_register(state, "include", &include);
    luabind::module(state)[
        luabind::def("ask", &ask),
        luabind::def("saveFileName", &saveFileName),
        luabind::def("message", &message),
        luabind::def("writeFile", &writeFile)
    ];
}
