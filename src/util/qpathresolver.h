#pragma once

#include <QString>

/// Where a name of a project's file leads on this machine, and how it got there.
struct QResolvedPath
{
    /// The file on disk when found; otherwise the name joined to the base as given.
    QString path;
    bool exists = false;
    /// Found only by ignoring letter case: the file works where case is ignored (the
    /// engine's Windows), but tools that respect case would miss it.
    bool caseDiffers = false;
    /// The name separates folders with "\", which only Windows reads as a separator.
    bool backslashes = false;
};

/**
 * Finds a file that a DEF names, the way the engine finds it on Windows: "\" and
 * "/" both separate folders and letter case does not matter. A name found as
 * written costs one look-up; only a miss walks the folders, matching each part of
 * the name against the entries of its folder ignoring case (an exact entry wins).
 * Relative names are taken from `baseDir`; an empty name names no file.
 */
QResolvedPath resolvePath(const QString& baseDir, const QString& name);
