#include "windowmanagers.h"

#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qiconmanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qprogramdirectory.h"
#include "managers/qstylesheetmanager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace windowManagers {

bool create(const QString& programDir)
{
    const QDir bin(qEnvironmentVariable("PF_BIN_DIR"));
    const QDir program(programDir);
    for (const char* name :
        { "syntax_mugen.xml", "syntax_lua.xml", "iconsets", "styles", "colorsets", "presets", "languages",
          "sctrls", "snippets" }) {
        if (!QFile::link(bin.absoluteFilePath(QLatin1String(name)), program.filePath(QLatin1String(name))))
            return false;
    }
    setProgramDirectory(programDir);
    presetMan = new QPresetManager(programDir + QStringLiteral("/presets"));
    iconMan = new QIconManager(programDir + QStringLiteral("/iconsets"));
    styleMan = new QStylesheetManager(programDir + QStringLiteral("/styles"));
    langMan = new QLanguageManager(qApp, programDir + QStringLiteral("/languages"));
    colorMan = new QColorsetManager(programDir + QStringLiteral("/colorsets"));
    configMan = new QConfigManager;
    (*configMan)[QStringLiteral("confirm_close")] = false;
    return true;
}

void destroy()
{
    delete configMan;
    delete colorMan;
    delete styleMan;
    delete iconMan;
    delete presetMan;
    configMan = nullptr;
    colorMan = nullptr;
    styleMan = nullptr;
    iconMan = nullptr;
    presetMan = nullptr;
}

} // namespace windowManagers
