#include "util/qengineversion.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <QtTest>

// The vocabulary files are data that people edit by hand. These tests read
// them with a plain XML reader, independent of the checker that uses them, so
// that a slip in the file shows up here as a named fault rather than as a
// silently unknown controller in the editor.

namespace {

/// One named entry of the vocabulary, with the attributes that decide when
/// the checker accepts it.
struct Entry
{
    QString minver;
    QString deprecated;
};

/// What the tests need of syntax_mugen.xml, and the schema faults met reading it.
struct Vocabulary
{
    QHash<QString, Entry> controllers; // lower-case name -> entry
    QHash<QString, Entry> triggers;
    QSet<QString> consts;
    QSet<QString> containers; // "state_controller:*", "bg_control:parallax", "files", ...
    QStringList includes;     // "container -> included controller", checked once all is read
    QStringList faults;
};

const QStringList valueTypes = {
    QStringLiteral("int"),       QStringLiteral("int2"),        QStringLiteral("int3"),
    QStringLiteral("intn"),      QStringLiteral("intfloat3"),   QStringLiteral("intfloat3opt"),
    QStringLiteral("float"),     QStringLiteral("float2"),      QStringLiteral("float2opt"),
    QStringLiteral("float3"),    QStringLiteral("exp"),         QStringLiteral("exp2"),
    QStringLiteral("exp2value"), QStringLiteral("exp3"),        QStringLiteral("exp4"),
    QStringLiteral("expn"),      QStringLiteral("exp2opt"),     QStringLiteral("exp3nil"),
    QStringLiteral("string"),    QStringLiteral("strexp"),      QStringLiteral("strexp2"),
    QStringLiteral("strexp2nil"), QStringLiteral("expstr"),     QStringLiteral("expstrexp2"),
    QStringLiteral("value")};

// The types whose entries carry the words of their value in reg_exp.
const QStringList typesWithWords = {
    QStringLiteral("exp2value"), QStringLiteral("strexp"),     QStringLiteral("strexp2"),
    QStringLiteral("strexp2nil"), QStringLiteral("expstrexp2"), QStringLiteral("expstr"),
    QStringLiteral("value"),     QStringLiteral("string")};

const QStringList entrySections = {QStringLiteral("state_controller"), QStringLiteral("bg_controller"),
                                   QStringLiteral("bg_control")};

const QStringList keySections = {
    QStringLiteral("fnt_def"),    QStringLiteral("files"),          QStringLiteral("arcade"),
    QStringLiteral("data"),       QStringLiteral("size"),           QStringLiteral("velocity"),
    QStringLiteral("movement"),   QStringLiteral("camera"),         QStringLiteral("playerinfo"),
    QStringLiteral("bound"),      QStringLiteral("scaling"),        QStringLiteral("stageinfo"),
    QStringLiteral("shadow"),     QStringLiteral("reflection"),     QStringLiteral("music"),
    QStringLiteral("bgdef"),      QStringLiteral("bg_control_def"), QStringLiteral("fnt"),
    QStringLiteral("scene_def"),  QStringLiteral("scene")};

QString dataFile(const QString& name)
{
    return QDir(qEnvironmentVariable("PF_SOURCE_DIR")).filePath(QStringLiteral("data/") + name);
}

QString docsDir()
{
    QString dir = qEnvironmentVariable("PF_DOCS");
    if (dir.isEmpty())
        dir = QDir(qEnvironmentVariable("PF_REALDATA")).filePath(QStringLiteral("../docs"));
    return QDir(dir).exists() ? QDir(dir).absolutePath() : QString();
}

/// A version attribute as a packed number, or -1 when it names no release.
qint64 releaseOf(const QString& text)
{
    const QString word = text.section(QLatin1Char(' '), 0, 0);
    if (word == QLatin1String("Beta"))
        return engineVersion::beta;
    const unsigned int version = getVersion(word);
    if (word.isEmpty() || (version != engineVersion::v1_0 && version != engineVersion::v1_1))
        return -1;
    return version;
}

/// Checks the attributes of one const, param or trigger element.
void checkKey(const QXmlStreamAttributes& a, const QString& where, bool needsType, QStringList& faults)
{
    const QString name = a.value(QLatin1String("name")).toString();
    const QString type = a.value(QLatin1String("type")).toString();
    const QString at = where + QLatin1Char('/') + name;
    if (name.isEmpty())
        faults << where + QStringLiteral(": entry without a name");
    if (needsType && !valueTypes.contains(type))
        faults << at + QStringLiteral(": unknown type '%1'").arg(type);
    if (type == QLatin1String("intn") && a.value(QLatin1String("max")).toInt() < 1)
        faults << at + QStringLiteral(": intn without a positive max");
    if (a.hasAttribute(QLatin1String("reg_exp")) && !typesWithWords.contains(type))
        faults << at + QStringLiteral(": reg_exp on type '%1', which reads none").arg(type);
    const QString format = a.value(QLatin1String("format")).toString();
    if (!format.isEmpty() && format != QLatin1String("name") && format != QLatin1String("func")
        && format != QLatin1String("regexp"))
        faults << at + QStringLiteral(": unknown format '%1'").arg(format);
    for (const QString& attribute : {QStringLiteral("reg_exp"), QStringLiteral("fmt_reg_exp")}) {
        if (a.hasAttribute(attribute)
            && !QRegularExpression(a.value(attribute).toString()).isValid())
            faults << at + QStringLiteral(": invalid %1").arg(attribute);
    }
    if (format == QLatin1String("regexp") && !a.hasAttribute(QLatin1String("fmt_reg_exp")))
        faults << at + QStringLiteral(": regexp format without fmt_reg_exp");
    if (where != QLatin1String("trigger") && type == QLatin1String("value")
        && !a.hasAttribute(QLatin1String("reg_exp")) && name != QLatin1String("type"))
        faults << at + QStringLiteral(": value without the reg_exp of its words");
    // A value read by its first letter lists plain words, the letter's meaning first.
    static const QRegularExpression words(QStringLiteral("^[a-z]+(\\|[a-z]+)*$"));
    if (a.hasAttribute(QLatin1String("first_letter"))
        && (type != QLatin1String("value") || !words.match(a.value(QLatin1String("reg_exp"))).hasMatch()))
        faults << at + QStringLiteral(": first_letter needs a value of plain words");
}

/// Checks minver and deprecated, which any entry may carry.
Entry checkVersions(const QXmlStreamAttributes& a, const QString& at, QStringList& faults)
{
    Entry entry{a.value(QLatin1String("minver")).toString(),
                a.value(QLatin1String("deprecated")).toString()};
    if (a.hasAttribute(QLatin1String("minver")) && entry.minver != QLatin1String("1.0")
        && entry.minver != QLatin1String("1.1"))
        faults << at + QStringLiteral(": minver '%1' is neither 1.0 nor 1.1").arg(entry.minver);
    if (a.hasAttribute(QLatin1String("deprecated"))) {
        const qint64 since = releaseOf(entry.deprecated);
        if (since < 0)
            faults << at + QStringLiteral(": deprecated '%1' names no release").arg(entry.deprecated);
        else if (!entry.minver.isEmpty() && since < releaseOf(entry.minver))
            faults << at + QStringLiteral(": deprecated before it was added");
    }
    return entry;
}

Vocabulary readVocabulary(const QString& fileName)
{
    Vocabulary v;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        v.faults << QStringLiteral("cannot open ") + fileName;
        return v;
    }
    QXmlStreamReader xml(&file);
    QString section;  // element directly under the root
    QString container; // section plus entry name, for the names of params
    QSet<QString> seen;  // lower-case names inside the current container
    int depth = 0;
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement) {
            --depth;
            continue;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        ++depth;
        const QString tag = xml.name().toString();
        const QXmlStreamAttributes a = xml.attributes();
        const QString name = a.value(QLatin1String("name")).toString();
        const QString at = container.isEmpty() ? tag : container;
        if (depth == 1) {
            if (tag != QLatin1String("syntax"))
                v.faults << QStringLiteral("root element is '%1'").arg(tag);
        } else if (depth == 2) {
            section = tag;
            seen.clear();
            container = entrySections.contains(tag) ? tag + QLatin1Char(':') + name : tag;
            if (tag != QLatin1String("trigger")) {
                if (v.containers.contains(container))
                    v.faults << container + QStringLiteral(": appears twice");
                v.containers.insert(container);
            }
            if (tag == QLatin1String("trigger")) {
                checkKey(a, tag, true, v.faults);
                if (v.triggers.contains(name.toLower()))
                    v.faults << QStringLiteral("trigger/%1: appears twice").arg(name);
                v.triggers.insert(name.toLower(), checkVersions(a, tag + QLatin1Char('/') + name, v.faults));
                container.clear();
            } else if (tag == QLatin1String("state_controller")) {
                v.controllers.insert(name.toLower(), checkVersions(a, container, v.faults));
            } else if (!entrySections.contains(tag) && !keySections.contains(tag)
                       && tag != QLatin1String("consts")) {
                v.faults << QStringLiteral("unknown section '%1'").arg(tag);
            }
        } else if (depth == 3 && tag == QLatin1String("include")) {
            if (!entrySections.contains(section))
                v.faults << at + QStringLiteral(": include outside a controller");
            v.includes << section + QLatin1Char(':') + a.value(QLatin1String("controller")).toString().toLower();
        } else if (depth == 3) {
            const QString expected = section == QLatin1String("consts") ? QStringLiteral("const")
                                                                         : QStringLiteral("param");
            if (tag != expected)
                v.faults << at + QStringLiteral(": '%1' where '%2' belongs").arg(tag, expected);
            checkKey(a, at, tag == QLatin1String("param"), v.faults);
            checkVersions(a, at + QLatin1Char('/') + name, v.faults);
            if (seen.contains(name.toLower()))
                v.faults << at + QStringLiteral("/%1: appears twice").arg(name);
            seen.insert(name.toLower());
            if (tag == QLatin1String("const"))
                v.consts.insert(name.toLower());
        } else {
            v.faults << at + QStringLiteral(": element '%1' nested too deep").arg(tag);
        }
    }
    if (xml.hasError())
        v.faults << QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString());
    QSet<QString> lowered;
    for (const QString& container : std::as_const(v.containers))
        lowered.insert(container.toLower());
    for (const QString& included : std::as_const(v.includes)) {
        if (!lowered.contains(included))
            v.faults << included + QStringLiteral(": included controller does not exist");
    }
    return v;
}

/// The names listed in the index of a reference page of the engine: the
/// contents block of the 1.x pages, or every in-page link of the Beta ones,
/// with the markers "(math)", "(*,***)" and the like taken off.
QStringList indexNames(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString html = QString::fromLatin1(file.readAll());
    const qsizetype contents = html.indexOf(QLatin1String("class=\"contents topic\""));
    if (contents >= 0)
        html = html.mid(contents, html.indexOf(QLatin1String("</div>"), contents) - contents);
    static const QRegularExpression link(QStringLiteral("<a [^>]*href=\"#[^\"]*\"[^>]*>([^<]+)</a>"));
    static const QRegularExpression marker(QStringLiteral("\\s*\\(.*$"));
    QStringList names;
    for (const QRegularExpressionMatch& m : link.globalMatch(html)) {
        const QString name = m.captured(1).remove(marker).trimmed();
        if (!name.startsWith(QLatin1String("About ")) && !name.contains(QLatin1Char(' '))
            && !names.contains(name))
            names << name;
    }
    return names;
}

QString str(const char* text)
{
    return QString::fromLatin1(text);
}

QString versionLabel(const QString& minver)
{
    return minver.isEmpty() ? QStringLiteral("Beta") : minver;
}

} // namespace

class TestVocabulary : public QObject
{
    Q_OBJECT

private slots:
    void filesAreWellFormed_data();
    void filesAreWellFormed();
    void schemaIsFollowed();
    void versionsOfKnownChanges_data();
    void versionsOfKnownChanges();
    void indexesAreCovered_data();
    void indexesAreCovered();
    void constantsAreCovered();
    void luaNamesArePresent();
};

void TestVocabulary::filesAreWellFormed_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("mugen") << QStringLiteral("syntax_mugen.xml");
    QTest::newRow("lua") << QStringLiteral("syntax_lua.xml");
}

void TestVocabulary::filesAreWellFormed()
{
    QFETCH(QString, file);
    QFile in(dataFile(file));
    QVERIFY2(in.open(QIODevice::ReadOnly), qPrintable(in.fileName()));
    QXmlStreamReader xml(&in);
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name().toString(), QStringLiteral("syntax"));
    while (!xml.atEnd())
        xml.readNext();
    QVERIFY2(!xml.hasError(), qPrintable(QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString())));
}

void TestVocabulary::schemaIsFollowed()
{
    const Vocabulary v = readVocabulary(dataFile(QStringLiteral("syntax_mugen.xml")));
    QVERIFY2(v.faults.isEmpty(), qPrintable(v.faults.join(QLatin1Char('\n'))));
    // Shared entries of every [State], [BG] and [BGCtrl] block.
    for (const char* shared : {"state_controller:*", "bg_control:*", "bg_controller:*"})
        QVERIFY2(v.containers.contains(QLatin1String(shared)), shared);
    for (const QString& section : keySections)
        QVERIFY2(v.containers.contains(section), qPrintable(section));
}

void TestVocabulary::versionsOfKnownChanges_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("minver");
    QTest::addColumn<QString>("deprecatedSince");
    QTest::newRow("RemapPal came with 1.0") << str("controller") << str("remappal") << str("1.0") << str("");
    QTest::newRow("VictoryQuote came with 1.0") << str("controller") << str("victoryquote") << str("1.0") << str("");
    // The engine's own files still use MakeDust at 1.0: no notice for it.
    QTest::newRow("MakeDust not flagged") << str("controller") << str("makedust") << str("") << str("");
    QTest::newRow("GameMakeAnim deprecated in Beta") << str("controller") << str("gamemakeanim") << str("") << str("Beta");
    QTest::newRow("Cond came with 1.0") << str("trigger") << str("cond") << str("1.0") << str("");
    QTest::newRow("ScreenWidth came with 1.1") << str("trigger") << str("screenwidth") << str("1.1") << str("");
    QTest::newRow("TimeMod deprecated in Beta") << str("trigger") << str("timemod") << str("") << str("Beta");
    QTest::newRow("Time always there") << str("trigger") << str("time") << str("") << str("");
}

void TestVocabulary::versionsOfKnownChanges()
{
    QFETCH(QString, kind);
    QFETCH(QString, name);
    QFETCH(QString, minver);
    QFETCH(QString, deprecatedSince);
    const Vocabulary v = readVocabulary(dataFile(QStringLiteral("syntax_mugen.xml")));
    const QHash<QString, Entry>& table = kind == QLatin1String("trigger") ? v.triggers : v.controllers;
    QVERIFY(table.contains(name));
    const Entry entry = table.value(name);
    QCOMPARE(entry.minver, minver);
    QCOMPARE(entry.deprecated.section(QLatin1Char(' '), 0, 0), deprecatedSince);
}

void TestVocabulary::indexesAreCovered_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("release"); // "Beta", "1.0" or "1.1"
    QTest::addColumn<QString>("previousPage"); // the same index one release earlier
    const QString beta = QStringLiteral("elecbyte-mugen-2002-beta-via-paintown/");
    const QString v10 = QStringLiteral("elecbyte-mugen-1.0/docs/");
    const QString v11 = QStringLiteral("elecbyte-mugen-1.1b1/docs/");
    for (const QString& page : {QStringLiteral("sctrls.html"), QStringLiteral("trigger.html")}) {
        QTest::addRow("%s 1.1", qPrintable(page)) << v11 + page << str("1.1") << v10 + page;
        QTest::addRow("%s 1.0", qPrintable(page)) << v10 + page << str("1.0") << beta + page;
        QTest::addRow("%s Beta", qPrintable(page)) << beta + page << str("Beta") << QString();
    }
}

void TestVocabulary::indexesAreCovered()
{
    QFETCH(QString, page);
    QFETCH(QString, release);
    QFETCH(QString, previousPage);
    const QString docs = docsDir();
    if (docs.isEmpty())
        QSKIP("engine documentation not found: set PF_DOCS or place ../shared/docs");
    const QStringList names = indexNames(QDir(docs).filePath(page));
    QVERIFY2(names.size() > 50, qPrintable(QStringLiteral("no index read from ") + page));
    const QStringList earlier = previousPage.isEmpty()
                                    ? QStringList()
                                    : indexNames(QDir(docs).filePath(previousPage));

    const Vocabulary v = readVocabulary(dataFile(QStringLiteral("syntax_mugen.xml")));
    const QHash<QString, Entry>& table =
        page.endsWith(QLatin1String("sctrls.html")) ? v.controllers : v.triggers;
    QStringList faults;
    for (const QString& name : names) {
        if (!table.contains(name.toLower())) {
            faults << name + QStringLiteral(": missing");
            continue;
        }
        const QString minver = versionLabel(table.value(name.toLower()).minver);
        // A name new in this release must say so; an older one must not claim a later start.
        const bool isNew = !previousPage.isEmpty() && !earlier.contains(name, Qt::CaseInsensitive);
        if (isNew ? minver != release : releaseOf(minver) > releaseOf(release))
            faults << name + QStringLiteral(": minver %1 in the %2 index").arg(minver, release);
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QLatin1Char('\n'))));
}

void TestVocabulary::constantsAreCovered()
{
    const QString docs = docsDir();
    if (docs.isEmpty())
        QSKIP("engine documentation not found: set PF_DOCS or place ../shared/docs");
    QFile page(QDir(docs).filePath(QStringLiteral("elecbyte-mugen-1.1b1/docs/trigger.html")));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString html = QString::fromLatin1(page.readAll());
    static const QRegularExpression item(
        QStringLiteral("<li>((?:data|size|velocity|movement)\\.[A-Za-z_.]+):"));
    const Vocabulary v = readVocabulary(dataFile(QStringLiteral("syntax_mugen.xml")));
    int listed = 0;
    QStringList missing;
    for (const QRegularExpressionMatch& m : item.globalMatch(html)) {
        ++listed;
        if (!v.consts.contains(m.captured(1).toLower()))
            missing << m.captured(1);
    }
    QVERIFY(listed > 60);
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
}

void TestVocabulary::luaNamesArePresent()
{
    QFile in(dataFile(QStringLiteral("syntax_lua.xml")));
    QVERIFY(in.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&in);
    QSet<QString> keywords;
    QSet<QString> members; // "string.format", "_G.print"
    QString library;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.attributes().value(QLatin1String("name")).toString();
        if (xml.name() == QLatin1String("library") || xml.name() == QLatin1String("methods"))
            library = name;
        else if (xml.name() == QLatin1String("keyword"))
            keywords.insert(name);
        else if (xml.name() == QLatin1String("function") || xml.name() == QLatin1String("variable"))
            members.insert(library + QLatin1Char('.') + name);
    }
    QVERIFY(!xml.hasError());
    // Lua 5.2 has exactly these 22 reserved words.
    QCOMPARE(keywords.size(), 22);
    for (const char* word : {"goto", "local", "function", "until", "elseif"})
        QVERIFY2(keywords.contains(QLatin1String(word)), word);
    for (const char* member : {"_G.print", "_G.pcall", "_G.rawlen", "string.format", "table.unpack",
                               "math.pi", "bit32.band", "io.open", "os.time", "coroutine.wrap",
                               "file.read"})
        QVERIFY2(members.contains(QLatin1String(member)), member);
}

QTEST_GUILESS_MAIN(TestVocabulary)
#include "tst_vocabulary.moc"
