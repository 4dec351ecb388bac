#pragma once

#include "formats/qrgba.h"

#include <QColor>
#include <QObject>
#include <QVector>

/**
 * The colours an image canvas draws with: a table of 256 entries (entry 0
 * the transparent one) and the foreground and background entries the tools
 * paint with. Painters ask it for colours and for the nearest entry to a
 * colour, so one painter code serves indexed and true-colour canvases.
 */
class QImagePalette : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    virtual unsigned char background() const = 0;
    virtual unsigned char foreground() const = 0;
    virtual QColor color(unsigned char index) const = 0;
    /// The entry that stands for `colour`: 0 for a fully transparent colour,
    /// otherwise the nearest of the other entries.
    virtual unsigned char index(const QColor& colour) const = 0;
    virtual void setForeground(unsigned char index) = 0;
    virtual void setBackground(unsigned char index) = 0;
    /// The 256 entries.
    virtual const QRGBA* palette() const = 0;
    /// Replaces the 256 entries.
    virtual void setColors(const QRGBA* colors) = 0;

    void toRGBPal(QRGBA (&table)[256]) const;
    /// The 256 entries as 0xAARRGGBB, the colour table of an indexed QImage.
    QVector<QRgb> toRgbPal() const;

signals:
    void paletteChanged();
    void foregroundChanged(unsigned char index);
    void backgroundChanged(unsigned char index);
};
