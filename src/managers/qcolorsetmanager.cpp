#include "qcolorsetmanager.h"

QColorsetManager* colorMan = nullptr;
