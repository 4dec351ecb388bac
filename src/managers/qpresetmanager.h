#pragma once

#include "qresourcedirectory.h"

#include <QColor>
#include <QHash>
#include <QSize>

/**
 * The presets of the look of the program: each XML file of the directory
 * names an icon set, a style and a colour set and sets the metrics of the
 * tool bars and panels:
 *
 *     <preset>
 *       <value key="iconset" value="Classic"/> <value key="iconsize" value="22,22"/> ...
 *       <panel area="editor" name="sprites" metric="240,26"/>
 *     </preset>
 *
 * Sizes are "w,h", colours "r,g,b", the justification "left,top". A value
 * in a wrong form keeps its default; a bad file is reported and keeps what
 * was read before the fault. "Classic" is the preset of a new installation.
 */
class QPresetManager : public QResourceDirectory
{
public:
    /// What a preset resolves to once the configuration's choices are laid over it.
    struct Look
    {
        QString preset;
        QString iconset;
        QString stylesheet;
        QString colorset;
        QSize iconSize{22, 22};
        QSize panelMetric{220, 24}; ///< minimum width of a panel, height of its title
        QSize extraMetric{220, 24};
        QSize button{28, 28};
        QColor separator{220, 0, 30};
        QString justify = QStringLiteral("left,top");
        bool flat = true;
        QHash<QString, QSize> panels; ///< "area/name" to its metric
    };

    static QString defaultPreset() { return QStringLiteral("Classic"); }

    explicit QPresetManager(const QString& directory)
        : QResourceDirectory(directory, QResourceDirectory::Files)
    {
    }

    /**
     * Reads the preset (the default one when it is unknown) and lays the
     * explicit choices over it: a non-empty icon set, style or colour set
     * given here wins over the preset's own. The result is also current().
     */
    const Look& apply(const QString& preset, const QString& iconset, const QString& stylesheet,
                      const QString& colorset);
    const Look& current() const { return m_look; }
    /// A panel's metric: its own from the preset, else the area's.
    QSize panelMetric(const QString& area, const QString& name) const;
    /// A size meant at 96 dpi, at `dpi`.
    static int scaleToDPI(int size, int dpi) { return size * dpi / 96; }

private:
    Look m_look;
};

extern QPresetManager* presetMan;
