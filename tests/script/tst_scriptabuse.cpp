// Scripts that go wrong: each fault is reported as text and the program goes on.
#include "tst_script.h"

#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"
#include "util/qmessages.h"

#include <QtTest>

namespace {

// The text of the fault `code` raises at the top level; empty when it runs through.
QString faultOf(QScript& script, const QString& code)
{
    try {
        script.fromString(code);
    } catch (const std::exception& error) {
        return script.describe(error);
    }
    return QString();
}

// The fault of calling the global function `name`.
QString callFault(QScript& script, const char* name)
{
    try {
        luabind::call_function<void>(script.state(), name);
    } catch (const luabind::error& error) {
        return script.describe(error);
    }
    return QString();
}

bool messagesContain(const QString& text)
{
    const QMessages& messages = QScriptManager::scriptMsgs();
    for (int i = 0; i < messages.count(); ++i) {
        if (messages.at(i).text.contains(text))
            return true;
    }
    return false;
}

} // namespace

void TestScript::runawayLoopIsStopped()
{
    QScript script;
    script.setInstructionLimit(2000000);
    QVERIFY(faultOf(script, QStringLiteral("while true do end")).contains(QLatin1String(QScript::tooLongMessage)));
    // A pcall inside the script can't keep the loop alive.
    QScript guarded;
    guarded.setInstructionLimit(2000000);
    QVERIFY(faultOf(guarded, QStringLiteral("while true do pcall(function() while true do end end) end"))
                .contains(QLatin1String(QScript::tooLongMessage)));
    // An entry point that loops is stopped the same way.
    QScript entry;
    entry.setInstructionLimit(2000000);
    run(entry, QStringLiteral("function main() local i = 0 while true do i = i + 1 end end"));
    QVERIFY(callFault(entry, "main").contains(QLatin1String(QScript::tooLongMessage)));
}

void TestScript::errorsAreReported()
{
    QScript script;
    QVERIFY(faultOf(script, QStringLiteral("error('top level fault')")).contains(QStringLiteral("top level fault")));
    QVERIFY(faultOf(script, QStringLiteral("this is not Lua")).contains(QStringLiteral("syntax error")) ||
            faultOf(script, QStringLiteral("this is not Lua")).contains(QStringLiteral("expected")));
    // Recursion without end overflows Lua's stack, not the program's.
    QVERIFY(faultOf(script, QStringLiteral("local function f(n) return 1 + f(n + 1) end f(1)")).contains(QStringLiteral("stack overflow")));
    // A tool without main, as the Tools menu would call it.
    QVERIFY(callFault(script, "main").contains(QStringLiteral("nil")));
    // Wrong arguments to a bound function are a Lua error too.
    QVERIFY(!faultOf(script, QStringLiteral("Image('wide', {})")).isEmpty());

    // A missing file is a load error.
    QScript missing;
    try {
        missing.fromFile(QStringLiteral("tool/No such tool"));
        QFAIL("a missing script loaded");
    } catch (const std::runtime_error& error) {
        QVERIFY(missing.describe(error).contains(QStringLiteral("No such tool")));
    }

    // An error inside a slot is reported and the sender goes on.
    QProject project;
    m_project.reset();
    QScript slotted;
    QLuaProjects::installed().current = [&project] { return &project; };
    run(slotted, QStringLiteral("connect(project().sprites, 'changed', function() error('fault in a slot') end)"));
    project.sprites()->add();
    QVERIFY(messagesContain(QStringLiteral("fault in a slot")));
    QCOMPARE(project.sprites()->count(), 1);
    QLuaProjects::installed().current = [this] { return m_project.get(); };
}

void TestScript::deletedObjectsAreReported()
{
    auto* project = new QProject;
    QLuaProjects::installed().current = [project] { return project; };
    QScript script;
    run(script, QStringLiteral("p = project() s = p.sprites:add() s2 = p.sprites:add() a = p.animations:add(10) "
                               "f = a:frameAdd()"));
    // A nil dereference on a bound object's result.
    QVERIFY(faultOf(script, QStringLiteral("local x = p.sprites:at(99)")).contains(QStringLiteral("out of range")));
    QVERIFY(faultOf(script, QStringLiteral("local n = nil; return n.count")).contains(QStringLiteral("nil")));
    // A sprite removed while the script keeps it.
    project->sprites()->remove(0);
    QVERIFY(faultOf(script, QStringLiteral("return s.itemGroup")).contains(QStringLiteral("deleted object")));
    QVERIFY(faultOf(script, QStringLiteral("s.x = 4")).contains(QStringLiteral("deleted object")));
    QVERIFY(faultOf(script, QStringLiteral("return s2.itemGroup")).isEmpty());
    // An action removed under its frame.
    project->animations()->remove(0);
    QVERIFY(faultOf(script, QStringLiteral("return f.time")).contains(QStringLiteral("deleted object")));
    // The whole project closed.
    delete project;
    QVERIFY(faultOf(script, QStringLiteral("return p.sprites.count")).contains(QStringLiteral("deleted object")));
    QVERIFY(faultOf(script, QStringLiteral("return s2:bounds()")).contains(QStringLiteral("deleted object")));
    QLuaProjects::installed().current = [this] { return m_project.get(); };
}

void TestScript::managerFindsScripts()
{
    const QStringList tools = scriptMan->scriptList(QStringLiteral("tool"));
    QVERIFY(tools.contains(QStringLiteral("Sprites/Rename group")));
    QVERIFY(tools.size() >= 5);
    QVERIFY(scriptMan->scriptList(QStringLiteral("project")).contains(QStringLiteral("Character")));
    QVERIFY(scriptMan->scriptList(QStringLiteral("common")).contains(QStringLiteral("Throw")));
    // translate() of a script run from text has no context to give.
    QScript script;
    run(script, QStringLiteral("t = translate('Group') print('printed', 3)"));
    QCOMPARE(string(script, "t"), QStringLiteral("Group"));
    QVERIFY(messagesContain(QStringLiteral("printed\t3")));
}
