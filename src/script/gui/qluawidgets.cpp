#include "qluawidgets.h"

#include "script/qscript.h"

void registerLuaWidgets(lua_State* state)
{
    registerLuaQObject(state);
    registerLuaQEvent(state);
    registerLuaQLayout(state);
    registerLuaQDialog(state);
    registerLuaQTextEdit(state);
    registerLuaQButton(state);
    registerLuaQSpin(state);
    registerLuaQSlider(state);
    registerLuaQList(state);
}

void installLuaWidgets()
{
    QScript::setExtraBindings(&registerLuaWidgets);
}
