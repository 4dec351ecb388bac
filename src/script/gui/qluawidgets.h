#pragma once

struct lua_State;

// The dialog layer of the scripting API: thin bindings over Qt's widgets so
// that a script builds its own dialogs. One registration per family, each
// in its lua_<family>.cpp; a family's bases go before it.

void registerLuaQObject(lua_State* state);  ///< Widget
void registerLuaQEvent(lua_State* state);   ///< Event and its kinds
void registerLuaQLayout(lua_State* state);  ///< Layout, BoxLayout, ..., SpacerItem
void registerLuaQDialog(lua_State* state);  ///< Frame, Dialog, GroupBox, Wizard, WizardPage
void registerLuaQTextEdit(lua_State* state); ///< Label, the text edits, AbstractScrollArea
void registerLuaQButton(lua_State* state);  ///< AbstractButton, PushButton, ..., KeySequence
void registerLuaQSpin(lua_State* state);    ///< AbstractSpinBox, IntEdit, FloatEdit
void registerLuaQSlider(lua_State* state);  ///< AbstractSlider, Slider, ScrollBar, ProgressBar, ProgressDialog
void registerLuaQList(lua_State* state);    ///< ComboBox, the item widgets and their items

/// Every family, in order; what the window installs on each new script state.
void registerLuaWidgets(lua_State* state);
/// Installs registerLuaWidgets as the scripts' extra bindings.
void installLuaWidgets();
