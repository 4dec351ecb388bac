#pragma once

#include "text/qtexteditorblockdata.h"

#include <QSyntaxHighlighter>

/**
 * Base of the processors that colour and check a text document line by line
 * for one engine version. Each line's findings are kept in its
 * QTextEditorBlockData; setVersion() re-checks the whole document, so that a
 * finding comes or goes with the version alone.
 */
class QSyntaxProcessor : public QSyntaxHighlighter
{
    Q_OBJECT
public:
    explicit QSyntaxProcessor(QTextDocument* document);

    unsigned int version() const { return m_version; }
    /// Stores the packed engine version and calls versionChanged().
    void setVersion(unsigned int version);

    /// The errors (not warnings) of the whole document.
    int errorCount() const;

    static QTextEditorBlockData* blockData(QTextBlockUserData* data);

protected:
    /// Re-highlights the whole document.
    virtual void versionChanged();
    /// The current block's data, made on its first pass and kept.
    QTextEditorBlockData* initializeBlockData();

private:
    unsigned int m_version = 0;
};
