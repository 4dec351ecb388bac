#pragma once

#include "qsyninfo.h"

#include <QString>
#include <QXmlStreamAttributes>

/**
 * Base of the vocabularies the syntax processors check against. A vocabulary
 * is read once from its XML file at start-up and shared, read-only, by every
 * processor until shutdown.
 */
class QSyntaxProperties
{
public:
    virtual ~QSyntaxProperties() = default;

    /// Reads the vocabulary; false (with the fault shown through the prompt)
    /// when the file can't be read or is not a syntax file.
    virtual bool fromFile(const QString& fileName) = 0;

    /// The description of one key from the attributes of its element: "type"
    /// ("max" for intn), "minver", "deprecated" ("1.0 (use X instead)": the
    /// version leads the text), "format" with "fmt_reg_exp", and "reg_exp".
    static QSynInfo getInfo(const QXmlStreamAttributes& attributes);
};
