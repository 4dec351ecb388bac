#pragma once

#include "qtextdocumenteditor.h"

#include <QTimer>

class QListWidget;

/**
 * The CMD of a character: its text, and beside it the list of its
 * `[Command]` groups, each with its name and its key sequence drawn as key
 * images. The list follows the text a moment after the author stops typing;
 * clicking a command takes the text to it.
 */
class QCommandsEditor : public QTextDocumentEditor
{
    Q_OBJECT
public:
    static constexpr int keyHeight = 20;

    explicit QCommandsEditor(QTextWorkspace* workspace, QObject* parent = nullptr);

    QInterfaceEditors id() const override { return ieCommands; }
    QString iconName() const override { return QStringLiteral("editor_cmd"); }
    QString name() const override { return QStringLiteral("commands"); }
    QString title() const override { return tr("Commands"); }
    int areas() const override { return ExtraToolBar | LeftPanel | TextBar; }
    int file() const override { return 3; }
    unsigned int projectTypes() const override { return 2; }

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void setProject(QProject* project) override;
    void activate(bool switched) override;

    QListWidget* commandList() const { return m_commands; }
    /// Lists the commands of the text as it stands now.
    void refreshCommands();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    int documentCount() const override;
    QTextDocument* documentAt(int index) const override;
    QString documentTitle(int index) const override;
    QProjectFile* projectFileAt(int index) const override;
    QString panelNote() const override;
    QString snippetKind() const override { return QStringLiteral("commands"); }

private:
    QListWidget* m_commands = nullptr;
    QTimer m_refresh;
};
