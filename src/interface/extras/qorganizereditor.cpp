#include "qorganizereditor.h"

#include "interface/qinterfaceeditor.h"
#include "model/qanimations.h"
#include "model/qcommands.h"
#include "model/qcommandsorg.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"

#include <QDropEvent>
#include <QIdentityProxyModel>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>

namespace {

/// The file's list, its rows made draggable for the view.
class DraggableRows : public QIdentityProxyModel
{
public:
    using QIdentityProxyModel::QIdentityProxyModel;

    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return QIdentityProxyModel::flags(index) | Qt::ItemIsDragEnabled;
    }
    Qt::DropActions supportedDragActions() const override { return Qt::MoveAction; }
};

/// A list whose drops within itself become one move of the file's list.
class ReorderView : public QListView
{
public:
    std::function<void(int from, int to)> moved;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { acceptOwn(event); }
    void dragMoveEvent(QDragMoveEvent* event) override
    {
        acceptOwn(event);
        QListView::dragMoveEvent(event); // the scrolling near the edges and the drop indicator
        acceptOwn(event);
    }
    void dropEvent(QDropEvent* event) override
    {
        if (event->source() != this || !model()) {
            event->ignore();
            return;
        }
        const QModelIndex target = indexAt(event->position().toPoint());
        const int to = target.isValid() ? target.row() : model()->rowCount() - 1;
        const int from = currentIndex().row();
        event->setDropAction(Qt::IgnoreAction); // the move is made here, not by the drag
        event->accept();
        if (from >= 0 && to >= 0 && from != to && moved)
            moved(from, to);
    }

private:
    void acceptOwn(QDropEvent* event)
    {
        if (event->source() == this) {
            event->setDropAction(Qt::MoveAction);
            event->accept();
        } else {
            event->ignore();
        }
    }
};

} // namespace

bool QOrganizerEditor::serves(int editor) const
{
    return editor == ieSprites || editor == ieAnimations || editor == ieCommands || editor == ieSounds;
}

void QOrganizerEditor::initialized(QWidget* rightPage)
{
    auto* layout = new QVBoxLayout(rightPage);
    layout->setContentsMargins(4, 4, 4, 4);
    auto* view = new ReorderView;
    view->moved = [this](int from, int to) { moveItem(from, to); };
    m_view = view;
    m_view->setParent(rightPage);
    m_view->setObjectName(QStringLiteral("organizerList"));
    m_view->setDragEnabled(true);
    m_view->setAcceptDrops(true);
    m_view->setDropIndicatorShown(true);
    m_view->setDragDropMode(QAbstractItemView::InternalMove);
    m_view->setToolTip(tr("Drag an item to give it another place in the file"));
    m_proxy = new DraggableRows(this);
    m_empty = new QLabel(tr("This editor has no list to organize."), rightPage);
    m_empty->setWordWrap(true);
    auto* sort = new QPushButton(tr("Auto-organize"), rightPage);
    sort->setObjectName(QStringLiteral("organizerSort"));
    sort->setToolTip(tr("Sort the whole list into the order the engine expects"));
    connect(sort, &QPushButton::clicked, this, &QOrganizerEditor::autoOrganize);
    layout->addWidget(m_empty);
    layout->addWidget(m_view, 1);
    layout->addWidget(sort);
}

void QOrganizerEditor::setProject(QProject* project)
{
    m_project = project;
    showItems();
}

void QOrganizerEditor::showFor(int editor)
{
    if (editor == m_editor)
        return;
    m_editor = editor;
    showItems();
}

void QOrganizerEditor::showItems()
{
    m_items = nullptr;
    if (m_project) {
        switch (m_editor) {
        case ieSprites:
            m_items = m_project->sprites();
            break;
        case ieAnimations:
            m_items = m_project->animations();
            break;
        case ieCommands:
            m_items = m_project->commands()->organizer();
            break;
        case ieSounds:
            m_items = m_project->sounds();
            break;
        default:
            break;
        }
    }
    m_proxy->setSourceModel(m_items);
    m_view->setModel(m_items ? m_proxy : nullptr);
    m_view->setVisible(m_items);
    m_empty->setVisible(!m_items);
}

void QOrganizerEditor::moveItem(int from, int to)
{
    if (!m_items || from < 0 || to < 0 || from >= m_items->rowCount() || to >= m_items->rowCount() || from == to)
        return;
    m_items->move(unsigned(from), unsigned(to));
    m_view->setCurrentIndex(m_proxy->index(to, 0));
}

void QOrganizerEditor::autoOrganize()
{
    if (m_items)
        m_items->autoOrganize();
}
