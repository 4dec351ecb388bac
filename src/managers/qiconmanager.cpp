#include "qiconmanager.h"

QIconManager* iconMan = nullptr;
