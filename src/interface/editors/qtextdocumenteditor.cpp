#include "qtextdocumenteditor.h"

#include "interface/dialogs/finddlgmlt.h"
#include "interface/qinterface.h"
#include "interface/qquickfind.h"
#include "interface/workspaces/qtextoutline.h"
#include "interface/workspaces/qtextundostack.h"
#include "interface/workspaces/qtextview.h"
#include "interface/workspaces/qtextworkspace.h"
#include "managers/gui/qtoolbaritems.h"
#include "managers/qactionmanager.h"
#include "managers/qsctrlmanager.h"
#include "managers/qsnippetmanager.h"
#include "model/qprojectfile.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QAction>
#include <QCursor>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QVBoxLayout>

QTextDocumentEditor::QTextDocumentEditor(QTextWorkspace* workspace, QObject* parent)
    : QInterfaceEditor(parent)
    , m_workspace(workspace)
{
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(checkDelay);
    connect(&m_checkTimer, &QTimer::timeout, this, &QTextDocumentEditor::checkCurrent);
}

QAction* QTextDocumentEditor::addToolAction(QToolBarItems* items, const QString& name, const char* text)
{
    QAction* action = intf->actions()->add({int(id())}, name, text);
    items->addAction(action);
    return action;
}

void QTextDocumentEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    if (intf && items && !snippetKind().isEmpty()) {
        // The snippets and the controller templates, each a menu on the tool bar.
        for (const bool controllers : {false, true}) {
            QAction* insert = controllers
                ? addToolAction(items, name() + QStringLiteral("_controller"), QT_TRANSLATE_NOOP("QActionManager", "Insert controller"))
                : addToolAction(items, name() + QStringLiteral("_snippet"), QT_TRANSLATE_NOOP("QActionManager", "Insert snippet"));
            auto* menu = new QMenu;
            menu->setObjectName(insert->objectName() + QStringLiteral("Menu"));
            connect(this, &QObject::destroyed, menu, &QObject::deleteLater);
            connect(menu, &QMenu::aboutToShow, this, [this, menu, controllers] { fillInsertMenu(menu, controllers); });
            insert->setMenu(menu);
            connect(insert, &QAction::triggered, menu, [menu] { menu->popup(QCursor::pos()); });
        }
    }

    auto* layout = new QVBoxLayout(leftPage);
    layout->setContentsMargins(4, 4, 4, 4);
    m_list = new QListWidget(leftPage);
    m_list->setObjectName(name() + QStringLiteral("Files"));
    m_list->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_list->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    layout->addWidget(m_list);
    m_note = new QLabel(leftPage);
    m_note->setObjectName(QStringLiteral("panelNote"));
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::RichText);
    m_note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(m_note);
    connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) {
        if (isActive() && row != m_current)
            showDocument(row);
    });
    m_outline = new QTextOutline(leftPage);
    m_outline->setObjectName(name() + QStringLiteral("Outline"));
    // The outline takes the height the note leaves: no empty band between them.
    layout->addWidget(m_outline, 1);
    connect(m_outline, &QTextOutline::lineActivated, this, [this](int line) { navigateTo(m_current, 0, line); });
}

bool QTextDocumentEditor::isModified() const
{
    for (int i = 0; i < documentCount(); ++i) {
        if (documentAt(i) && documentAt(i)->isModified())
            return true;
    }
    return false;
}

void QTextDocumentEditor::setProject(QProject* project)
{
    // The view may still hold a document of the project going away, even
    // while another editor is in front: it must not outlive it there.
    if (m_shown && m_workspace->view()->document() == m_shown)
        m_workspace->view()->showDocument(nullptr, true);
    if (m_shown)
        disconnect(m_shown, nullptr, this, nullptr);
    m_shown = nullptr;
    m_project = project;
    m_current = documentCount() > 0 ? 0 : -1;
    // Every document keeps its steps for the window's Undo from the start:
    // a tool or the throw creator may edit one the author never showed.
    for (int i = 0; i < documentCount(); ++i) {
        if (QTextDocument* document = documentAt(i))
            stackOf(document);
    }
    refreshList();
}

void QTextDocumentEditor::refreshList()
{
    if (!m_list)
        return;
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (int i = 0; i < documentCount(); ++i)
        m_list->addItem(documentTitle(i));
    if (m_current >= documentCount())
        m_current = documentCount() - 1;
    m_list->setCurrentRow(m_current);
    // The list takes the room of its rows, the note the rest.
    const int rows = qMax(1, qMin(documentCount(), 12));
    m_list->setFixedHeight(rows * qMax(18, m_list->sizeHintForRow(0)) + 2 * m_list->frameWidth() + 4);
    m_list->setVisible(!alwaysTabs()); // the tabs over the text list the files then
    m_note->setText(panelNote());
    m_note->setVisible(!m_note->text().isEmpty());
    refreshTabs();
}

void QTextDocumentEditor::fillInsertMenu(QMenu* menu, bool controllers)
{
    menu->clear();
    QTextView* view = m_workspace->view();
    const bool editable = m_shown && !view->isReadOnly();
    if (controllers) {
        if (!sctrlsMan)
            return;
        for (const QString& controller : sctrlsMan->controllers()) {
            QAction* action = menu->addAction(controller);
            action->setToolTip(sctrlsMan->description(controller));
            action->setEnabled(editable);
            connect(action, &QAction::triggered, view, [view, controller] { view->insertController(controller); });
        }
    } else if (snipMan) {
        for (const QSnippetManager::Snippet& snippet : snipMan->snippetsFor(snippetKind())) {
            QAction* action = menu->addAction(snippet.title);
            action->setToolTip(snippet.description);
            action->setEnabled(editable);
            const QString text = snippet.text;
            connect(action, &QAction::triggered, view, [view, text] { view->insertSnippet(text); });
        }
    }
    menu->setToolTipsVisible(true);
    if (menu->isEmpty())
        menu->addAction(tr("(none)"))->setEnabled(false);
}

void QTextDocumentEditor::find(FindCommand command)
{
    QQuickFind* bar = m_workspace->quickFind();
    switch (command) {
    case FindStart:
        bar->start();
        break;
    case FindReplace:
        bar->start();
        bar->replaceField()->setFocus();
        break;
    case FindNext:
    case FindPrevious:
        if (bar->findField()->text().isEmpty())
            bar->start();
        else
            bar->findNext(command == FindPrevious);
        break;
    case FindInFiles:
        m_workspace->findInFiles()->show();
        m_workspace->findInFiles()->raise();
        m_workspace->findInFiles()->findField()->setFocus();
        break;
    }
}

void QTextDocumentEditor::refreshTabs()
{
    if (!isActive())
        return;
    QTabBar* tabs = m_workspace->tabs();
    const QSignalBlocker blocker(tabs);
    while (tabs->count() > documentCount())
        tabs->removeTab(tabs->count() - 1);
    for (int i = 0; i < documentCount(); ++i) {
        QTextDocument* document = documentAt(i);
        const QString title = documentTitle(i) + (document && document->isModified() ? QStringLiteral("*") : QString());
        if (i < tabs->count())
            tabs->setTabText(i, title);
        else
            tabs->addTab(title);
    }
    tabs->setCurrentIndex(m_current);
    tabs->setVisible(documentCount() > 1 || (alwaysTabs() && documentCount() > 0));
}

void QTextDocumentEditor::activate(bool switched)
{
    QInterfaceEditor::activate(switched);
    if (switched) {
        disconnect(m_tabsConnection);
        m_tabsConnection = connect(m_workspace->tabs(), &QTabBar::currentChanged, this, [this](int index) {
            if (index != m_current)
                showDocument(index);
        });
        disconnect(m_linkConnection);
        m_linkConnection = connect(m_workspace->view(), &QTextView::linkActivated, this, &QTextDocumentEditor::openLink);
        m_workspace->view()->setLinkFinder([this](const QTextCursor& cursor) { return linkAt(cursor); });
        showDocument(m_current < 0 && documentCount() > 0 ? 0 : m_current);
        if (m_note) // the files may have changed while the editor was away
            m_note->setText(panelNote());
    }
}

void QTextDocumentEditor::deactivate()
{
    QInterfaceEditor::deactivate();
    disconnect(m_tabsConnection);
    disconnect(m_linkConnection);
    m_workspace->view()->setLinkFinder(nullptr);
    if (m_checkTimer.isActive()) { // the author's last edit is still checked
        m_checkTimer.stop();
        checkCurrent();
    }
    if (m_shown)
        disconnect(m_shown, nullptr, this, nullptr);
}

void QTextDocumentEditor::showDocument(int index)
{
    if (m_shown)
        disconnect(m_shown, nullptr, this, nullptr);
    m_current = index >= 0 && index < documentCount() ? index : -1;
    QTextDocument* document = m_current >= 0 ? documentAt(m_current) : nullptr;
    m_shown = document;
    if (document) {
        stackOf(document); // from its first edit on
        connect(document, &QTextDocument::contentsChanged, this, &QTextDocumentEditor::documentEdited);
        connect(document, &QTextDocument::modificationChanged, this, &QInterfaceEditor::modifiedChanged);
        connect(document, &QTextDocument::modificationChanged, this, &QTextDocumentEditor::refreshTabs);
    }
    m_workspace->view()->showDocument(document, !projectFileAt(m_current));
    m_workspace->view()->setSnippetKind(snippetKind());
    refreshTabs();
    if (m_outline)
        m_outline->setTextDocument(document);
    if (m_list) {
        const QSignalBlocker blocker(m_list);
        m_list->setCurrentRow(m_current);
    }
    emit undoStackChanged(undoStack());
    emit modifiedChanged();
}

QTextUndoStack* QTextDocumentEditor::stackOf(QTextDocument* document) const
{
    QTextUndoStack*& stack = m_stacks[document];
    if (!stack) {
        stack = new QTextUndoStack(document, const_cast<QTextDocumentEditor*>(this));
        connect(document, &QObject::destroyed, this, [this, document]() { delete m_stacks.take(document); });
    }
    return stack;
}

QUndoStack* QTextDocumentEditor::undoStack() const
{
    return m_shown ? stackOf(m_shown) : nullptr;
}

void QTextDocumentEditor::documentEdited()
{
    if (projectFileAt(m_current))
        m_checkTimer.start();
}

void QTextDocumentEditor::checkCurrent()
{
    if (QProjectFile* file = projectFileAt(m_current))
        file->checkErrors();
}

void QTextDocumentEditor::navigateTo(int fileIndex, int index, int line)
{
    if (fileIndex != m_current)
        showDocument(fileIndex);
    QTextDocument* document = m_shown;
    if (!document)
        return;
    const QTextBlock block = document->findBlockByNumber(line);
    if (!block.isValid())
        return;
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, qBound(0, index, block.length() - 1));
    m_workspace->view()->setTextCursor(cursor);
    m_workspace->view()->centerCursor();
    m_workspace->view()->setFocus();
}

void QTextDocumentEditor::save()
{
    auto* text = dynamic_cast<QSyntaxTextEditor*>(projectFileAt(m_current));
    if (text && !text->fileName().isEmpty())
        text->toFile(text->fileName(), false, false);
}

void QTextDocumentEditor::cut()
{
    m_workspace->view()->cut();
}

void QTextDocumentEditor::copy()
{
    m_workspace->view()->copy();
}

void QTextDocumentEditor::paste()
{
    m_workspace->view()->paste();
}
