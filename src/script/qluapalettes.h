#pragma once

#include "qluawrappers.h"

/// Adds the palette members of Sprites (paletteCount, paletteAt, addPalette...) to its class.
void bindSpritePalettes(luabind::class_<LSprites, LObject>& sprites);
