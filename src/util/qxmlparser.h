#pragma once

#include <QXmlStreamReader>

/**
 * QXmlStreamReader with the program's way of starting a document and of
 * reporting its faults. Every XML file the program reads (configuration,
 * shortcuts, history, syntax) reports a fault the same way, through the
 * prompt, titled "XML Error", and keeps what it read before the fault.
 */
class QXmlParser : public QXmlStreamReader
{
public:
    explicit QXmlParser(QIODevice* device);

    /// Reads up to the root element; false when the document's root has
    /// another name or the document ends first.
    bool start(const QString& rootName);

    /// The fault as one line: "<error> on '<file>' at line, <n>, column <n>".
    QString errorText() const;

    /// Shows errorText() through the prompt when the reader has a fault.
    /// Returns true when there was one.
    bool notifyError();
};
