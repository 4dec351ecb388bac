#include "qspriteseditor.h"

#include "interface/workspaces/qviewworkspace.h"
#include "model/qproject.h"
#include "model/qsprites.h"

#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QVBoxLayout>

QSpritesEditor::QSpritesEditor(QViewWorkspace* workspace, QObject* parent)
    : QInterfaceEditor(parent)
    , m_workspace(workspace)
    , m_view(new QWidget)
    , m_header(new QLabel(m_view))
    , m_list(new QListView(m_view))
{
    m_view->setObjectName(QStringLiteral("spritesView"));
    m_header->setObjectName(QStringLiteral("viewHeader"));
    m_header->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("spritesList"));
    m_list->setViewMode(QListView::IconMode);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setGridSize(QSize(96, 40));
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* layout = new QVBoxLayout(m_view);
    layout->addWidget(m_header);
    layout->addWidget(m_list, 1);
}

QSpritesEditor::~QSpritesEditor()
{
    if (!m_view->parent())
        delete m_view;
}

void QSpritesEditor::initialized(QToolBarItems*, QWidget* leftPage)
{
    m_summary = addSummary(leftPage, QStringLiteral("spritesSummary"));
}

void QSpritesEditor::activate(bool switched)
{
    QInterfaceEditor::activate(switched);
    if (switched)
        m_workspace->showView(m_view);
    emit undoStackChanged(undoStack());
}

void QSpritesEditor::setProject(QProject* project)
{
    m_project = project;
    m_list->setModel(project ? project->sprites() : nullptr);
    updateSummary();
}

void QSpritesEditor::updateSummary()
{
    const QSprites* sprites = m_project ? m_project->sprites() : nullptr;
    const int count = sprites ? sprites->count() : 0;
    const QString file = sprites && !sprites->fileName().isEmpty() ? QFileInfo(sprites->fileName()).fileName()
                                                                    : tr("no sprite file");
    const QString text = count > 0 ? tr("%n sprite(s) in %1. Each entry is group, index.", nullptr, count).arg(file)
                                   : tr("This project has no sprites yet (%1).").arg(file);
    m_header->setText(text);
    if (m_summary)
        m_summary->setText(tr("<b>File:</b> %1<br><b>Sprites:</b> %2").arg(file.toHtmlEscaped()).arg(count));
}

void QSpritesEditor::navigateTo(int, int index, int)
{
    if (m_list->model())
        m_list->setCurrentIndex(m_list->model()->index(index, 0));
}

QUndoStack* QSpritesEditor::undoStack() const
{
    return m_project ? m_project->sprites()->undoStack() : nullptr;
}
