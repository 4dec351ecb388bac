#pragma once

#include "qresourcedirectory.h"

/**
 * The styles: each folder of the directory with a "Stylesheet.css". A style
 * writes sizes that should follow the display as "[n]", meant at 96 dpi,
 * and refers to its own pictures with url() relative to its folder.
 */
class QStylesheetManager : public QResourceDirectory
{
public:
    explicit QStylesheetManager(const QString& directory)
        : QResourceDirectory(directory, QResourceDirectory::Subdirectories, QStringLiteral("Stylesheet.css"))
    {
    }

    /// The style's sheet ready for the application at `dpi`; empty for an
    /// unknown or unreadable style, which leaves the platform's look.
    QString sheet(const QString& name, int dpi) const;
    /// Every "[n]" becomes n * dpi / 96 (integer division), every "url(" one
    /// that looks in `folder`.
    static QString resolve(QString sheet, int dpi, const QString& folder);
};

extern QStylesheetManager* styleMan;
