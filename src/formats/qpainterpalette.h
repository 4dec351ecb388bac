#pragma once

#include "qabstractpalette.h"

/**
 * Painter text palette, starting with "ROWS": every line of the form "R: r, G: g, B: b [A: a]" gives
 * the next entry, other lines are passed over. The file's order is kept.
 */
class QPainterPalette : public QAbstractPalette
{
public:
    bool fromFile(QIODevice* device, QRGBA (*palette)[256]) override;
    QString name() const override { return QStringLiteral("Painter"); }
};
