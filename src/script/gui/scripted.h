#pragma once

#include <QModelIndex>
#include <QStringListModel>
#include <QWidget>

class QComboBox;
class QListView;
class QPlainTextEdit;
class QScript;
class QTextDocument;

/**
 * "Script Editor": writes and tries scripts. The category box chooses the
 * folder listed beside the text and how a run calls the script: Common runs
 * only the top level, Project calls template() on a scratch project, Code
 * snippet calls codeSnippet() and shows the text, the tools call main() on
 * the open project. What scripts print goes to "Message output", what they
 * give debugOutput() to "Text output (debug)".
 */
class ScriptEd : public QWidget
{
    Q_OBJECT
public:
    explicit ScriptEd(QWidget* parent);

    /// Adds the editor's own functions (debugOutput) to a script's state.
    void registerLib(QScript* script);
    QPlainTextEdit* editor() const { return m_editor; }
    QTextDocument* debugDocument() const;
    int category() const;

public slots:
    void sNew();
    void sOpen();
    void sSave();
    void sSaveAs();
    void sRun();
    void sTrans();
    void categChanged(int index);
    void currChanged(const QModelIndex& current, const QModelIndex& previous);
    void debugOutput(const QString& text);

private:
    void setFileName(const QString& fileName);
    bool writeScript(const QString& fileName);
    void runCategory(QScript& script);

    QComboBox* m_category;
    QListView* m_list;
    QStringListModel m_names;
    QPlainTextEdit* m_editor;
    QPlainTextEdit* m_debug;
    QString m_fileName;
};
