#pragma once

#include <QFlags>
#include <QString>

/**
 * The one way a model asks the user something or tells of a fault.
 *
 * Models never open a dialog themselves: they call prompt(), and whoever
 * runs them decides how it is shown. The window installs a message-box
 * implementation, the command-line tool one that writes to standard error
 * and takes the default answer, tests one that records and answers as
 * scripted. Until something is installed, a silent prompt takes every
 * default, so a model is always safe to run.
 */
class QPrompt
{
public:
    enum Button {
        NoButton = 0,
        Ok = 0x1,
        Yes = 0x2,
        No = 0x4,
        Cancel = 0x8,
        Save = 0x10,
        Discard = 0x20,
    };
    Q_DECLARE_FLAGS(Buttons, Button)

    virtual ~QPrompt() = default;

    virtual void information(const QString& title, const QString& text) = 0;
    virtual void warning(const QString& title, const QString& text) = 0;
    virtual void critical(const QString& title, const QString& text) = 0;
    /// Asks with the given buttons; returns the one chosen, or defaultButton
    /// when nobody can answer.
    virtual Button question(const QString& title, const QString& text, Buttons buttons,
                            Button defaultButton) = 0;

    /// Makes prompt() return this object; the caller keeps ownership and must
    /// install another (or nullptr for the silent one) before deleting it.
    static void install(QPrompt* prompt);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(QPrompt::Buttons)

/// The prompt installed now.
QPrompt& prompt();
