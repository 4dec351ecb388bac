#pragma once

#include "qtextdocumenteditor.h"

/**
 * The text of the project's DEF, the file that says what the project is.
 * The files it names are links: Ctrl+click on a name opens the editor of
 * that file (the state file itself among several).
 */
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
    /// The key of a [Files] line ("sprite", "st2"...) when the cursor is on its file name.
    QString linkAt(const QTextCursor& cursor) const override;
    void openLink(const QString& key) override;
};
