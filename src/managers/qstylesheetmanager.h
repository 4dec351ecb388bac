#pragma once

#include "qresourcedirectory.h"

/// The style sheets: each folder of the directory with a "Stylesheet.css".
class QStylesheetManager : public QResourceDirectory
{
public:
    explicit QStylesheetManager(const QString& directory)
        : QResourceDirectory(directory, QResourceDirectory::Subdirectories, QStringLiteral("Stylesheet.css"))
    {
    }
};

extern QStylesheetManager* styleMan;
