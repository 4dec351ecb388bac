#pragma once

#include <QByteArray>
#include <QString>

class QTextCodec;

/**
 * Reading the engine's text files from bytes.
 *
 * Authors write these files in any encoding, and the encoding is guessed.
 * The characters that give a line its shape ("[", "]", "=", ";", ",") are
 * ASCII in every encoding the engine's authors use, and the engine reads
 * them as bytes; so a wrong guess must not turn them into something else.
 */

/// False for data that is no text of the engine: a NUL byte, or more than a
/// few control characters (sprites, sounds, archives given by mistake).
bool isEngineText(const QByteArray& data);

/// Decodes `data` as stringFromData() does (`wanted` and `used` alike), but
/// with a double-byte encoding (Shift-JIS, GBK, Big5, EUC, UHC) it reads the
/// bracket that closes a header apart from the text before it: a byte that
/// the guessed encoding takes for the first half of a character would
/// otherwise swallow the "]" that follows it.
QString decodeEngineText(const QByteArray& data, int wanted, int* used);
/// The same with the encoding already chosen.
QString decodeEngineText(const QByteArray& data, const QTextCodec* codec);
