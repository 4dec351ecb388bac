#pragma once

#include "qabstractpalette.h"

/**
 * Adobe swatch exchange (ASE), big-endian with single-precision floats: RGB, CMYK and grey colours of
 * every group go into the table in file order; group headers are read for their name only.
 */
class QASEPalette : public QAbstractPalette
{
public:
    bool fromFile(QIODevice* device, QRGBA (*palette)[256]) override;
    QString name() const override { return QStringLiteral("ASE"); }
};
