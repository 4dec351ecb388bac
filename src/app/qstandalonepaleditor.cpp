#include "qstandalonepaleditor.h"

#include "interface/dialogs/paleditor.h"
#include "managers/qconfigmanager.h"
#include "managers/qlanguagemanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qstylesheetmanager.h"

#include <QApplication>

void runStandalonePalEditor()
{
    langMan->setActive((*configMan)[QStringLiteral("language")].toString());
    const QPresetManager::Look& look = presetMan->apply(
        (*configMan)[QStringLiteral("preset")].toString(), (*configMan)[QStringLiteral("iconset")].toString(),
        (*configMan)[QStringLiteral("stylesheet")].toString(), (*configMan)[QStringLiteral("colorset")].toString());
    qApp->setStyleSheet(styleMan->sheet(look.stylesheet, 96));
    PalEditor editor;
    editor.exec();
}
