#pragma once

#include <QString>
#include <QStringList>
#include <array>

/**
 * The files a DEF names, as its text gives them: relative to the base
 * directory, with "/" as separator. The DEF model fills it; opening, saving
 * and backing up a project walk it.
 */
struct QProjectFiles
{
    static constexpr int paletteCount = 12;

    QString baseDir;                                  ///< the DEF's directory
    QStringList states;                               ///< CNS and ST files, in the DEF's order, each once
    std::array<QString, paletteCount> palettes;       ///< "pal1" to "pal12"; empty when not given
    QString sprites;
    QString animations;
    QString sounds;
    QString commands;
};
