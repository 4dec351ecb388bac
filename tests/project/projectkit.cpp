#include "projectkit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace kit {

QByteArray readBytes(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& fileName, const QByteArray& data)
{
    QDir().mkpath(QFileInfo(fileName).absolutePath());
    QFile file(fileName);
    if (file.open(QIODevice::WriteOnly))
        file.write(data);
}

QByteArray withCrlf(const QByteArray& data)
{
    QByteArray result;
    result.reserve(data.size() + data.size() / 16);
    for (qsizetype i = 0; i < data.size(); ++i) {
        const char c = data.at(i);
        if (c == '\r' || c == '\n') {
            result += "\r\n";
            if (c == '\r' && i + 1 < data.size() && data.at(i + 1) == '\n')
                ++i;
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace kit
