#pragma once

// Stepping from group to group through a list of sprites or palettes, in
// list order, whatever the sort.

#include <QtGlobal>

/// Position of the first item after `position` whose group differs from the
/// group at `position`; 0 when there is none. `groupAt(i)` gives the group at i.
template<typename GroupAt>
int nextGroupPosition(int count, int position, GroupAt groupAt)
{
    if (position < 0 || position >= count)
        return 0;
    const qint32 group = groupAt(position);
    for (int i = position + 1; i < count; ++i)
        if (groupAt(i) != group)
            return i;
    return 0;
}

/// Position of the first item of the run of the group that stands before the
/// run of `position`; 0 when there is none.
template<typename GroupAt>
int previousGroupPosition(int count, int position, GroupAt groupAt)
{
    if (position < 0 || position >= count)
        return 0;
    const qint32 group = groupAt(position);
    int i = position - 1;
    while (i >= 0 && groupAt(i) == group)
        --i;
    if (i < 0)
        return 0;
    const qint32 previous = groupAt(i);
    while (i > 0 && groupAt(i - 1) == previous)
        --i;
    return i;
}
