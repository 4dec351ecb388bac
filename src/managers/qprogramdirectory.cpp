#include "qprogramdirectory.h"

#include <QCoreApplication>

namespace {

QString& chosen()
{
    static QString directory;
    return directory;
}

} // namespace

QString programDirectory()
{
    return chosen().isEmpty() ? QCoreApplication::applicationDirPath() : chosen();
}

void setProgramDirectory(const QString& directory)
{
    chosen() = directory;
}
