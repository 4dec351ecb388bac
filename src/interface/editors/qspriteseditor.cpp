#include "qspriteseditor.h"

#include "model/qproject.h"
#include "model/qsprites.h"

#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QVBoxLayout>

QSpritesEditor::QSpritesEditor(QViewWorkspace* workspace, QObject* parent)
    : QViewEditor(workspace, new QWidget, parent)
    , m_header(new QLabel(view()))
    , m_list(new QListView(view()))
{
    view()->setObjectName(QStringLiteral("spritesView"));
    m_header->setObjectName(QStringLiteral("viewHeader"));
    m_header->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("spritesList"));
    m_list->setViewMode(QListView::IconMode);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setGridSize(QSize(96, 40));
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* layout = new QVBoxLayout(view());
    layout->addWidget(m_header);
    layout->addWidget(m_list, 1);
}

void QSpritesEditor::initialized(QToolBarItems* items, QWidget* leftPage)
{
    QViewEditor::initialized(items, leftPage);
    updateSummary();
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
    if (summary())
        summary()->setText(tr("<b>File:</b> %1<br><b>Sprites:</b> %2").arg(file.toHtmlEscaped()).arg(count));
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
