#pragma once

#include "text/qparamgroup.h"

/**
 * One `[Command]` group of a CMD file: its name (the `name` parameter), the
 * comment that names the group in the text, and its key sequence (the
 * `command` parameter, a QCommandParam). It follows its lines as every
 * group does; QCommands keeps the list of them.
 */
class QCommand : public QParamGroup
{
public:
    static constexpr QTextElementType commandGroupType = 0x1000;
    static constexpr QGroupParamID idName = 1;
    static constexpr QGroupParamID idCommand = 31;

    QTextElementType groupType() const override { return commandGroupType; }
    void update(const QList<QTextToken>&) override { }

    /// The `name` value, or with `comment` the text of the naming comment.
    QString name(bool comment) const;
    /**
     * Writes the `name` value (quoted) when the group has that line, or with
     * `comment` the naming comment: inserted above the header, rewritten, or
     * removed for an empty text.
     */
    void setName(const QString& text, bool comment);
    /// The number of steps of the key sequence as the engine counts them; 0 without one.
    int length() const;
};
