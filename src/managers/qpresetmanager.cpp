#include "qpresetmanager.h"

QPresetManager* presetMan = nullptr;
