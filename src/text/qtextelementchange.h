#pragma once

class QTextElement;

/**
 * One entry of the report an editor gives after an edit: an element that
 * was removed, added or updated. A removed element is still readable (and
 * still linked, though no longer valid) while the report is handled; it
 * returns to its pool right after.
 */
struct QTextElementChange
{
    enum Kind { Removed = 0, Added = 1, Updated = 2 };

    Kind kind;
    QTextElement* element;
};
