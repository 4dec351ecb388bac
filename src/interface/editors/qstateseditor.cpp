#include "qstateseditor.h"

#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QFileInfo>

int QStatesEditor::documentCount() const
{
    return project() ? project()->statesCount() : 0;
}

QTextDocument* QStatesEditor::documentAt(int index) const
{
    QSyntaxTextEditor* states = project() ? project()->states(index) : nullptr;
    return states ? states->document() : nullptr;
}

QString QStatesEditor::documentTitle(int index) const
{
    const QSyntaxTextEditor* states = project()->states(index);
    if (!states->fileName().isEmpty())
        return QFileInfo(states->fileName()).fileName();
    return states->title().isEmpty() ? tr("States %1").arg(index + 1) : states->title();
}

QProjectFile* QStatesEditor::projectFileAt(int index) const
{
    return project() ? project()->states(index) : nullptr;
}

QString QStatesEditor::panelNote() const
{
    if (documentCount() == 0)
        return tr("This project has no state files.");
    return tr("Faults are checked as you type; the error icon in the status bar counts them.");
}
