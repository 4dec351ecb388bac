#pragma once

// The real main window for a window test. Header only: the test support
// library links no widgets.

#include "app/mainwindow.h"
#include "windowmanagers.h"

#include <QSize>
#include <QtTest>

namespace testWindow {

/**
 * Makes the managers on `programDir`, then the main window at `size`, shown
 * and active, so that the keys of its editors work as an author's do. Null
 * when the managers or the window could not be had.
 */
inline MainWindow* open(const QString& programDir, const QSize& size)
{
    if (!windowManagers::create(programDir))
        return nullptr;
    auto* window = new MainWindow;
    window->resize(size);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowExposed(window) || !QTest::qWaitForWindowActive(window)) {
        delete window;
        return nullptr;
    }
    return window;
}

} // namespace testWindow
