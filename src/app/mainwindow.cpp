#include "mainwindow.h"
#include "ui_mainwindow.h"

#include "appglobals.h"
#include "interface/editors/qanimationseditor.h"
#include "interface/editors/qcommandseditor.h"
#include "interface/editors/qdefinitionseditor.h"
#include "interface/editors/qspriteseditor.h"
#include "interface/editors/qstateseditor.h"
#include "interface/editors/qsoundseditor.h"
#include "interface/extras/qorganizereditor.h"
#include "interface/extras/qpaletteseditor.h"
#include "interface/extras/qthumbnailseditor.h"
#include "interface/qinterface.h"
#include "interface/workspaces/qtextworkspace.h"
#include "interface/workspaces/qviewworkspace.h"
#include "render/gui/qanimspriteworkspace.h"
#include "managers/qactionmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qfilewatchermanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qprogramdirectory.h"
#include "managers/qsctrlmanager.h"
#include "managers/qsnippetmanager.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcommonelements.h"
#include "text/qtextelementreg.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QMessageBox>

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_ui(std::make_unique<Ui::MainWindow>())
{
    Q_INIT_RESOURCE(resources); // the images live in this static library
    m_ui->setupUi(this);
    QSyntaxTextEditor::initProperties(programDirectory());
    QProject::init();
    connect(langMan, &QLanguageManager::langChanged, this, &MainWindow::retranslate);

    // The managers of the editors, in the order the rest relies on. The
    // scripts' manager is made before the window, with the program's own:
    // the tools menu and the project templates ask it as the window builds.
    sctrlsMan = new QSCtrlManager(programDirectory() + QStringLiteral("/sctrls"));
    snipMan = new QSnippetManager(this, programDirectory() + QStringLiteral("/snippets"));
    watchMan = new QFileWatcherManager;

    intf = new QInterface(this, m_ui->actions, m_ui->actList);
    auto* text = new QTextWorkspace;
    auto* views = new QViewWorkspace;
    intf->registerWorkspace(text);
    intf->registerWorkspace(views);
    intf->registerEditor(new QDefinitionsEditor(text));
    m_animSprites = new QAnimSpriteWorkspace(configMan);
    auto* spritesEditor = new QSpritesEditor(views, m_animSprites);
    intf->registerEditor(spritesEditor);
    intf->registerEditor(new QAnimationsEditor(views, m_animSprites));
    intf->registerEditor(new QCommandsEditor(text));
    intf->registerEditor(new QStatesEditor(text));
    intf->registerEditor(new QSoundsEditor(views));
    intf->registerExtraEditor(new QOrganizerEditor);
    auto* palettes = new QPalettesEditor(m_animSprites, spritesEditor);
    intf->registerExtraEditor(palettes);
    intf->registerExtraEditor(new QThumbnailsEditor);
    QAction* palEditor = intf->actions()->add({QActionManager::global}, QStringLiteral("tools_palette_editor"),
                                              QT_TRANSLATE_NOOP("QActionManager", "&Palette editor..."));
    connect(palEditor, &QAction::triggered, palettes, &QPalettesEditor::openEditor);
    m_ui->menuTools->addAction(palEditor);
    intf->run(master);
    if (!ownFile.isEmpty())
        intf->openProject(ownFile);
}

MainWindow::~MainWindow()
{
    // The window's state goes into the configuration as the interface ends,
    // and the configuration is written here and only here: a process that
    // dies earlier keeps the configuration it started with.
    delete intf;
    intf = nullptr;
    delete m_animSprites;
    configMan->toFile(programDirectory() + QStringLiteral("/config.xml"));
    delete watchMan;
    watchMan = nullptr;
    delete snipMan;
    snipMan = nullptr;
    delete sctrlsMan;
    sctrlsMan = nullptr;
    releaseCommonElements();
    QTextElementReg::release();
}

void MainWindow::retranslate()
{
    m_ui->menuFile->setTitle(QCoreApplication::translate("MainWindow", "Project"));
    m_ui->menuEdit->setTitle(QCoreApplication::translate("MainWindow", "Edit"));
    m_ui->menuView->setTitle(QCoreApplication::translate("MainWindow", "View"));
    m_ui->menuTools->setTitle(QCoreApplication::translate("MainWindow", "Tools"));
    m_ui->menuHelp->setTitle(QCoreApplication::translate("MainWindow", "Help"));
    m_ui->actions->setWindowTitle(QCoreApplication::translate("MainWindow", "Action list"));
    if (intf)
        intf->retranslate();
    if (snipMan)
        snipMan->update();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if ((*configMan)[QStringLiteral("confirm_close")].toBool()) {
        const auto answer = QMessageBox::question(
            this, tr("Close"), tr("Do you really want to close Pugilforge?"),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer == QMessageBox::No) {
            event->ignore();
            return;
        }
    }
    intf->fileCloseAll();
    // A save question answered with Cancel keeps a project, and the window.
    if (intf->projectCount() < 2 && intf->project(0)->isEmpty()) {
        // An engine still running goes with the window; the run removes its copies as it ends.
        intf->cancelRun();
        QMainWindow::closeEvent(event);
    } else
        event->ignore();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
