#include "tst_script.h"

#include "model/qproject.h"
#include "realdata.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"
#include "scripthost.h"
#include "util/qmessages.h"

#include <QDir>
#include <QFile>
#include <QtTest>

void TestScript::initTestCase()
{
    startScriptHost();
    QLuaProjects::installed().current = [this] { return m_project.get(); };
    QLuaProjects::installed().all = [this] {
        return m_project ? QList<QProject*>{m_project.get()} : QList<QProject*>();
    };
}

void TestScript::cleanup()
{
    m_project.reset();
    m_dir.reset();
    QScriptManager::scriptMsgs().clear();
}

QProject* TestScript::openKfm()
{
    const QString source = realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm");
    if (realDataDir().isEmpty() || !QFile::exists(source + QStringLiteral("/kfm.def")))
        return nullptr;
    m_dir = std::make_unique<QTemporaryDir>();
    for (const QString& name : QDir(source).entryList(QDir::Files))
        QFile::copy(source + QLatin1Char('/') + name, m_dir->filePath(name));
    // The common states sit in the engine's data folder beside chars/.
    m_project = std::make_unique<QProject>();
    if (!m_project->open(m_dir->filePath(QStringLiteral("kfm.def")), 0, false, false))
        return nullptr;
    return m_project.get();
}

void TestScript::run(QScript& script, const QString& code)
{
    try {
        script.fromString(code);
    } catch (const std::exception& error) {
        QFAIL(qPrintable(script.describe(error)));
    }
}

double TestScript::number(QScript& script, const char* name)
{
    lua_getglobal(script.state(), name);
    const double value = lua_tonumber(script.state(), -1);
    lua_pop(script.state(), 1);
    return value;
}

QString TestScript::string(QScript& script, const char* name)
{
    lua_getglobal(script.state(), name);
    const char* text = lua_tostring(script.state(), -1);
    const QString value = text ? QString::fromUtf8(text) : QString();
    lua_pop(script.state(), 1);
    return value;
}

QTEST_MAIN(TestScript)
