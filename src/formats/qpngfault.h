#pragma once

#include <QByteArray>
#include <QString>

/**
 * What is wrong with a PNG file, in one line ("chunk IDAT at byte 57 has a bad
 * checksum"), or an empty string for a sound file.
 *
 * The chunks are walked first (signature, lengths, checksums, IHDR first and
 * IEND last), then the whole picture is decoded by libpng with handlers of
 * this program's own, so that nothing it says reaches standard error: its
 * first error or warning is the fault. A file without a fault is one the
 * general image reader decodes without complaint; one with a fault would
 * make it fail, or print libpng's warnings, and is not handed to it.
 */
QString pngFault(const QByteArray& data);
