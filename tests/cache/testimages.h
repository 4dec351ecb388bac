#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

// Images for codec and cache tests, made from a seed so failures repeat.

/// The shapes the round trips cover: each stresses other packets.
enum class Pattern { Noise, Stripes, Sprite, Gradient, Dither, Flat };

/// An indexed image of `colours` values (at most 256) in a pattern.
QImage patternImage(Pattern pattern, int width, int height, int colours, quint32 seed);

/// The patterns by name, for data-driven tests.
QList<QPair<const char*, Pattern>> allPatterns();

/// The image's bytes as the cache holds decoded sprites: height * bytesPerLine.
QByteArray pixelsOf(const QImage& image);

/// An indexed image with the given tight pixels (one byte each), padded rows zero.
QImage imageFromPixels(int width, int height, const QByteArray& pixels);

/// The tight pixels of an indexed image, row padding dropped.
QByteArray tightPixels(const QImage& image);
