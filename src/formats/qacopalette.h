#pragma once

#include "qabstractpalette.h"

/**
 * Adobe colour swatches (ACO), big-endian: only the first, version 1 section is read. RGB, HSB, CMYK
 * and grey colours become entries in file order; other colour spaces are skipped. Channels are divided
 * as signed 16-bit values, as the program has always read them.
 */
class QACOPalette : public QAbstractPalette
{
public:
    bool fromFile(QIODevice* device, QRGBA (*palette)[256]) override;
    QString name() const override { return QStringLiteral("ACO"); }
};
