// The price of a script run's start: every tool, template or snippet run
// builds a new Lua state with the whole API bound (QScript), so this is paid
// at each click. Measured beside a bare state with Lua's own libraries.
#include "benchutil.h"

#include "script/qluaheaders.h"
#include "script/qscript.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    constexpr int states = 200;
    constexpr int repetitions = 7;

    const double bareMs = bench::bestMs(repetitions, [&] {
        for (int i = 0; i < states; ++i) {
            lua_State* state = luaL_newstate();
            luaL_openlibs(state);
            bench::keep(lua_gettop(state));
            lua_close(state);
        }
    });
    const double boundMs = bench::bestMs(repetitions, [&] {
        for (int i = 0; i < states; ++i) {
            QScript script;
            bench::keep(lua_gettop(script.state()));
        }
    });
    std::printf("%d states per measurement, best of %d\n", states, repetitions);
    std::printf("bare luaL_newstate + luaL_openlibs: %8.3f ms per state\n", bareMs / states);
    std::printf("QScript with the whole API bound:   %8.3f ms per state\n", boundMs / states);
    std::printf("ratio bound / bare:                 %8.1f\n", boundMs / bareMs);
    return 0;
}
