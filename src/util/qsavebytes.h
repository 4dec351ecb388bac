#pragma once

#include <QByteArray>
#include <QString>

/// Writes `bytes` as the whole file: the file is replaced only when all of
/// them are written, so a failed write leaves the previous file as it was.
bool saveBytes(const QString& fileName, const QByteArray& bytes);
