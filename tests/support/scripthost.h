#pragma once

#include "model/qproject.h"
#include "script/qscriptmanager.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"

/// What a script test needs before its first Lua state: the codecs, the
/// project registries, the syntax of the state files, and the script manager
/// over the source tree's data/scripts (so tests run the scripts as written).
inline void startScriptHost()
{
    initCodecs();
    QProject::init();
    QSyntaxTextEditor::initProperties(qEnvironmentVariable("PF_BIN_DIR"));
    scriptMan = new QScriptManager(nullptr, qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data"));
}
