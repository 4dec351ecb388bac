#include "qtextworkspace.h"

#include "interface/dialogs/finddlgmlt.h"
#include "interface/qinterface.h"
#include "interface/qquickfind.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qfilewatchermanager.h"
#include "managers/qsctrlmanager.h"
#include "qtextcompletions.h"
#include "model/qdefinitions.h"
#include "model/qcommands.h"
#include "model/qproject.h"
#include "qtextview.h"

#include <QFont>
#include <QTabBar>
#include <QVBoxLayout>

QTextWorkspace::QTextWorkspace(QObject* parent)
    : QInterfaceWorkspace(parent)
    , m_widget(new QWidget)
    , m_tabs(new QTabBar(m_widget))
    , m_view(new QTextView(m_widget))
    , m_quickFind(new QQuickFind(m_view, m_widget))
    , m_findInFiles(new FindDlgMlt(m_widget))
{
    m_widget->setObjectName(QStringLiteral("textWorkspace"));
    auto* layout = new QVBoxLayout(m_widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_tabs->setObjectName(QStringLiteral("textTabs"));
    m_tabs->setDocumentMode(true);
    m_tabs->setExpanding(false);
    m_tabs->setUsesScrollButtons(true);
    m_tabs->hide();
    layout->addWidget(m_tabs);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_quickFind);
    m_quickFind->hide();

    connect(m_findInFiles, &FindDlgMlt::navigate, this, [](int file, int fileIndex, int column, int line) {
        if (intf)
            intf->navigateTo(QProjectFileType(file), fileIndex, column, line);
    });
    if (sctrlsMan)
        QTextCompletions::setSpelling(sctrlsMan->triggerSpellings());
    m_view->setDescriber([](const QString& word) { return sctrlsMan ? sctrlsMan->description(word) : QString(); });
    reconfig();
}

QTextWorkspace::~QTextWorkspace()
{
    // The page belongs to the window's workspace stack once shown there.
    if (!m_widget->parent())
        delete m_widget;
}

QWidget* QTextWorkspace::widget() const
{
    return m_widget;
}

void QTextWorkspace::setProject(QProject* project)
{
    m_findInFiles->setProject(project);
    // The text files of the project in front are watched for changes by other programs.
    QList<QSyntaxTextEditor*> texts;
    if (project) {
        texts.append(project->definitions());
        texts.append(project->commands());
        for (int i = 0; i < project->statesCount(); ++i)
            texts.append(project->states(i));
    }
    if (watchMan)
        watchMan->watchOnly(texts);
}

void QTextWorkspace::reconfig()
{
    QFont font((*configMan)[QStringLiteral("font_name")].toString());
    font.setStyleHint(QFont::Monospace);
    font.setPointSize(qMax(6, (*configMan)[QStringLiteral("font_size")].toInt()));
    m_view->setFont(font);
    if (colorMan)
        m_view->setColors(colorMan->color(QStringLiteral("line")), colorMan->color(QStringLiteral("paren")),
                          colorMan->color(QStringLiteral("paren_range")));
}
