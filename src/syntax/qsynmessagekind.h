#pragma once

#include <QString>
#include <QStringList>

/**
 * Every kind of finding the checker of the engine's text files can give.
 *
 * Each kind has one class, chosen by what the engine does with the line:
 * an error where the engine refuses to load the file, a warning where it
 * ignores the text or guesses at it, a deprecation where it still takes what
 * a later version advises against. "syntax_messages.tsv" beside the program
 * states the same for authors; a test keeps that list and this table in step.
 */
enum class QSynMessageKind {
    // Errors.
    UnexpectedToken,
    UnknownTrigger,
    UnknownConstant,
    UnknownValue,
    TriggerTooNew,
    ControllerTooNew,
    UnknownParameterValue,
    InvalidGroup,
    WrongState,
    SpaceAfterState,
    WrongStatedef,
    CodeEndsBeforeLine,
    UnknownStateType,
    UnknownStatedefType,
    UnknownStatedefMovetype,
    UnknownStatedefPhysics,
    UnknownInterpolation,
    UnknownFlip,
    UnknownTransparency,
    UnknownCommandParameter,
    UnknownCommandKey,
    UnknownRemapValue,
    UnknownBgType,
    UnknownBgCtrlType,
    MissingFile,
    MissingParameter,
    // Warnings.
    UnknownDefaultsParameter,
    UnknownRemapParameter,
    UnknownKeymapParameter,
    UnknownQuotesParameter,
    UnknownInfoParameter,
    ValueCount,
    IgnoredParameter,
    IgnoredParameterNear,
    IgnoredStatedefParameter,
    ParameterTooNew,
    ReadByLetter,
    BackslashInName,
    CaseDiffers,
    // Deprecations.
    TriggerDeprecated,
    ParameterDeprecated,
    ControllerDeprecated,
};

/// The class of a finding, as QSynMsg::type holds it.
enum QSynMessageClass { smcError = 0, smcWarning = 1, smcDeprecation = 2 };

struct QSynMessageInfo
{
    QSynMessageKind kind;
    QSynMessageClass type;
    const char* text; ///< untranslated; "%1".. are filled by the caller, "%n" is a count
};

/// The whole table, in the order of QSynMessageKind.
const QSynMessageInfo* synMessageInfos(int* count);
const QSynMessageInfo& synMessageInfo(QSynMessageKind kind);
/// The translated text of a kind with its arguments filled in; `count`
/// fills "%n" where the text has one.
QString synMessageText(QSynMessageKind kind, const QStringList& arguments = {}, int count = -1);
/// "error", "warning" or "deprecation".
QString synMessageClassName(int type);
