#pragma once

#include "qsyntype.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>

/**
 * What the vocabulary says about one key: its value type, how its name is
 * matched, the engine versions for which it holds, and the pattern its values
 * (or, for the regexp kind, its name) must match. A default QSynInfo is of
 * unknown type.
 */
struct QSynInfo
{
    /// How a key's name is compared with what the author wrote.
    enum Format {
        fmtName,   ///< the name itself, ignoring case
        fmtFunc,   ///< the name followed by a parenthesised expression
        fmtRegExp, ///< the whole key matches `nameRegExp`, ignoring case
    };

    QSynType type = stUnknown;
    Format format = fmtName;
    unsigned int minVersion = 0;        ///< lowest engine version; 0 is the Beta
    QString deprecated;                 ///< the deprecation text, empty when none
    unsigned int deprecatedVersion = 0; ///< meaningful only with a text
    QRegularExpression valueRegExp;     ///< words a value may be, matched whole; invalid when none
    QRegularExpression nameRegExp;      ///< the key's pattern for fmtRegExp
    int max = 0;                        ///< how many values "intn" takes at most
    bool required = false;              ///< a controller's parameter without which the engine refuses it
    /// For a value the engine reads by its first letter: the words it stands
    /// for, the first word of each letter being what the engine makes of it.
    QStringList letterWords;

    bool isDeprecated() const { return !deprecated.isEmpty(); }
    bool hasValueRegExp() const { return valueRegExp.isValid() && !valueRegExp.pattern().isEmpty(); }
    /// True when `word` is one of the words the value pattern allows.
    bool valueMatches(const QString& word) const;

    /// A case-insensitive pattern matched against a whole text.
    static QRegularExpression wholeRegExp(const QString& pattern);
};
