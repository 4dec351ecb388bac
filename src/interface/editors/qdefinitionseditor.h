#pragma once

#include "qtextdocumenteditor.h"

/// The text of the project's DEF, the file that says what the project is.
class QDefinitionsEditor : public QTextDocumentEditor
{
    Q_OBJECT
public:
    using QTextDocumentEditor::QTextDocumentEditor;

    QInterfaceEditors id() const override { return ieDefinitions; }
    QString iconName() const override { return QStringLiteral("editor_def"); }
    QString name() const override { return QStringLiteral("definitions"); }
    QString title() const override { return tr("Definitions"); }
    int file() const override { return 0; }
    unsigned int projectTypes() const override { return 0xFF; }

protected:
    int documentCount() const override;
    QTextDocument* documentAt(int index) const override;
    QString documentTitle(int index) const override;
    QProjectFile* projectFileAt(int index) const override;
    QString panelNote() const override;
    void retranslate() override { refreshList(); }
};
