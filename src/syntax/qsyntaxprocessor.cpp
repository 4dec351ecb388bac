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
        if (const QSyntaxBlockData* data = blockData(block.userData())) {
            for (const QSynMsg& msg : data->messages)
                errors += msg.isError() ? 1 : 0;
        }
    }
    return errors;
}

QSyntaxBlockData* QSyntaxProcessor::blockData(QTextBlockUserData* data)
{
    return static_cast<QSyntaxBlockData*>(data);
}

QSyntaxBlockData* QSyntaxProcessor::initializeBlockData()
{
    QSyntaxBlockData* data = blockData(currentBlockUserData());
    if (!data) {
        data = new QSyntaxBlockData;
        setCurrentBlockUserData(data);
    }
    return data;
}
