// Scripts that go wrong: each fault is reported as text and the program goes
// on. Its own executable, linking only the core, so that the sanitizer build
// (PF_FUZZ) builds and runs it alone.
#include "model/qanimations.h"
#include "model/qproject.h"
#include "model/qsprites.h"
#include "script/qluaheaders.h"
#include "script/qluaobject.h"
#include "script/qscript.h"
#include "script/qscriptmanager.h"
#include "scripthost.h"
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

class TestScriptAbuse : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        startScriptHost();
        QLuaProjects::installed().current = [this] { return m_project; };
    }

    void cleanupTestCase()
    {
        delete scriptMan;
        scriptMan = nullptr;
        QLuaProjects::installed().current = nullptr;
    }

    void init()
    {
        m_project = new QProject;
    }

    void cleanup()
    {
        delete m_project;
        m_project = nullptr;
        QScriptManager::scriptMsgs().clear();
    }

    void boundObjectsAreAligned()
    {
        // luabind builds its objects inside Lua's userdata with 16-byte
        // alignment; the sanitizer build caught them at 8 once.
        QScript script;
        QVERIFY(faultOf(script, QStringLiteral("a = Signal() b = project() c = project().sprites")).isEmpty());
        for (const char* name : {"a", "b", "c"}) {
            lua_getglobal(script.state(), name);
            const auto address = reinterpret_cast<quintptr>(lua_touserdata(script.state(), -1));
            lua_pop(script.state(), 1);
            QVERIFY2(address != 0 && address % 16 == 0, name);
        }
    }

    void runawayLoopIsStopped()
    {
        const QString tooLong = QLatin1String(QScript::tooLongMessage);
        QScript script;
        script.setInstructionLimit(2000000);
        QVERIFY(faultOf(script, QStringLiteral("while true do end")).contains(tooLong));
        // A pcall inside the script can't keep the loop alive.
        QScript guarded;
        guarded.setInstructionLimit(2000000);
        QVERIFY(faultOf(guarded, QStringLiteral("while true do pcall(function() while true do end end) end")).contains(tooLong));
        // An entry point that loops is stopped the same way.
        QScript entry;
        entry.setInstructionLimit(2000000);
        QVERIFY(faultOf(entry, QStringLiteral("function main() local i = 0 while true do i = i + 1 end end")).isEmpty());
        QVERIFY(callFault(entry, "main").contains(tooLong));
        // Each signal fired from Lua starts no fresh budget: a loop of emissions ends too.
        QScript emitting;
        emitting.setInstructionLimit(2000000);
        QVERIFY(faultOf(emitting, QStringLiteral("local s = Signal() connect(s, 'general_signal(int)', function(n) end) "
                                                 "while true do emit_signal(s, 1) end")).contains(tooLong));
        // A slot that loops, fired from C++, is stopped and reported.
        QScript slotted;
        slotted.setInstructionLimit(2000000);
        QVERIFY(faultOf(slotted, QStringLiteral("connect(project().sprites, 'changed', function() while true do end end)")).isEmpty());
        m_project->sprites()->add();
        QVERIFY(messagesContain(tooLong));
        QCOMPARE(m_project->sprites()->count(), 1);
    }

    void errorsAreReported()
    {
        QScript script;
        QVERIFY(faultOf(script, QStringLiteral("error('top level fault')")).contains(QStringLiteral("top level fault")));
        // Faults that carry no text still come back as a report.
        QVERIFY(!faultOf(script, QStringLiteral("error()")).isEmpty());
        QVERIFY(!faultOf(script, QStringLiteral("error({})")).isEmpty());
        const QString syntax = faultOf(script, QStringLiteral("this is not Lua"));
        QVERIFY2(syntax.contains(QStringLiteral("expected")) || syntax.contains(QStringLiteral("syntax error")), qPrintable(syntax));
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
        QScript slotted;
        QVERIFY(faultOf(slotted, QStringLiteral("connect(project().sprites, 'changed', function() error('fault in a slot') end)")).isEmpty());
        m_project->sprites()->add();
        QVERIFY(messagesContain(QStringLiteral("fault in a slot")));
        QCOMPARE(m_project->sprites()->count(), 1);
        // And one inside a slot that Lua fired: the code that fired it goes on.
        QVERIFY(faultOf(slotted, QStringLiteral("s = Signal() connect(s, 'general_signal(QString)', function(t) error(t) end) "
                                                "emit_signal(s, 'fired fault') after = 1")).isEmpty());
        QVERIFY(messagesContain(QStringLiteral("fired fault")));
        // What no signal can carry is refused.
        QVERIFY(faultOf(slotted, QStringLiteral("emit_signal(s, {})")).contains(QStringLiteral("can't travel")));
        QVERIFY(faultOf(slotted, QStringLiteral("emit_signal(project().sprites, 1)")).contains(QStringLiteral("Signal()")));
        QVERIFY(faultOf(slotted, QStringLiteral("connect(s, 'noSuchSignal', function() end)")).contains(QStringLiteral("no signal")));
        QVERIFY(faultOf(slotted, QStringLiteral("connect(s, 'general_signal(int)', s, 'noSuchSlot()')")).contains(QStringLiteral("no slot")));
        QVERIFY(faultOf(slotted, QStringLiteral("connect(s, 'general_signal(QString)', s, 'general_slot(int,int)')")).contains(QStringLiteral("can't take")));
    }

    void recursionOverflowsLuaNotTheProgram()
    {
        QScript script;
        QVERIFY(faultOf(script, QStringLiteral("local function f(n) return 1 + f(n + 1) end f(1)")).contains(QStringLiteral("stack overflow")));
        // Through a C function, Lua's C stack runs out first.
        QVERIFY(faultOf(script, QStringLiteral("local function f() string.gsub('a', 'a', f) end f()")).contains(QStringLiteral("stack overflow")));
        // A slot that fires itself: each level passes through Qt and luabind.
        QVERIFY(faultOf(script, QStringLiteral("depth = 0 s = Signal() connect(s, 'general_signal(int)', function(n) "
                                               "depth = n emit_signal(s, n + 1) end) emit_signal(s, 1)")).isEmpty());
        QVERIFY(messagesContain(QStringLiteral("stack overflow")));
        lua_getglobal(script.state(), "depth");
        QVERIFY(lua_tonumber(script.state(), -1) > 10);
        lua_pop(script.state(), 1);
    }

    void nilAndWrongObjectsAreReported()
    {
        QScript script;
        QVERIFY(faultOf(script, QStringLiteral("p = project() s = p.sprites:add()")).isEmpty());
        QVERIFY(faultOf(script, QStringLiteral("local x = p.sprites:at(99)")).contains(QStringLiteral("out of range")));
        QVERIFY(faultOf(script, QStringLiteral("local n = nil; return n.count")).contains(QStringLiteral("nil")));
        // A method called with nil, or another class, for its object.
        QVERIFY(!faultOf(script, QStringLiteral("return p.sprites.at(nil, 0)")).isEmpty());
        QVERIFY(!faultOf(script, QStringLiteral("return p.sprites.at(p, 0)")).isEmpty());
        QVERIFY(!faultOf(script, QStringLiteral("return p.states(nil, 0)")).isEmpty());
        QVERIFY(!faultOf(script, QStringLiteral("connect(nil, 'changed', function() end)")).isEmpty());
        QVERIFY(!faultOf(script, QStringLiteral("emit_signal(nil, 1)")).isEmpty());
        // No project at all: project() is nil.
        QLuaProjects::installed().current = nullptr;
        QVERIFY(faultOf(script, QStringLiteral("return project().sprites")).contains(QStringLiteral("nil")));
        QLuaProjects::installed().current = [this] { return m_project; };
    }

    void deletedObjectsAreReported()
    {
        QScript script;
        QVERIFY(faultOf(script, QStringLiteral("p = project() s = p.sprites:add() s2 = p.sprites:add() "
                                               "a = p.animations:add(10) f = a:frameAdd()")).isEmpty());
        // A sprite removed while the script keeps it: reading, writing and calling a method.
        m_project->sprites()->remove(0);
        QVERIFY(faultOf(script, QStringLiteral("return s.itemGroup")).contains(QStringLiteral("deleted object")));
        QVERIFY(faultOf(script, QStringLiteral("s.x = 4")).contains(QStringLiteral("deleted object")));
        QVERIFY(faultOf(script, QStringLiteral("return s:bounds()")).contains(QStringLiteral("deleted object")));
        QVERIFY(faultOf(script, QStringLiteral("return s2.itemGroup")).isEmpty());
        // An action removed under its frame.
        m_project->animations()->remove(0);
        QVERIFY(faultOf(script, QStringLiteral("return f.time")).contains(QStringLiteral("deleted object")));
        // A connection whose sender went, then the whole project closed under the script.
        QVERIFY(faultOf(script, QStringLiteral("c = connect(p.sprites, 'changed', function() end)")).isEmpty());
        delete m_project;
        m_project = nullptr;
        QVERIFY(faultOf(script, QStringLiteral("return p.sprites.count")).contains(QStringLiteral("deleted object")));
        QVERIFY(faultOf(script, QStringLiteral("return s2:bounds()")).contains(QStringLiteral("deleted object")));
        QVERIFY(faultOf(script, QStringLiteral("emit_signal(c, 1)")).isEmpty());
    }

    void connectionsDieWithTheirScript()
    {
        // The script goes while the project it listened to stays: its signals reach nothing.
        {
            QScript script;
            QVERIFY(faultOf(script, QStringLiteral("calls = 0 connect(project().sprites, 'changed', function() calls = calls + 1 end) "
                                                   "Timer.singleShot(1, function() error('too late') end)")).isEmpty());
        }
        m_project->sprites()->add();
        QTest::qWait(20);
        QCOMPARE(m_project->sprites()->count(), 1);
        QVERIFY(!messagesContain(QStringLiteral("too late")));
    }

private:
    QProject* m_project = nullptr;
};

QTEST_MAIN(TestScriptAbuse)
#include "tst_scriptabuse.moc"
