#pragma once

// Lua and luabind, included in one place with the settings this build needs:
// luabind's holders as std::unique_ptr, boost's placeholders where luabind
// expects them. Qt's `signals`/`slots` keywords are not touched by these headers.
#ifndef LUABIND_USE_CXX11
#define LUABIND_USE_CXX11
#endif
#ifndef BOOST_BIND_GLOBAL_PLACEHOLDERS
#define BOOST_BIND_GLOBAL_PLACEHOLDERS
#endif

extern "C" {
#include <lauxlib.h>
#include <lua.h>
#include <lualib.h>
}

#include <luabind/luabind.hpp>
#include <luabind/object.hpp>

#include <QString>

#include <stdexcept>

namespace lua {

/// The exception a bound function throws for a fault; luabind turns it into a Lua error with this text.
inline std::runtime_error fault(const QString& text)
{
    return std::runtime_error(text.toStdString());
}

/// Lua strings are UTF-8 here in both directions.
inline QString str(const std::string& text)
{
    return QString::fromStdString(text);
}

inline std::string std(const QString& text)
{
    return text.toStdString();
}

} // namespace lua
