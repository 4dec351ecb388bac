#include "qscript.h"

#include "qluabindings.h"
#include "qluaheaders.h"
#include "qscriptmanager.h"
#include "util/qmessages.h"

#include <QObject>

#include <cstdio>
#include <cstdlib>

const char* const QScript::tooLongMessage = "Script stopped: too long";

namespace {

// The hook runs once per this many instructions: often enough to stop a
// loop quickly, rare enough to cost nothing measurable.
constexpr int hookInterval = 10000;
// The registry key under which a state finds its QScript.
char scriptKey;

QScript::Reporter& reporter()
{
    static QScript::Reporter installed;
    return installed;
}

QScript::Binder& extraBinder()
{
    static QScript::Binder installed;
    return installed;
}

// Lua puts a userdata's bytes 40 bytes into its block (the header of a
// userdata on 64-bit systems), so from malloc's 16-byte aligned blocks they
// are only 8-byte aligned, while luabind places objects that need 16 there.
// Every block handed to Lua starts 8 bytes into the one malloc gives, which
// puts those bytes on a 16-byte boundary.
constexpr size_t blockOffset = 8;

void* allocate(void*, void* block, size_t, size_t size)
{
    char* base = block ? static_cast<char*>(block) - blockOffset : nullptr;
    if (size == 0) {
        std::free(base);
        return nullptr;
    }
    char* moved = static_cast<char*>(std::realloc(base, size + blockOffset));
    return moved ? moved + blockOffset : nullptr;
}

// As the auxiliary library's own: an error outside any protected call can
// only be told before the program ends.
int panic(lua_State* state)
{
    std::fprintf(stderr, "PANIC: unprotected error in call to Lua API (%s)\n", lua_tostring(state, -1));
    return 0;
}

} // namespace

QScript::QScript()
    : m_state(lua_newstate(&allocate, nullptr))
    , m_slots(new QObject)
{
    lua_atpanic(m_state, &panic);
    luaL_openlibs(m_state);
    luabind::open(m_state);
    lua_pushlightuserdata(m_state, &scriptKey);
    lua_pushlightuserdata(m_state, this);
    lua_rawset(m_state, LUA_REGISTRYINDEX);
    lua_sethook(m_state, &QScript::countHook, LUA_MASKCOUNT, hookInterval);
    guardProtectedCalls();
    registerBindings();
}

void QScript::guardProtectedCalls()
{
    // A script that loops around pcall would catch the stop each time and
    // go on: pcall and xpcall hand the stop on to their caller instead.
    static const char* const guard =
        "local stop, pcall0, xpcall0 = ...\n"
        "local function pass(ok, ...)\n"
        "    if not ok and ... == stop then error(stop, 0) end\n"
        "    return ok, ...\n"
        "end\n"
        "pcall = function(...) return pass(pcall0(...)) end\n"
        "xpcall = function(f, handler, ...)\n"
        "    return pass(xpcall0(f, function(e) if e == stop then return e end return handler(e) end, ...))\n"
        "end\n";
    luaL_loadstring(m_state, guard);
    lua_pushstring(m_state, tooLongMessage);
    lua_getglobal(m_state, "pcall");
    lua_getglobal(m_state, "xpcall");
    lua_call(m_state, 3, 0);
}

QScript::~QScript()
{
    // The connections hold references into the state: they go first, and no
    // signal reaches a closed state.
    delete m_slots;
    lua_close(m_state);
}

void QScript::registerBindings()
{
    registerLuaGlobals(m_state);
    // Object first, the base of every bound QObject; then Qt's values, which
    // the models' members may take and give.
    registerLuaUtil(m_state);
    registerLuaTime(m_state);
    registerLuaBytes(m_state);
    registerLuaRect(m_state);
    registerLuaFile(m_state);
    registerLuaFileInfo(m_state);
    registerLuaPaintValues(m_state);
    // A class's base goes first: TextDocument before Definitions and Commands.
    registerLuaText(m_state);
    registerLuaProject(m_state);
    registerLuaDefinitions(m_state);
    registerLuaSprites(m_state);
    registerLuaPalettes(m_state);
    registerLuaAnimations(m_state);
    registerLuaCommands(m_state);
    registerLuaSounds(m_state);
    registerLuaImage(m_state);
    registerLuaPainter(m_state);
    registerLuaAuthor(m_state);
    if (extraBinder())
        extraBinder()(m_state);
}

QScript* QScript::of(lua_State* state)
{
    lua_pushlightuserdata(state, &scriptKey);
    lua_rawget(state, LUA_REGISTRYINDEX);
    auto* script = static_cast<QScript*>(lua_touserdata(state, -1));
    lua_pop(state, 1);
    return script;
}

void QScript::fromFile(const QString& relativeName)
{
    lua_pushstring(m_state, relativeName.toUtf8().constData());
    lua_setglobal(m_state, "_SCRIPT");
    const QString directory = scriptMan ? scriptMan->directory() : QString();
    const QByteArray path = (directory + QLatin1Char('/') + relativeName + QStringLiteral(".lua")).toLocal8Bit();
    run(luaL_loadfile(m_state, path.constData()));
}

void QScript::fromString(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    run(luaL_loadbuffer(m_state, bytes.constData(), size_t(bytes.size()), "script"));
}

void QScript::run(int loadResult)
{
    resetCount();
    if (loadResult == LUA_OK && lua_pcall(m_state, 0, 0, 0) == LUA_OK)
        return;
    throw std::runtime_error(errorMessage().toStdString());
}

QString QScript::errorMessage() const
{
    const char* text = lua_gettop(m_state) > 0 ? lua_tostring(m_state, -1) : nullptr;
    return text ? QString::fromUtf8(text) : QString();
}

QString QScript::describe(const std::exception& error) const
{
    return QString::fromUtf8(error.what()) + QStringLiteral(" - ") + errorMessage();
}

void QScript::setInstructionLimit(long long limit)
{
    m_limit = limit;
}

void QScript::resetCount()
{
    m_used = 0;
}

void QScript::countHook(lua_State* state, lua_Debug*)
{
    QScript* script = of(state);
    if (!script)
        return;
    script->m_used += hookInterval;
    if (script->m_used > script->m_limit) {
        // The bare message, without a position, so that the pcall and xpcall
        // of the state recognise it and pass it on; and once over, every
        // later check fails too.
        lua_pushstring(state, tooLongMessage);
        lua_error(state);
    }
}

void QScript::setReporter(Reporter installed)
{
    reporter() = std::move(installed);
}

void QScript::report(const QString& title, const QString& text)
{
    if (reporter())
        reporter()(title, text);
    QScriptManager::scriptMsgs().add(mtError, title + QStringLiteral(": ") + text, 0, -1);
}

void QScript::setExtraBindings(Binder binder)
{
    extraBinder() = std::move(binder);
}
