#pragma once

// Values of Qt's properties and item data in Lua, both ways: nil, booleans,
// numbers, strings, tables (lists and maps), the value classes the API binds
// (Rect, Color, Date...) and objects. What has no Lua form goes as a Variant.

#include "qluaheaders.h"

#include <QVariant>

namespace lua {

QVariant toVariant(const luabind::object& value);
luabind::object fromVariant(lua_State* state, const QVariant& value);

} // namespace lua
