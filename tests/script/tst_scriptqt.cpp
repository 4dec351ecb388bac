// Qt's classes as scripts see them, one family per test: both forms of
// construction, properties read and written, operators, and wrong arguments
// giving a Lua error rather than a crash. The checks are written in Lua with
// assert, so a failure names the script's own line.
#include "tst_scriptqt.h"

#include "script/qluaheaders.h"
#include "script/qscript.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

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
    const char* const code = R"lua(
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
    )lua";
    QVERIFY(run(script, code));

    QVERIFY(failure(script, QStringLiteral("Rect{x = 1, widht = 3}"))
                .contains(QStringLiteral("Rect has no property 'widht'")));
    QVERIFY(failure(script, QStringLiteral("Rect{x = 'one'}")).contains(QStringLiteral("Rect.x")));
    QVERIFY(failure(script, QStringLiteral("Rect{1, 2}")).contains(QStringLiteral("no property name")));
    QVERIFY(failure(script, QStringLiteral("Polygon{1, 2}")).contains(QStringLiteral("Point")));
    QVERIFY(failure(script, QStringLiteral("Polygon():at(0)")).contains(QStringLiteral("no point 0")));
    QVERIFY(!failure(script, QStringLiteral("Rect(1, 2, 'x', 4)")).isEmpty());
    QVERIFY(!failure(script, QStringLiteral("Rect(1, 2, 3, 4):contains('a')")).isEmpty());
}

void TestScriptQt::objectVariantTimerRegExp()
{
    QScript script;
    const char* const code = R"lua(
        local t = Timer{interval = 250, objectName = "tick"}
        assert(t.interval == 250 and t.objectName == "tick" and t.className == "QTimer")
        assert(not t.isActive and t.timeout == nil and t.parent == nil)
        assert(t:setProperty("interval", 40) and t.interval == 40)
        assert(t:property("interval").value == 40 and t:property("interval").typeName == "int")
        t:setProperty("note", "kept")
        local names = t:dynamicPropertyNames()
        assert(#names == 1 and names[1] == "note" and tostring(t:property("note")) == "Variant(QString: kept)")
        assert(not t:property("nothing"):isValid())

        local v = Variant(Rect(1, 2, 3, 4))
        assert(v.typeName == "QRect" and v.value == Rect(1, 2, 3, 4))
        assert(Variant{1, 2, 3}.value[3] == 3 and Variant{a = "x"}.value.a == "x")
        assert(Variant(7) == Variant(7) and Variant(true):toBool() and Variant("12"):toInt() == 12)

        local r = RegExp("(\\w+)=(\\d+)")
        assert(r:indexIn("set speed=12 now") == 4 and r.captureCount == 2 and r:cap(1) == "speed")
        assert(r:cap(2) == "12" and r.matchedLength == 8 and r:pos(2) == 10 and r:capturedTexts()[3] == "12")
        assert(r:lastIndexIn("a=1 b=2") == 4 and not r:exactMatch("a=") and r:exactMatch("a=1"))
        local w = RegExp{pattern = "*.AIR", patternSyntax = RegExp.Wildcard, caseSensitivity = RegExp.CaseInsensitive}
        assert(w:exactMatch("kfm.air") and RegExp("a", RegExp.CaseInsensitive):exactMatch("A"))
        assert(RegExp.escape("a.b") == "a\\.b" and not RegExp("("):isValid())
        assert(RegExp("("):errorString() ~= "no error occurred")

        -- the signal as a property, and the one-shot form
        fired, ticks = 0, 0
        Timer.singleShot(5, function() fired = fired + 1 end)
        ticker = Timer(1)
        ticker.timeout = function() ticks = ticks + 1 if ticks == 3 then ticker:stop() end end
        assert(type(ticker.timeout) == "function")
        ticker:start()
    )lua";
    QVERIFY(run(script, code));
    QTRY_COMPARE(number(script, "fired"), 1.0);
    QTRY_COMPARE(number(script, "ticks"), 3.0);
    QTest::qWait(20);
    QCOMPARE(number(script, "fired"), 1.0);
    QVERIFY(run(script, "ticker.timeout = nil assert(ticker.timeout == nil)"));

    QVERIFY(failure(script, QStringLiteral("Timer{intervall = 3}"))
                .contains(QStringLiteral("Timer has no property 'intervall'")));
    QVERIFY(
        failure(script, QStringLiteral("Timer():setParent(5)")).contains(QStringLiteral("an Object or nil")));
    QVERIFY(failure(script, QStringLiteral("Timer.singleShot('soon', print)"))
                .contains(QStringLiteral("No matching")));
    QVERIFY(failure(script, QStringLiteral("Variant(print)")).contains(QStringLiteral("no Qt form")));
}

void TestScriptQt::datesAndBytes()
{
    QScript script;
    const char* const code = R"lua(
        local d = Date{year = 2024, month = 2, day = 29}
        assert(d == Date(2024, 2, 29) and d:isValid() and tostring(d) == "2024-02-29")
        assert(d:addDays(1) == Date(2024, 3, 1) and d < d:addDays(1) and d <= d and not (d < d))
        assert(d.dayOfWeek == 4 and d:daysTo(Date(2024, 3, 29)) == 29 and Date.isLeapYear(2024))
        assert(Date.fromString("2024-02-29") == d and Date.fromString("29.02.2024", "dd.MM.yyyy") == d)
        assert(d:toString("yyyy/MM/dd") == "2024/02/29" and not Date(2023, 2, 29):isValid())
        local t = Time{hour = 10, minute = 30}
        assert(t == Time(10, 30) and tostring(t) == "10:30:00" and t:addSecs(90) == Time(10, 31, 30))
        assert(t < Time(11, 0) and t:secsTo(Time(11, 0)) == 1800)
        local dt = DateTime{date = d, time = t}
        assert(dt.date == d and dt.time == t and tostring(dt) == "2024-02-29T10:30:00")
        assert(dt < dt:addSecs(1) and dt:addDays(1).date == Date(2024, 3, 1) and dt == DateTime(d, t))

        assert(Util.toInt16("\255\255") == -1 and Util.toUint16("\255\255") == 65535)
        assert(Util.toUint32("ABCD\1\0\0\0", 4) == 1 and Util.toInt8("\128") == -128)
        assert(Util.fromInt32(-2) == "\254\255\255\255" and Util.fromUint8(65) == "A")
        assert(Util.toFloat(Util.fromFloat(1.5)) == 1.5 and Util.toDouble(Util.fromDouble(-0.25)) == -0.25)
        assert(Util.showBytes("MUG\0") == "4D 55 47 00")
        assert(toString("\233t\233", "ISO-8859-1") == "été" and fromString("été", "ISO-8859-1") == "\233t\233")
        assert(fromBase64(toBase64("\0\1\2")) == "\0\1\2")
    )lua";
    QVERIFY(run(script, code));
    QVERIFY(failure(script, QStringLiteral("Util.toInt32('abc')")).contains(QStringLiteral("past the end")));
    QVERIFY(
        failure(script, QStringLiteral("Util.toInt16('abc', -1)")).contains(QStringLiteral("past the end")));
    QVERIFY(failure(script, QStringLiteral("toString('x', 'no-such-encoding')"))
                .contains(QStringLiteral("unknown encoding")));
    QVERIFY(failure(script, QStringLiteral("Date{year = 2024, mont = 1}"))
                .contains(QStringLiteral("Date has no property 'mont'")));
    QVERIFY(failure(script, QStringLiteral("Date{year = 'x'}")).contains(QStringLiteral("Date.year")));
    QVERIFY(!failure(script, QStringLiteral("return Date(1, 2, 3) < Time(1, 2)")).isEmpty());
}

void TestScriptQt::painterFamily()
{
    QScript script;
    const char* const code = R"lua(
        local red = Color{red = 255}
        assert(red == Color(255, 0, 0) and red.alpha == 255 and red.name == "#ffff0000")
        assert(Color("#80102030").alpha == 128 and Color(rgb(1, 2, 3)).blue == 3 and Color(1, 2, 3).rgb == rgb(1, 2, 3))
        assert(not Color():isValid() and tostring(red) == "Color(#ffff0000)")
        local pen = Pen{color = red, width = 3, style = Pen.DashLine}
        assert(pen.width == 3 and pen.color == red and pen.style == Pen.DashLine and Pen(red, 3).width == 3)
        local brush = Brush(Color(0, 0, 255), Brush.CrossPattern)
        assert(brush.style == Brush.CrossPattern and Brush{color = red}.color == red)
        assert(Font{family = "Sans", pointSize = 12, bold = true}.bold and Font("Sans", 9).pointSize == 9)

        -- a true-colour image
        local img = Image(20, 10, Image.Format_ARGB32)
        assert(img.format == Image.Format_ARGB32 and img.size == Size(20, 10))
        local p = Painter.begin(img)
        p:fillRect(Rect(0, 0, 20, 10), Color(255, 255, 255))
        p.pen = Pen(red)
        p:drawLine(0, 5, 19, 5)
        p:setBrush(Color(0, 255, 0))
        p:setPen(Pen{style = Pen.NoPen})
        p:drawRect(Rect(2, 1, 3, 2))
        p:done()
        assert(not p.isActive)
        assert(img:pixel(10, 5) == rgb(255, 0, 0) and img:pixel(10, 2) == rgb(255, 255, 255))
        assert(img:pixel(3, 2) == rgb(0, 255, 0))

        -- an indexed image keeps its indices where nothing was painted
        local sprite = Image(8, 8)
        sprite:setColor(0, rgb(0, 0, 0)) sprite:setColor(1, rgb(0, 0, 0)) sprite:setColor(2, rgb(250, 0, 0))
        sprite:fill(1)
        local q = Painter.begin(sprite)
        q:fillRect(0, 0, 4, 8, Color(255, 0, 0))
        q:done()
        assert(sprite:pixelIndex(0, 0) == 2 and sprite:pixelIndex(7, 7) == 1 and sprite.format == Image.Format_Indexed8)

        -- bytes of an image
        assert(sprite.bytesPerLine == 8 and sprite:getByteCount() == 64 and #sprite:getBits() == 64)
        sprite:setScanLine(3, "\0\0\0\0\0\0\0\0")
        assert(sprite:scanLine(3) == string.rep("\0", 8) and sprite:pixelIndex(5, 3) == 0)
        assert(#sprite:colorTable() == 256 and sprite:colorTable()[3] == rgb(250, 0, 0))
        local true32 = sprite:convertToFormat(Image.Format_ARGB32)
        assert(true32:pixel(0, 0) == rgb(250, 0, 0) and sprite:mirrored(true, false):pixelIndex(7, 0) == 2)
        assert(sprite:scaled(4, 4).width == 4 and sprite:copy(Rect(0, 0, 2, 2)).height == 2)
    )lua";
    QVERIFY(run(script, code));
    QVERIFY(
        failure(script, QStringLiteral("Painter.begin(5)")).contains(QStringLiteral("an Image is needed")));
    QVERIFY(failure(
        script, QStringLiteral("local p = Painter.begin(Image(2, 2)) p:done() p:drawLine(0, 0, 1, 1)"))
                .contains(QStringLiteral("painting is done")));
    QVERIFY(failure(script, QStringLiteral("Image(2, 2):scanLine(2)")).contains(QStringLiteral("no row 2")));
    QVERIFY(failure(script, QStringLiteral("Pen{colour = 1}"))
                .contains(QStringLiteral("Pen has no property 'colour'")));
    QVERIFY(!failure(script, QStringLiteral("Painter.begin(Image(2, 2)):drawRect('a')")).isEmpty());
    QVERIFY(!failure(script, QStringLiteral("Painter()")).isEmpty());
}

void TestScriptQt::fileFamily()
{
    QTemporaryDir dir;
    QScript script;
    lua_pushstring(script.state(), dir.path().toUtf8().constData());
    lua_setglobal(script.state(), "root");
    const char* const code = R"lua(
        local d = Directory(root)
        assert(d:exists() and d.count == 2 and d:mkdir("sprites") and d:mkpath("a/b"))
        local path = d:filePath("kfm.txt")
        assert(path == root .. Directory.separator() .. "kfm.txt" or path == root .. "/kfm.txt")

        local f = File{fileName = path}
        assert(f:open(File.WriteOnly) and f.isWritable and f:write("line one\n") == 9)
        assert(not File(path):exists()) -- written through a save file: not there before close
        assert(f:close() and File(path):exists() and File(path).size == 9)

        local r = File(path)
        assert(r:open(File.ReadOnly) and r:readLine() == "line one\n" and r:atEnd())
        assert(r:seek(5) and r:read(3) == "one" and r.pos == 8)
        r:close()
        local a = File(path)
        assert(a:open(File.Append) and a:write("two") == 3)
        a:close()
        assert(File(path).size == 12)

        local info = FileInfo(d, "kfm.txt")
        assert(info:exists() and info:isFile() and info.suffix == "txt" and info.baseName == "kfm" and info.size == 12)
        assert(info.dir == d and FileInfo{filePath = path}.fileName == "kfm.txt")
        assert(info.lastModified:isValid() and not FileInfo(d:filePath("none")):exists())

        local files = d:entryList({"*.txt"}, Directory.Files)
        local dirs = d:entryList(Directory.Dirs + Directory.NoDotAndDotDot)
        assert(#files == 1 and files[1] == "kfm.txt" and #dirs == 2 and dirs[1] == "a" and dirs[2] == "sprites")
        d.nameFilters = {"*.air"}
        assert(#d:entryList() == 0 and d.nameFilters[1] == "*.air")
        assert(d:rmdir("sprites") and not d:exists("sprites") and Directory{path = root} == Directory(root))
        assert(d:rename("kfm.txt", "kfm.cmd") and d:exists("kfm.cmd") and d:remove("kfm.cmd"))

        local t = TemporaryFile{fileTemplate = root .. "/tmp-XXXXXX.lua", autoRemove = true}
        assert(t:open() and t.autoRemove and t:write("return 1") == 8 and t.fileName:find("tmp%-"))
        tempName = t.fileName
        t:close()
        assert(TemporaryFile.createLocalFile(path) == nil)
    )lua";
    QVERIFY(run(script, code));
    // A file left open for writing when its script is done is committed, not lost.
    QVERIFY(run(script,
        "local f = File(root .. '/left.txt') f:open(File.WriteOnly) f:write('kept') f = nil "
        "collectgarbage()"));
    QFile left(dir.filePath(QStringLiteral("left.txt")));
    QVERIFY(left.open(QIODevice::ReadOnly));
    QCOMPARE(left.readAll(), QByteArray("kept"));
    QVERIFY(run(script, "collectgarbage()"));
    lua_getglobal(script.state(), "tempName");
    const QString temporary = QString::fromUtf8(lua_tostring(script.state(), -1));
    lua_pop(script.state(), 1);
    QVERIFY(!QFile::exists(temporary));

    QVERIFY(failure(script, QStringLiteral("File{name = 'x'}"))
                .contains(QStringLiteral("File has no property 'name'")));
    QVERIFY(!failure(script, QStringLiteral("File(5, 6)")).isEmpty());
    QVERIFY(!failure(script, QStringLiteral("Directory(root):entryList('*.txt')")).isEmpty());
    QVERIFY(run(script,
        "local f = File(root .. '/nowhere/x.txt') assert(not f:open(File.WriteOnly) and f.errorString ~= "
        "'')"));
}

double TestScriptQt::number(QScript& script, const char* name)
{
    lua_getglobal(script.state(), name);
    const double value = lua_tonumber(script.state(), -1);
    lua_pop(script.state(), 1);
    return value;
}

QTEST_MAIN(TestScriptQt)
