#pragma once

#include "qabstractpalette.h"

/**
 * JASC-PAL text palette ("JASC-PAL", "0100", a count, then one "r g b [a]" line per entry, CRLF line
 * ends). Lines that do not parse leave their entry alone. The file's order is kept.
 */
class QJascPalette : public QAbstractPalette
{
public:
    bool fromFile(QIODevice* device, QRGBA (*palette)[256]) override;
    QString name() const override { return QStringLiteral("JASC"); }
};
