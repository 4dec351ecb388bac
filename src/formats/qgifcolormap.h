#pragma once

#include "qrgb.h"
#include "qrgba.h"

#include <QDataStream>
#include <QVector>

/**
 * A GIF colour map: a list of opaque colours. Maps are always written with 256
 * entries (the packed bytes of the writer declare that size), padded with black.
 */
class QGIFColorMap : public QVector<QRGB>
{
public:
    /// Fills the map with the 256 entries of a palette, dropping alpha.
    void fromPalette(const QRGBA* palette);
    /// Fills the map from a QImage colour table.
    void fromColorTable(const QVector<QRgb>& colours);
    /// Writes 256 triples: the entries, then black up to 256; extra entries are left out.
    void save(QDataStream& stream) const;
};
