#include "qpaletteseditor.h"

#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "util/qpathresolver.h"

#include <QListWidget>
#include <QVBoxLayout>

void QPalettesEditor::initialized(QWidget* rightPage)
{
    auto* layout = new QVBoxLayout(rightPage);
    layout->setContentsMargins(4, 4, 4, 4);
    m_list = new QListWidget(rightPage);
    m_list->setObjectName(QStringLiteral("paletteFiles"));
    m_list->setWordWrap(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    layout->addWidget(m_list);
}

void QPalettesEditor::setProject(QProject* project)
{
    m_list->clear();
    if (!project)
        return;
    const QProjectFiles files = project->definitions()->files();
    for (int i = 0; i < QProjectFiles::paletteCount; ++i) {
        const QString& palette = files.palettes.at(i);
        if (palette.isEmpty())
            continue;
        const bool found = resolvePath(files.baseDir, palette).exists;
        auto* item = new QListWidgetItem(tr("%1: %2").arg(i + 1).arg(palette), m_list);
        if (!found) {
            item->setForeground(QColor(198, 40, 40));
            item->setToolTip(tr("The file is missing."));
        }
    }
    if (m_list->count() == 0)
        new QListWidgetItem(project->type() == ptCharacter ? tr("The definitions name no palette files.")
                                                           : tr("Only characters have palette files."),
                            m_list);
}
