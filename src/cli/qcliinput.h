#pragma once

#include <QString>

// What the commands check of a file before they read it, so that each refuses
// what is not what it claims to be in one line, rather than reading it as an
// empty model of its kind.

/**
 * Why a file is no text of the engine, or an empty string: engine text holds
 * no binary data (see isEngineText()) and at least one [group] line. `kind`
 * starts the answer ("not a CMD file"); unreadable files say so.
 */
QString notEngineText(const QString& fileName, const QString& kind);

/// Why a file is no DEF, or an empty string: a DEF is engine text named *.def.
QString notADefinition(const QString& fileName);
