#include "mainwindow.h"
#include "ui_mainwindow.h"

#include "managers/qconfigmanager.h"
#include "managers/qlanguagemanager.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcommonelements.h"
#include "text/qtextelementreg.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QMessageBox>

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_ui(std::make_unique<Ui::MainWindow>())
{
    m_ui->setupUi(this);
    QSyntaxTextEditor::initProperties(QCoreApplication::applicationDirPath());
    QProject::init();
    connect(langMan, &QLanguageManager::langChanged, this, &MainWindow::retranslate);
}

MainWindow::~MainWindow()
{
    // The configuration is written here and only here, after everything that
    // keeps its state in it is gone: a process that dies earlier keeps the
    // configuration it started with.
    configMan->toFile(QCoreApplication::applicationDirPath() + QStringLiteral("/config.xml"));
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
    QMainWindow::closeEvent(event);
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
