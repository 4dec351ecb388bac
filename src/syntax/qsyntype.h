#pragma once

#include <QString>

/**
 * The value type of one key of the engine's vocabulary, as the attribute
 * "type" of the syntax file spells it. The numbers are stored in the syntax
 * tables and never written anywhere, but keep their order: the checker's
 * value shapes are indexed by them.
 */
enum QSynType {
    stInt = 0,
    stInt2,
    stInt3,
    stIntN,
    stIntFloat3,
    stIntFloat3Opt,
    stFloat,
    stFloat2,
    stFloat2Opt,
    stFloat3,
    stExp,
    stExp2,
    stExp2Value,
    stExp3,
    stExp4,
    stExpN,
    stExp2Opt,
    stExp3Nil,
    stString,
    stStrExp,
    stStrExp2,
    stStrExp2Nil,
    stExpStr,
    stExpStrExp2,
    stValue,
    stUnknown = 33,
};

/// The type named by a "type" attribute ("int", "exp2opt", ...), or stUnknown.
QSynType synTypeFromName(const QString& name);
