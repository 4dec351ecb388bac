#include "qsynmessagekind.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

using K = QSynMessageKind;

// The engine refuses a file for what is an error here; what it skips or
// reads its own way is a warning, so that a list of findings on a character
// the engine runs holds no error at all.
const QSynMessageInfo table[] = {
    {K::UnexpectedToken, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unexpected token '%1'")},
    {K::UnknownTrigger, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown trigger '%1'")},
    {K::UnknownConstant, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown constant '%1'")},
    {K::UnknownValue, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown value")},
    {K::TriggerTooNew, smcError,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Trigger invalid for the M.U.G.E.N. version of the current project")},
    {K::ControllerTooNew, smcError,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor",
                       "Controller invalid for the M.U.G.E.N. version of the current project")},
    {K::UnknownParameterValue, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown parameter value '%1'")},
    {K::InvalidGroup, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Invalid group")},
    {K::WrongState, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Wrong State")},
    {K::SpaceAfterState, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Space required after State")},
    {K::WrongStatedef, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Wrong StateDef")},
    {K::CodeEndsBeforeLine, smcError,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Syntax error - code ends before line")},
    {K::UnknownStateType, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'State' type")},
    {K::UnknownStatedefType, smcError,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'StateDef type' value '%1'")},
    {K::UnknownStatedefMovetype, smcError,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'StateDef movetype' value '%1'")},
    {K::UnknownStatedefPhysics, smcError,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'StateDef physics' value '%1'")},
    {K::UnknownInterpolation, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown interpolation")},
    {K::UnknownFlip, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown flip type")},
    {K::UnknownTransparency, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown transparency")},
    {K::UnknownCommandParameter, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'Command' parameter")},
    {K::UnknownCommandKey, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown command key")},
    {K::UnknownRemapValue, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'Remap' value")},
    {K::UnknownBgType, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'BG' type")},
    {K::UnknownBgCtrlType, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'BG Ctrl' type")},
    {K::MissingFile, smcError, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "'%1' named by the DEF does not exist")},
    {K::MissingParameter, smcError,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Missing parameter '%1' that the '%2' controller requires")},
    // The engine skips a key its group doesn't know.
    {K::UnknownDefaultsParameter, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'Defaults' parameter")},
    {K::UnknownRemapParameter, smcWarning, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'Remap' parameter")},
    {K::UnknownKeymapParameter, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'Palette Keymap' parameter")},
    {K::UnknownQuotesParameter, smcWarning, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'Quotes' parameter")},
    // The doubled quote is the message as authors know it.
    {K::UnknownInfoParameter, smcWarning, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'Info'' parameter")},
    {K::ValueCount, smcWarning, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "This parameter requires %n value(s)")},
    {K::IgnoredParameter, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown parameter '%1' for the '%2' controller, ignored by the engine")},
    {K::IgnoredParameterNear, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor",
                       "Unknown parameter '%1' for the '%2' controller, ignored by the engine: did you mean '%3'?")},
    {K::IgnoredStatedefParameter, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Unknown 'StateDef' parameter '%1', ignored by the engine")},
    {K::ParameterTooNew, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor",
                       "Parameter invalid for the M.U.G.E.N. version of the current project, ignored by the engine")},
    {K::ReadByLetter, smcWarning, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "'%1' is read by the engine as '%2'")},
    {K::BackslashInName, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor",
                       "'%1' separates folders with '\\', which only Windows reads as a separator")},
    {K::CaseDiffers, smcWarning,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor",
                       "'%1' is on disk as '%2': only a system that ignores letter case finds it")},
    {K::TriggerDeprecated, smcDeprecation, QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Trigger deprecated in the M.U.G.E.N %1")},
    {K::ParameterDeprecated, smcDeprecation,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "Parameter deprecated in the M.U.G.E.N %1")},
    {K::ControllerDeprecated, smcDeprecation,
     QT_TRANSLATE_NOOP("QMugenSyntaxProcessor", "State controller deprecated in the M.U.G.E.N %1")},
};

constexpr int tableSize = int(sizeof(table) / sizeof(table[0]));
static_assert(tableSize == int(QSynMessageKind::ControllerDeprecated) + 1, "one row per message kind");

} // namespace

const QSynMessageInfo* synMessageInfos(int* count)
{
    if (count)
        *count = tableSize;
    return table;
}

const QSynMessageInfo& synMessageInfo(QSynMessageKind kind)
{
    return table[int(kind)];
}

QString synMessageText(QSynMessageKind kind, const QStringList& arguments, int count)
{
    const QString text = QCoreApplication::translate("QMugenSyntaxProcessor", synMessageInfo(kind).text, nullptr, count);
    // One pass over all arguments, so that a "%1" in an author's text stays as written.
    switch (arguments.size()) {
    case 0: return text;
    case 1: return text.arg(arguments.at(0));
    case 2: return text.arg(arguments.at(0), arguments.at(1));
    default: return text.arg(arguments.at(0), arguments.at(1), arguments.at(2));
    }
}

QString synMessageClassName(int type)
{
    return type == smcError ? QStringLiteral("error") : type == smcDeprecation ? QStringLiteral("deprecation")
                                                                                 : QStringLiteral("warning");
}
