#pragma once

#include "qresourcedirectory.h"

/// The icon sets: each folder of the directory with an "Iconset.xml".
class QIconManager : public QResourceDirectory
{
public:
    explicit QIconManager(const QString& directory)
        : QResourceDirectory(directory, QResourceDirectory::Subdirectories, QStringLiteral("Iconset.xml"))
    {
    }
};

extern QIconManager* iconMan;
