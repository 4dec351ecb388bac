#pragma once

#include "qresourcedirectory.h"

/// The colour sets: each XML file of the directory.
class QColorsetManager : public QResourceDirectory
{
public:
    explicit QColorsetManager(const QString& directory)
        : QResourceDirectory(directory, QResourceDirectory::Files)
    {
    }
};

extern QColorsetManager* colorMan;
