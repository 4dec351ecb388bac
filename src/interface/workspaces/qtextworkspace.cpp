#include "qtextworkspace.h"

#include "interface/dialogs/finddlgmlt.h"
#include "interface/qinterface.h"
#include "interface/qquickfind.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qfilewatchermanager.h"
#include "managers/qprogramdirectory.h"
#include "managers/qsctrlmanager.h"
#include "qtextcompletions.h"
#include "model/qdefinitions.h"
#include "model/qproject.h"
#include "qtextview.h"

#include <QAction>
#include <QFont>
#include <QVBoxLayout>

QTextWorkspace::QTextWorkspace(QObject* parent)
    : QInterfaceWorkspace(parent)
    , m_widget(new QWidget)
    , m_view(new QTextView(m_widget))
    , m_quickFind(new QQuickFind(m_view, m_widget))
    , m_findInFiles(new FindDlgMlt(m_widget))
{
    m_widget->setObjectName(QStringLiteral("textWorkspace"));
    auto* layout = new QVBoxLayout(m_widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_quickFind);
    m_quickFind->hide();

    auto* find = new QAction(m_widget);
    find->setShortcut(QKeySequence::Find);
    find->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QAction::triggered, m_quickFind, &QQuickFind::start);
    auto* findInFiles = new QAction(m_widget);
    findInFiles->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    findInFiles->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(findInFiles, &QAction::triggered, m_findInFiles, [this] {
        m_findInFiles->show();
        m_findInFiles->raise();
    });
    m_widget->addActions({find, findInFiles});
    connect(m_findInFiles, &FindDlgMlt::navigate, this, [](int file, int fileIndex, int column, int line) {
        if (intf)
            intf->navigateTo(QProjectFileType(file), fileIndex, column, line);
    });
    // The window makes the templates' manager; a workspace without one (in a
    // test, say) reads the folder itself.
    if (!sctrlsMan) {
        m_sctrls = std::make_unique<QSCtrlManager>(programDirectory() + QStringLiteral("/sctrls"));
        sctrlsMan = m_sctrls.get();
    }
    if (!watchMan) {
        m_watcher = std::make_unique<QFileWatcherManager>();
        watchMan = m_watcher.get();
    }
    QTextCompletions::setSpelling(sctrlsMan->triggerSpellings());
    m_view->setDescriber([](const QString& word) { return sctrlsMan ? sctrlsMan->description(word) : QString(); });
    reconfig();
}

QTextWorkspace::~QTextWorkspace()
{
    if (sctrlsMan == m_sctrls.get())
        sctrlsMan = nullptr;
    if (watchMan == m_watcher.get())
        watchMan = nullptr;
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
        for (int i = 0; i < project->statesCount(); ++i)
            texts.append(project->states(i));
    }
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
