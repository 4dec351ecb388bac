#include "qtextundostack.h"

#include <QCoreApplication>
#include <QTextDocument>

namespace {

/// One undo step of the document: the first redo() is the edit already made.
class QTextStepCommand : public QUndoCommand
{
public:
    explicit QTextStepCommand(QTextDocument* document)
        : m_document(document)
    {
        setText(QCoreApplication::translate("QTextUndoStack", "Typing"));
    }

    void undo() override { m_document->undo(); }
    void redo() override
    {
        if (m_done)
            m_document->redo();
        m_done = true;
    }

private:
    QTextDocument* m_document;
    bool m_done = false;
};

} // namespace

QTextUndoStack::QTextUndoStack(QTextDocument* document, QObject* parent)
    : QUndoStack(parent)
    , m_document(document)
{
    connect(document, &QTextDocument::undoCommandAdded, this, [this]() { push(new QTextStepCommand(m_document)); });
    connect(document, &QTextDocument::modificationChanged, this, [this](bool modified) {
        if (!modified)
            setClean();
    });
}
