#pragma once

struct lua_State;

// One registration per part of the scripting API; QScript::registerBindings
// runs them all on every new state, a base class before the classes derived from it.

void registerLuaGlobals(lua_State* state);     ///< print, translate, bit_*, colours, connect
void registerLuaText(lua_State* state);        ///< TextDocument (state files)
void registerLuaProject(lua_State* state);     ///< Project, project(), projectCount()
void registerLuaDefinitions(lua_State* state); ///< Definitions
void registerLuaSprites(lua_State* state);     ///< Sprites, Sprite
void registerLuaPalettes(lua_State* state);    ///< SpritePalette
void registerLuaAnimations(lua_State* state);  ///< Animations, Animation, AnimationFrame, HitBoxes, HitBox
void registerLuaCommands(lua_State* state);    ///< Commands, Command
void registerLuaSounds(lua_State* state);      ///< Sounds
void registerLuaImage(lua_State* state);       ///< Image, the pixels a script draws or reads
void registerLuaAuthor(lua_State* state);      ///< ask, message, saveFileName, writeFile, include

// The thin layer over Qt's own classes, by family.
void registerLuaUtil(lua_State* state);        ///< Object (the base of every bound QObject), Variant, Timer, RegExp
void registerLuaTime(lua_State* state);        ///< Date, Time, DateTime
void registerLuaBytes(lua_State* state);       ///< Util (numbers in bytes), toString, fromString
void registerLuaRect(lua_State* state);        ///< Point, Line, Rect, Size, Margins, Polygon, Region
void registerLuaFile(lua_State* state);        ///< File, TemporaryFile
void registerLuaFileInfo(lua_State* state);    ///< Directory, FileInfo
void registerLuaPaintValues(lua_State* state); ///< Color, Brush, Pen, Font
void registerLuaPainter(lua_State* state);     ///< Painter (after Image, which it paints)
