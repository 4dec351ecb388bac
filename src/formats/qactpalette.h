#pragma once

#include "qabstractpalette.h"

/**
 * Adobe colour table: 256 triples of red, green and blue, the transparent colour last. Only the first
 * 768 bytes count; fewer give false. The table is reversed, so entry 0 is the file's last triple.
 */
class QACTPalette : public QAbstractPalette
{
public:
    bool fromFile(QIODevice* device, QRGBA (*palette)[256]) override;
    QString name() const override { return QStringLiteral("ACT"); }
};
