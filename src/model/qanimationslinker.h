#pragma once

#include "text/qtextelementchange.h"

#include <QList>
#include <QSet>

class QCollisionBoxes;
class QElementTextEditor;
class QTextElement;

/**
 * Keeps the links between the elements of an AIR document as the text has
 * them. A group header (an action, or any other bracket line) opens a
 * region that runs to the next header; every link stays inside a region:
 * - frames belong to the region's action, if its header is one;
 * - a declaration and an inter-frame line belong to the first frame below
 *   them; of two declarations of one type the nearer to the frame wins
 *   (as the engine reads them, each replacing the last), of two inter-frame
 *   lines of one type the first;
 * - a box line belongs to the nearest declaration above it.
 * After a change only the regions that hold a changed element are read
 * again, so the work follows the size of the change, not of the file, and
 * the links are always those a fresh reading of the text would make.
 */
class QAnimationsLinker
{
public:
    /// The regions that the changes touch, keyed by their header (null for
    /// the lines above the first header).
    static QSet<QTextElement*> touchedRegions(const QList<QTextElementChange>& changes);
    /// Links the elements of the region again. Declarations whose box list
    /// changed go into `renumber`, with the first box index that moved.
    static void relink(QElementTextEditor* editor, QTextElement* header,
                       QList<QPair<QCollisionBoxes*, int>>* renumber);
    /// Links every region of the document.
    static void relinkAll(QElementTextEditor* editor);
};
