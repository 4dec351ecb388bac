#pragma once

#include <QString>

#include <functional>

class QObject;
struct lua_State;

/**
 * One short-lived Lua state with the whole scripting API bound. Nothing is
 * kept between runs: each run builds a new state and throws it away with
 * this object, so a failed script leaves nothing behind but what it did to
 * the models.
 *
 * Loading and running throw std::runtime_error (load and top-level faults)
 * or luabind::error (faults in an entry point called through luabind);
 * errorMessage() then reads the Lua side of the fault. A count hook stops a
 * script that runs away with "Script stopped: too long".
 */
class QScript
{
public:
    /// Instructions a script may run before the hook stops it.
    static constexpr long long defaultInstructionLimit = 200000000;
    static const char* const tooLongMessage;

    QScript();
    ~QScript();
    QScript(const QScript&) = delete;
    QScript& operator=(const QScript&) = delete;

    lua_State* state() const { return m_state; }
    /// The parent of the signal connections the script makes; they go before the state.
    QObject* slotParent() const { return m_slots; }

    /// Runs the top level of scripts directory + "/" + name + ".lua", with `_SCRIPT` set to name.
    void fromFile(const QString& relativeName);
    /// Runs the top level of `text`.
    void fromString(const QString& text);
    /// The string at the top of the Lua stack, where a fault leaves its text.
    QString errorMessage() const;
    /// What an error box shows for a caught exception: its text and the Lua side's.
    QString describe(const std::exception& error) const;

    void setInstructionLimit(long long limit);
    long long instructionLimit() const { return m_limit; }
    /// Gives the script a whole budget of instructions again (each call of an
    /// entry point or a slot is a run of its own).
    void resetCount();

    /// Binds the program's models and the helpers on the state (done by the constructor).
    void registerBindings();

    /// The script whose state this is, or null.
    static QScript* of(lua_State* state);

    /// Where faults that no caller sees go (a slot's error raised from inside
    /// a Qt signal); the window installs a message box. The default adds an
    /// error to the script messages.
    using Reporter = std::function<void(const QString& title, const QString& text)>;
    static void setReporter(Reporter reporter);
    static void report(const QString& title, const QString& text);

    /// Registrations that live outside the core (the dialog layer of the
    /// window): run on every new state after the core's own.
    using Binder = std::function<void(lua_State*)>;
    static void setExtraBindings(Binder binder);

private:
    void run(int loadResult);
    void guardProtectedCalls();
    static void countHook(lua_State* state, struct lua_Debug* debug);

    lua_State* m_state = nullptr;
    QObject* m_slots = nullptr;
    long long m_limit = defaultInstructionLimit;
    long long m_used = 0;
};
