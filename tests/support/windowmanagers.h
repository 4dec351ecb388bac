#pragma once

#include <QString>

/**
 * The managers a MainWindow needs before it is built, for the window tests.
 * The window runs on a program folder of the test's own whose data are
 * links to the build's, so nothing touches the settings beside the real
 * executable; closing a project never asks for confirmation.
 */
namespace windowManagers {

/// Links the build's data into `programDir` and makes the managers; false when a link fails.
bool create(const QString& programDir);
/// Deletes what create() made.
void destroy();

} // namespace windowManagers
