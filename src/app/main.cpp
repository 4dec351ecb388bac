// Start-up and shutdown. The order of every step is deliberate: the managers
// are created before anything reads them, the configuration is read before
// the single-instance claim so a messenger still sees its settings, and the
// configuration is written only after the window (and all that keeps state
// in it) is gone.
//
// The claim asks a running master over a local socket rather than trusting a
// shared-memory key: a key outlives a master that was killed, and every later
// start with a file would then hand the file to nobody and end without a
// window. A dead master is noticed and replaced; a live one that doesn't
// answer within a second is left alone and this start opens its own window.
#include "appglobals.h"
#include "mainwindow.h"
#include "qinstanceclaim.h"
#include "qstandalonepaleditor.h"

#include "interface/qinterface.h"
#include "interface/qmessageboxprompt.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qiconmanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qstylesheetmanager.h"
#include "model/gui/qmultimediasoundplayer.h"
#include "script/qscriptmanager.h"
#include "text/qcodecs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QElapsedTimer>
#include <QSplashScreen>
#include <QThread>

namespace {

/// Queues a file for the master to open: its local 8-bit path and one line
/// feed, after whatever other messengers queued before.
void handOver(QFile& file, const QString& fileName)
{
    if (!file.isOpen())
        file.open(QIODevice::Append);
    file.seek(file.size());
    file.write(fileName.toLocal8Bit());
    file.write("\n", 1);
    file.close();
}

template<typename T>
void deleteManager(T*& manager)
{
    delete manager;
    manager = nullptr;
}

void deleteManagers()
{
    deleteManager(scriptMan);
    deleteManager(presetMan);
    deleteManager(configMan);
    deleteManager(colorMan);
    deleteManager(styleMan);
    deleteManager(iconMan);
    deleteManager(langMan);
    deleteManager(application);
}

} // namespace

int main(int argc, char** argv)
{
    application = new QApplication(argc, argv);
    Q_INIT_RESOURCE(resources); // the images live in the GUI library
    const QString programDir = QCoreApplication::applicationDirPath();
    QCoreApplication::addLibraryPath(programDir);

    QMessageBoxPrompt boxPrompt;
    QPrompt::install(&boxPrompt);
    // Sounds play through the system's audio in the window; the core has no audio of its own.
    QMultimediaSoundPlayer::install();

    presetMan = new QPresetManager(programDir + QStringLiteral("/presets"));
    iconMan = new QIconManager(programDir + QStringLiteral("/iconsets"));
    styleMan = new QStylesheetManager(programDir + QStringLiteral("/styles"));
    langMan = new QLanguageManager(application, programDir + QStringLiteral("/languages"));
    colorMan = new QColorsetManager(programDir + QStringLiteral("/colorsets"));
    configMan = new QConfigManager;
    configMan->fromFile(programDir + QStringLiteral("/config.xml"));
    // The editors name their commands as they are made: the language is in place before the window.
    langMan->setActive((*configMan)[QStringLiteral("language")].toString());
    scriptMan = new QScriptManager(nullptr, programDir);
    initCodecs();

    QInstanceClaim instance(QStringLiteral("Pugilforge3"));
    const QInstanceClaim::Role role = instance.claim();
    master = role == QInstanceClaim::Master;

    QFile handOverFile(QInterface::handOverFileName());
    if (master)
        handOverFile.open(QIODevice::WriteOnly); // empties what an earlier run left

    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 2 && QFile::exists(arguments.at(1))) {
        if (role == QInstanceClaim::Independent) {
            ownFile = arguments.at(1); // the master is busy: this window opens it
        } else {
            handOver(handOverFile, arguments.at(1));
            if (!master) {
                deleteManagers();
                return 0;
            }
        }
    }

    // "-ape" (when no file of that name exists) runs the palette editor alone, master or not.
    if (arguments.size() == 2 && arguments.at(1) == QLatin1String("-ape") && !QFile::exists(arguments.at(1))) {
        runStandalonePalEditor();
        QPrompt::install(nullptr);
        deleteManagers();
        return 0;
    }

    int result = 0;
    {
        // The splash stays a full second on purpose, before anything is built;
        // events still run, so a later start asking for the master is answered.
        QSplashScreen splash(QPixmap(QStringLiteral(":/imgs/Imgs/Splash.png")));
        splash.show();
        QElapsedTimer shown;
        shown.start();
        while (shown.elapsed() < 1000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            QThread::msleep(10);
        }

        MainWindow window;
        boxPrompt.setParent(&window);
        window.show();
        splash.finish(&window);
        result = QApplication::exec();
        boxPrompt.setParent(nullptr);
    }
    QPrompt::install(nullptr);
    deleteManagers();
    return result;
}
