#pragma once

#include "interface/qinterfaceeditor.h"

#include <QHash>
#include <QPointer>
#include <QTimer>

class QAction;
class QLabel;
class QMenu;
class QListWidget;
class QProjectFile;
class QTextDocument;
class QTextCursor;
class QTextOutline;
class QTextUndoStack;
class QTextWorkspace;
class QToolBarItems;

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
    void find(FindCommand command) override;

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
    /// The kind of snippets its texts take ("states", "commands"); empty offers none.
    virtual QString snippetKind() const { return QString(); }
    /// What the place of the shown text links to (a key the editor understands); empty for nothing.
    virtual QString linkAt(const QTextCursor&) const { return QString(); }
    /// Follows a link that linkAt() gave, Ctrl+clicked by the author.
    virtual void openLink(const QString&) {}
    /// Whether the files show as tabs over the text even when there is only one.
    virtual bool alwaysTabs() const { return false; }
    /// Rebuilds the list of documents (after the project or its files changed).
    void refreshList();
    QTextWorkspace* textWorkspace() const { return m_workspace; }
    /// An action of the editor's tool bar, in the window's list of actions
    /// (so named for its icon and its keys); `text` is untranslated, context "QActionManager".
    QAction* addToolAction(QToolBarItems* items, const QString& name, const char* text);

    QProject* project() const { return m_project; }

private:
    void refreshTabs();
    /// Fills a tool-bar action's menu with the snippets (and controllers) the shown text takes.
    void fillInsertMenu(QMenu* menu, bool controllers);
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
    QMetaObject::Connection m_tabsConnection; ///< while the editor is in front
    QMetaObject::Connection m_linkConnection; ///< likewise
};
