#include "qsyntaxprocessor.h"

#include <QTextDocument>

QSyntaxProcessor::QSyntaxProcessor(QTextDocument* document)
    : QSyntaxHighlighter(document)
{
}

void QSyntaxProcessor::setVersion(unsigned int version)
{
    m_version = version;
    versionChanged();
}

void QSyntaxProcessor::versionChanged()
{
    rehighlight();
}

int QSyntaxProcessor::errorCount() const
{
    int errors = 0;
    if (!document())
        return 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (const QTextEditorBlockData* data = blockData(block.userData())) {
            for (const QSynMsg& msg : data->messages)
                errors += msg.isError() ? 1 : 0;
        }
    }
    return errors;
}

QTextEditorBlockData* QSyntaxProcessor::blockData(QTextBlockUserData* data)
{
    return static_cast<QTextEditorBlockData*>(data);
}

QTextEditorBlockData* QSyntaxProcessor::initializeBlockData()
{
    QTextEditorBlockData* data = blockData(currentBlockUserData());
    if (!data) {
        data = new QTextEditorBlockData;
        setCurrentBlockUserData(data);
    }
    return data;
}
