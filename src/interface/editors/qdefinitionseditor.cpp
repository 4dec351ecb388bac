#include "qdefinitionseditor.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"

#include <QFileInfo>

int QDefinitionsEditor::documentCount() const
{
    return project() ? 1 : 0;
}

QTextDocument* QDefinitionsEditor::documentAt(int index) const
{
    return index == 0 && project() ? project()->definitions()->document() : nullptr;
}

QString QDefinitionsEditor::documentTitle(int) const
{
    const QString file = project()->definitions()->fileName();
    return file.isEmpty() ? tr("(new definitions)") : QFileInfo(file).fileName();
}

QProjectFile* QDefinitionsEditor::projectFileAt(int index) const
{
    return index == 0 && project() ? project()->definitions() : nullptr;
}
