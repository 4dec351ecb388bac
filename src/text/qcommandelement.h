#pragma once

#include <QString>
#include <QStringView>
#include <QtGlobal>

/**
 * One step of a command sequence ("~30D", "DF", "a+b", "/$F"): the keys it
 * names as a bit mask, its modifier flags and the time that `~` gave.
 * Direction and button names compare case-sensitively, as the engine does.
 */
struct QCommandElement
{
    enum Key : quint32 {
        KeyU = 0x1,
        KeyD = 0x2,
        KeyB = 0x4,
        KeyF = 0x8,
        ButtonA = 0x10,
        ButtonB = 0x20,
        ButtonC = 0x40,
        ButtonX = 0x80,
        ButtonY = 0x100,
        ButtonZ = 0x200,
        ButtonS = 0x400
    };
    enum Flag : quint16 {
        FlagHold = 1, ///< "/"
        FlagRelease = 2, ///< "~"
        FlagDirection = 4, ///< "$"
        FlagOnly = 8 ///< ">"
    };

    quint32 keys = 0;
    quint16 flags = 0;
    quint16 time = 0;

    /// The mask of a direction or button name ("DF" is 10), 0 for unknown names.
    static quint32 keyMask(QStringView name);

    /// The element as the file spells it: flags ("/" with the time behind it,
    /// "~", "$", ">"), then U, D, B, F, then the buttons joined by "+".
    QString toString() const;

    bool operator==(const QCommandElement& other) const
    {
        return keys == other.keys && flags == other.flags && time == other.time;
    }
};
