#pragma once

// Pictures of windows for review. The window tests save them when
// PF_SHOT_DIR names a folder (a run under Xvfb) and take none otherwise.
// Header only: the test support library links no widgets.

#include <QDir>
#include <QPixmap>
#include <QString>

namespace screenshots {

/// The folder PF_SHOT_DIR names; empty when no pictures are wanted.
inline QString folder()
{
    return qEnvironmentVariable("PF_SHOT_DIR");
}

/// Saves `picture` as `name` in the folder; true when none is wanted or the picture was written.
inline bool save(const QPixmap& picture, const QString& name)
{
    const QString dir = folder();
    return dir.isEmpty() || picture.save(QDir(dir).filePath(name));
}

} // namespace screenshots
