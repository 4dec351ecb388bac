#pragma once

#include <QString>

class QApplication;

/// The application object, created first in start-up and deleted last.
extern QApplication* application;

/// Whether this process holds the single-instance key and so owns the
/// hand-over file through which later processes pass files to open.
extern bool master;

/// A file to open in this window because the master did not answer in time.
extern QString ownFile;
