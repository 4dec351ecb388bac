// Qt's classes as scripts see them, one family per test: both forms of
// construction, properties read and written, operators, and wrong arguments
// giving a Lua error rather than a crash. The checks are written in Lua with
// assert, so a failure names the script's own line.
#include "script/qluaheaders.h"
#include "script/qscript.h"

#include <QtTest>

class TestScriptQt : public QObject
{
    Q_OBJECT

private slots:
    void rectFamily();

private:
    /// Runs `code` in `script`, failing the test with the Lua message when it raises.
    static bool run(QScript& script, const char* code);
    /// The Lua message of `code`, which must raise.
    static QString failure(QScript& script, const QString& code);
};

bool TestScriptQt::run(QScript& script, const char* code)
{
    try {
        script.fromString(QString::fromUtf8(code));
        return true;
    } catch (const std::exception& error) {
        qWarning().noquote() << script.describe(error);
        return false;
    }
}

QString TestScriptQt::failure(QScript& script, const QString& code)
{
    try {
        script.fromString(code);
    } catch (const std::exception&) {
        return script.errorMessage();
    }
    return QString();
}

void TestScriptQt::rectFamily()
{
    QScript script;
    QVERIFY(run(script, R"lua(
        local a, b = Rect{x = 1, y = 2, width = 3, height = 4}, Rect(1, 2, 3, 4)
        assert(a == b and a.right == 3 and a.bottom == 5)
        -- in any order of the table the rectangle is the same
        assert(Rect{width = 3, height = 4, y = 2, x = 1} == b)
        a.x = 10
        assert(a.width == 3 and a.left == 10, tostring(a))
        a.left = 8
        assert(a.width == 5 and tostring(a) == "Rect(8, 2, 5, 4)", tostring(a))
        assert(b:contains(Point(2, 3)) and b:contains(3, 5) and not b:contains(4, 5))
        assert(b:intersected(Rect(2, 0, 10, 3)) == Rect(2, 2, 2, 1))
        assert(Rect(Point(1, 1), Size(2, 2)).bottomRight == Point(2, 2))
        assert(Point{x = 2, y = 3} + Point(1, 1) == Point(3, 4) and Point(4, 4) * 0.5 == Point(2, 2))
        assert(Size{width = 5, height = 6} == Size(5, 6) and Margins{left = 1} == Margins(1, 0, 0, 0))
        local l = Line{p1 = Point(0, 0), p2 = Point(3, 4)}
        assert(l.dx == 3 and l.dy == 4 and l == Line(0, 0, 3, 4))

        local p = Polygon{Point(1, 1), Point(5, 1)}
        p:push_back(Point(5, 5))
        p:push_front(Point(0, 0))
        assert(p.count == 4 and p:at(0) == Point(0, 0) and p:at(3) == Point(5, 5))
        assert(p.boundingRect == Rect(0, 0, 6, 6))

        local r = Region(0, 0, 10, 10)
        local hole = r - Region(2, 2, 2, 2)
        assert(hole ~= r and not hole:contains(Point(2, 2)) and hole:contains(Point(5, 5)))
        assert(hole + Region(2, 2, 2, 2) == r)
        assert(#r:rects() == 1 and r.boundingRect == Rect(0, 0, 10, 10))
    )lua"));

    QVERIFY(failure(script, QStringLiteral("Rect{x = 1, widht = 3}")).contains(QStringLiteral("Rect has no property 'widht'")));
    QVERIFY(failure(script, QStringLiteral("Rect{x = 'one'}")).contains(QStringLiteral("Rect.x")));
    QVERIFY(failure(script, QStringLiteral("Rect{1, 2}")).contains(QStringLiteral("no property name")));
    QVERIFY(failure(script, QStringLiteral("Polygon{1, 2}")).contains(QStringLiteral("Point")));
    QVERIFY(failure(script, QStringLiteral("Polygon():at(0)")).contains(QStringLiteral("no point 0")));
    QVERIFY(!failure(script, QStringLiteral("Rect(1, 2, 'x', 4)")).isEmpty());
    QVERIFY(!failure(script, QStringLiteral("Rect(1, 2, 3, 4):contains('a')")).isEmpty());
}

QTEST_MAIN(TestScriptQt)
#include "tst_scriptqt.moc"
