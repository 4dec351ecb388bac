#include "appglobals.h"

QApplication* application = nullptr;
bool master = false;
QString ownFile;
