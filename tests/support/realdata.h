#pragma once

#include <QString>
#include <QStringList>
#include <QtTest>

/// The folder of real engine files written by others (PF_REALDATA), or an
/// empty string when it is not there.
QString realDataDir();

/// Every file below the real-data folder whose name ends in one of the
/// suffixes (case-insensitive, e.g. "sff"), sorted; empty without the folder.
QStringList realDataFiles(const QStringList& suffixes);

/// Skips the current test, saying why, when the real files are absent.
#define PF_REQUIRE_REALDATA()                                                                      \
    do {                                                                                           \
        if (realDataDir().isEmpty())                                                               \
            QSKIP("real engine files not found: set PF_REALDATA or place ../shared/realdata");     \
    } while (false)
