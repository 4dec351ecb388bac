#pragma once

#include "qresourcedirectory.h"

/// The presets of the look of the program: each file of the directory.
class QPresetManager : public QResourceDirectory
{
public:
    explicit QPresetManager(const QString& directory)
        : QResourceDirectory(directory, QResourceDirectory::Files)
    {
    }
};

extern QPresetManager* presetMan;
