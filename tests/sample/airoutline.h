#pragma once

#include <QList>
#include <QString>

/**
 * Just enough of an AIR file for checking a character against its sprites:
 * each action's frames with the sprite they show and how many collision
 * boxes of each kind are in force on them, as the engine applies them
 * (a ClsnNDefault holds for the rest of the action, a ClsnN for the next
 * frame only).
 */
struct AirOutline
{
    struct Frame
    {
        int group = 0;
        int index = 0;
        int line = 0;      ///< from 1
        int hitBoxes = 0;  ///< Clsn1
        int hurtBoxes = 0; ///< Clsn2
    };
    struct Action
    {
        int number = 0;
        QList<Frame> frames;
    };

    QList<Action> actions;

    static AirOutline read(const QString& path);
    const Action* find(int number) const;
};
