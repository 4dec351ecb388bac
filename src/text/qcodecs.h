#pragma once

#include <QByteArray>
#include <QString>

class QTextCodec;

/**
 * The text encodings the program offers and the detection of a file's.
 *
 * Codecs are addressed by index: 0 is "System", the locale's codec, and
 * index n is entry n - 1 of a table listed on first use and filled only as
 * far as it is read (one entry per codec, under its canonical name). The author's
 * chosen encoding ("default_codepage") is only a fallback: a confident
 * detection of the file's own encoding always wins over it.
 */

/// Lists the codec table anew; the other functions list it on first use.
void initCodecs();
/// The number of indices, "System" included.
int codecCount();
/// The display name at `index`: the translated "System" for 0, else the codec's name.
QString codecName(int index);
/// The index of the codec named `name` (any of its aliases), 0 when unknown.
int codecIndex(const char* name);
/// The codec for `data`: the detected one if detection is confident and the
/// codec exists, else the `wanted` index (0, or beyond the table, meaning
/// none), else the locale's.
QTextCodec* getCodec(const QByteArray& data, unsigned int wanted);
/// Decodes `data` with getCodec(); `used`, if given, receives the index of
/// the codec that decoded it, to save the text back the same way.
QString stringFromData(const QByteArray& data, int wanted, int* used);
/// Encodes `text` with the codec at `index` (the locale's for 0 or an unknown index).
QByteArray stringToData(const QString& text, int index);
