#pragma once

#include "qtextdocumenteditor.h"

/// The state files of a character (CNS and ST), in the DEF's order.
class QStatesEditor : public QTextDocumentEditor
{
    Q_OBJECT
public:
    using QTextDocumentEditor::QTextDocumentEditor;

    QInterfaceEditors id() const override { return ieStates; }
    QString iconName() const override { return QStringLiteral("editor_st"); }
    QString name() const override { return QStringLiteral("states"); }
    QString title() const override { return tr("States"); }
    int areas() const override { return ExtraToolBar | LeftPanel | TextBar; }
    int file() const override { return 4; }
    unsigned int projectTypes() const override { return 2; }

protected:
    int documentCount() const override;
    QTextDocument* documentAt(int index) const override;
    QString documentTitle(int index) const override;
    QProjectFile* projectFileAt(int index) const override;
    QString panelNote() const override;
};
