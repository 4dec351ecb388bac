#include "qsavebytes.h"

#include <QSaveFile>

bool saveBytes(const QString& fileName, const QByteArray& bytes)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}
