#pragma once

// Whole files as bytes, for tests that write input files and read back what
// the program wrote. Header only.

#include <QByteArray>
#include <QFile>
#include <QString>

/// The bytes of the file; empty when it can't be read.
inline QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes the bytes as the whole file; false when they could not all be written.
inline bool writeAll(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
