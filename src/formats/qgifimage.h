#pragma once

#include "qgifcolormap.h"
#include "qgifframe.h"

#include <QList>
#include <QString>

class QIODevice;

/**
 * An animated GIF89a being written: the screen size, an optional global colour
 * map and the frames. Each frame gets a graphic control extension with its
 * delay, index 0 as transparent colour and "restore to background" disposal,
 * the way sprites with colour 0 as their background animate.
 *
 * The writer only writes: frames must be Format_Indexed8 already (quantize
 * true-colour frames first), or save fails.
 */
class QGIFImage
{
public:
    QGIFImage(int width, int height)
        : m_width(width)
        , m_height(height)
    {
    }

    void setGlobalColorMap(const QGIFColorMap& colorMap) { m_globalColorMap = colorMap; }
    const QGIFColorMap& globalColorMap() const { return m_globalColorMap; }
    void addFrame(const QGIFFrame& frame) { m_frames.append(frame); }
    const QList<QGIFFrame>& frames() const { return m_frames; }

    /// Writes the whole file in one pass; false for a frame that is not indexed or
    /// a device that fails.
    bool save(QIODevice* device) const;
    /// Writes the file, replacing it only when complete.
    bool save(const QString& path) const;

private:
    int m_width;
    int m_height;
    QGIFColorMap m_globalColorMap;
    QList<QGIFFrame> m_frames;
};
