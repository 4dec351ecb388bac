#include "qstylesheetmanager.h"

QStylesheetManager* styleMan = nullptr;
