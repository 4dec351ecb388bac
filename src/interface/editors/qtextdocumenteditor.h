#pragma once

#include "interface/qinterfaceeditor.h"

#include <QHash>
#include <QPointer>
#include <QTimer>

class QLabel;
class QListWidget;
class QProjectFile;
class QTextDocument;
class QTextOutline;
class QTextUndoStack;
class QTextWorkspace;

/**
 * Base of the editors of text files: they show one of their documents in
 * the text workspace and list all of them on their page of the left panel.
 * Each document has its own undo stack. A document that is a project file is
 * checked a moment after the author stops typing, so the window's error
 * count follows the text.
 */
class QTextDocumentEditor : public QInterfaceEditor
{
    Q_OBJECT
public:
    /// Milliseconds of quiet typing before the document is checked.
    static constexpr int checkDelay = 300;

    explicit QTextDocumentEditor(QTextWorkspace* workspace, QObject* parent = nullptr);

    int areas() const override { return ExtraToolBar | LeftPanel; }
    int workspace() const override { return 0; }
    bool isModified() const override;

    void initialized(QToolBarItems* items, QWidget* leftPage) override;
    void activate(bool switched) override;
    void deactivate() override;
    void setProject(QProject* project) override;
    void navigateTo(int fileIndex, int index, int line) override;
    void save() override;
    QUndoStack* undoStack() const override;
    void cut() override;
    void copy() override;
    void paste() override;

    /// The document shown now; -1 when there is none.
    int currentDocument() const { return m_current; }
    void showDocument(int index);

protected:
    virtual int documentCount() const = 0;
    virtual QTextDocument* documentAt(int index) const = 0;
    virtual QString documentTitle(int index) const = 0;
    /// The project file behind a document; null for a document shown read-only.
    virtual QProjectFile* projectFileAt(int index) const { return nullptr; }
    /// Rich text shown under the list of documents: what the author should
    /// know about them. Empty hides it.
    virtual QString panelNote() const { return QString(); }
    /// Rebuilds the list of documents (after the project or its files changed).
    void refreshList();

    QProject* project() const { return m_project; }

private:
    void documentEdited();
    void checkCurrent();
    QTextUndoStack* stackOf(QTextDocument* document) const;

    QTextWorkspace* m_workspace;
    QProject* m_project = nullptr;
    QListWidget* m_list = nullptr;
    QTextOutline* m_outline = nullptr;
    QLabel* m_note = nullptr;
    int m_current = -1;
    QPointer<QTextDocument> m_shown;
    mutable QHash<QTextDocument*, QTextUndoStack*> m_stacks;
    QTimer m_checkTimer;
};
