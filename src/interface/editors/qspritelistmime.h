#pragma once

#include "model/qsubitem.h"

#include <QList>

class QMimeData;

/**
 * The drag format of sprites between the editors: a list of group,index
 * pairs, one "group,index" a line, under its own mime type. The sprites
 * table offers it, the frames table takes it and appends a frame of each.
 * Plain text goes along, so the pairs can be dropped into a text too.
 */
namespace QSpriteListMime {

/// "application/x-pugilforge-sprites"
extern const char* const mimeType;

/// New mime data (the caller owns it) holding `sprites` in order.
QMimeData* encode(const QList<QSubItem>& sprites);
/// The pairs of mime data of that type, in order; empty for other data
/// and lines that are no pair.
QList<QSubItem> decode(const QMimeData* data);

} // namespace QSpriteListMime
