#pragma once

#include <QByteArray>
#include <QString>

/// Helpers the project tests share: files in and out, line ends.
namespace kit {

QByteArray readBytes(const QString& fileName);
/// Writes `data`, making the folders on the way.
void writeBytes(const QString& fileName, const QByteArray& data);
/// The bytes with every line end (CRLF, LF or a lone CR) made CRLF.
QByteArray withCrlf(const QByteArray& data);

} // namespace kit
