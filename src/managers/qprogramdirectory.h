#pragma once

#include <QString>

/**
 * The folder the program reads its data from and writes its own files to
 * (config.xml, shortcuts.xml, history.xml): the executable's folder, unless
 * set otherwise, as tests do to run the window on a folder of their own.
 */
QString programDirectory();
void setProgramDirectory(const QString& directory);
