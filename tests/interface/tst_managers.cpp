// The presentation managers on their own: scaled styles, and what each does
// with a file that is missing, broken or half right. A broken file starts
// with defaults and a report, never a crash.
#include "managers/gui/qhistorymanager.h"
#include "managers/qactionmanager.h"
#include "managers/qcolorsetmanager.h"
#include "managers/qconfigmanager.h"
#include "managers/qiconmanager.h"
#include "managers/qpresetmanager.h"
#include "managers/qstylesheetmanager.h"
#include "qrecordingprompt.h"

#include <QAction>
#include <QMenu>
#include <QTemporaryDir>
#include <QtTest>

namespace {

void write(const QString& fileName, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(fileName).absolutePath());
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

class TestManagers : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QRecordingPrompt m_prompt;

    QString path(const QString& name) const { return m_dir.filePath(name); }

private slots:
    void init()
    {
        m_prompt.clear();
        if (!configMan)
            configMan = new QConfigManager;
    }

    void cleanupTestCase()
    {
        delete configMan;
        configMan = nullptr;
    }

    void styleSizesFollowTheScreen()
    {
        QCOMPARE(QStylesheetManager::resolve(QStringLiteral("QToolBar { padding: [16]px; spacing: [3]px; }"), 144,
                                             QStringLiteral("/s")),
                 QStringLiteral("QToolBar { padding: 24px; spacing: 4px; }"));
        QCOMPARE(QStylesheetManager::resolve(QStringLiteral("a { image: url(arrow.png); width: [16]px }"), 96,
                                             QStringLiteral("/styles/Dark")),
                 QStringLiteral("a { image: url(/styles/Dark/arrow.png); width: 16px }"));

        write(path(QStringLiteral("styles/Big/Stylesheet.css")), "QToolButton { padding: [16]px; }");
        QStylesheetManager styles(path(QStringLiteral("styles")));
        QCOMPARE(styles.names(), QStringList{QStringLiteral("Big")});
        QCOMPARE(styles.sheet(QStringLiteral("Big"), 144), QStringLiteral("QToolButton { padding: 24px; }"));
        QCOMPARE(styles.sheet(QStringLiteral("Missing"), 144), QString());
    }

    void brokenShortcutsKeepDefaultsAndReport()
    {
        QActionManager actions;
        QAction* open = actions.add({QActionManager::global}, QStringLiteral("file_open"), "Open");
        QAction* save = actions.add({QActionManager::global}, QStringLiteral("file_save"), "Save");
        actions.setShortcut(open, QKeySequence(QKeySequence::Open));
        write(path(QStringLiteral("shortcuts.xml")),
              "<shortcuts><shortcut action=\"file_save\" keys=\"Ctrl+S\"/>"
              "<shortcut action=\"no_such_action\" keys=\"Ctrl+K\"/><shortcut action=\"file_open\" keys=");
        QVERIFY(!actions.shortcutsFromFile(path(QStringLiteral("shortcuts.xml"))));
        QCOMPARE(m_prompt.count(QStringLiteral("critical")), 1);
        QCOMPARE(m_prompt.entries().first().title, QStringLiteral("XML Error"));
        QVERIFY(m_prompt.entries().first().text.contains(QStringLiteral("shortcuts.xml")));
        QCOMPARE(actions.shortcut(save), QKeySequence(QStringLiteral("Ctrl+S"))); // read before the fault
        QCOMPARE(actions.shortcut(open), QKeySequence(QKeySequence::Open));
        QVERIFY(!actions.shortcutsFromFile(path(QStringLiteral("absent.xml"))));
        QCOMPARE(m_prompt.count(QStringLiteral("critical")), 1); // absent is quiet
    }

    void historyKeepsItsOrderAndLimit()
    {
        (*configMan)[QStringLiteral("max_history")] = 3;
        QMenu menu;
        QHistoryManager history(&menu, path(QStringLiteral("history.xml")));
        for (const char* name : {"a", "b", "c", "d"})
            history.addEntry(QStringLiteral("/p/%1.def").arg(QLatin1String(name)), QString::fromLatin1(name).toUpper());
        QCOMPARE(history.files(), (QStringList{QStringLiteral("/p/d.def"), QStringLiteral("/p/c.def"),
                                               QStringLiteral("/p/b.def")}));
        history.addEntry(QStringLiteral("/p/b.def"), QStringLiteral("B2"));
        QCOMPARE(history.files().first(), QStringLiteral("/p/b.def"));
        QCOMPARE(history.names().first(), QStringLiteral("B2"));
        QCOMPARE(menu.actions().size(), 3 + 3); // entries, separator, "Open all", "Clear"
        QVERIFY(history.save());

        QHistoryManager again(nullptr, path(QStringLiteral("history.xml")));
        QVERIFY(again.load());
        QCOMPARE(again.files(), history.files());
        QCOMPARE(again.names(), history.names());

        write(path(QStringLiteral("history.xml")), "<history><entry file=\"/p/x.def\" name=\"X\"/><entry file=");
        QVERIFY(!again.load());
        QCOMPARE(again.files(), QStringList{QStringLiteral("/p/x.def")});
        QCOMPARE(m_prompt.entries().last().title, QStringLiteral("XML Error"));
    }

    void colourSetsTakeWhatIsRight()
    {
        write(path(QStringLiteral("colorsets/Mixed.xml")),
              "<colorset><color name=\"keyword\" value=\"1,2,3\"/><color name=\"line\" value=\"10,20,30\" "
              "italic=\"true\"/><color name=\"comment\" value=\"red\"/><color name=\"trigger\" value=\"400,0,0\"/>"
              "</colorset>");
        write(path(QStringLiteral("colorsets/Broken.xml")), "<colorset><color name=\"line\" value=\"1,1,1\"/><oops");
        QColorsetManager colours(path(QStringLiteral("colorsets")));
        const QColor builtInComment = colours.color(QStringLiteral("comment"));
        QVERIFY(colours.load(QStringLiteral("Mixed")));
        QCOMPARE(colours.color(QStringLiteral("line")), QColor(10, 20, 30));
        QVERIFY(colours.italic(QStringLiteral("line")));
        QCOMPARE(colours.color(QStringLiteral("comment")), builtInComment); // not a colour: kept
        QCOMPARE(colours.color(QStringLiteral("trigger")), QColor(255, 0, 0)); // clamped
        QVERIFY(!colours.load(QStringLiteral("Broken")));
        QCOMPARE(m_prompt.entries().last().title, QStringLiteral("XML Error"));
        QCOMPARE(colours.color(QStringLiteral("line")), QColor(1, 1, 1));
        QCOMPARE(colours.color(QStringLiteral("comment")), builtInComment);
        QVERIFY(!colours.load(QStringLiteral("Absent")));

        QVERIFY(colours.save(path(QStringLiteral("saved.xml")), true));
        QColorsetManager reread(path(QStringLiteral("colorsets")));
        QVERIFY(reread.load(path(QStringLiteral("saved.xml")), true));
        QCOMPARE(reread.color(QStringLiteral("line")), QColor(1, 1, 1));
    }

    void presetsFallBackAndYieldToChoices()
    {
        write(path(QStringLiteral("presets/Classic.xml")),
              "<preset><value key=\"iconset\" value=\"Classic\"/><value key=\"iconsize\" value=\"24,24\"/>"
              "<value key=\"separator\" value=\"1,2,3\"/><value key=\"panel-metric\" value=\"wide\"/>"
              "<panel area=\"editor\" name=\"sprites\" metric=\"240,30\"/></preset>");
        write(path(QStringLiteral("presets/Broken.xml")), "<preset><value key=\"iconsize\" value=\"32,32\"/><value");
        QPresetManager presets(path(QStringLiteral("presets")));
        const QPresetManager::Look& look = presets.apply(QStringLiteral("Unknown"), QString(), QStringLiteral("Mine"), QString());
        QCOMPARE(look.preset, QStringLiteral("Classic"));
        QCOMPARE(look.iconset, QStringLiteral("Classic"));
        QCOMPARE(look.stylesheet, QStringLiteral("Mine")); // an explicit choice wins
        QCOMPARE(look.iconSize, QSize(24, 24));
        QCOMPARE(look.separator, QColor(1, 2, 3));
        QCOMPARE(look.panelMetric, QSize(220, 24)); // wrong form: default
        QCOMPARE(presets.panelMetric(QStringLiteral("editor"), QStringLiteral("sprites")), QSize(240, 30));
        QCOMPARE(presets.panelMetric(QStringLiteral("editor"), QStringLiteral("states")), QSize(220, 24));

        QCOMPARE(presets.apply(QStringLiteral("Broken"), {}, {}, {}).iconSize, QSize(32, 32));
        QCOMPARE(m_prompt.entries().last().title, QStringLiteral("XML Error"));
        QCOMPARE(QPresetManager::scaleToDPI(16, 144), 24);
    }

    void secondLanguageIsComplete()
    {
        // The shipped translation covers every text, so switching is real.
        QFile ts(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data/languages/de-de/pugilforge.ts"));
        QVERIFY(ts.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&ts);
        int messages = 0;
        while (xml.readNextStartElement() || !xml.atEnd()) {
            if (xml.isStartElement() && xml.name() == QLatin1String("message"))
                ++messages;
            if (xml.isStartElement() && xml.name() == QLatin1String("translation")) {
                const bool unfinished = xml.attributes().value(QLatin1String("type")) == QLatin1String("unfinished");
                QVERIFY2(!unfinished, qPrintable(QStringLiteral("line %1").arg(xml.lineNumber())));
            }
        }
        QVERIFY(messages > 150);
        QVERIFY(QFile::exists(qEnvironmentVariable("PF_BIN_DIR") + QStringLiteral("/languages/de-de/pugilforge.qm")));
    }

    void iconsComeFromTheSetOrNotAtAll()
    {
        write(path(QStringLiteral("iconsets/Mine/Iconset.xml")),
              "<iconset><icon name=\"file_open\" file=\"open.svg\"/><icon name=\"file_save\" file=\"gone.svg\"/>"
              "</iconset>");
        write(path(QStringLiteral("iconsets/Mine/open.svg")),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"16\" height=\"16\"><rect width=\"16\" height=\"16\"/></svg>");
        QIconManager icons(path(QStringLiteral("iconsets")));
        QActionManager actions;
        QAction* open = actions.add({QActionManager::global}, QStringLiteral("file_open"), "Open");
        QAction* save = actions.add({QActionManager::global}, QStringLiteral("file_save"), "Save");
        QAction* exit = actions.add({QActionManager::global}, QStringLiteral("file_exit"), "Exit");
        QVERIFY(icons.apply(QStringLiteral("Mine"), &actions));
        QVERIFY(!open->icon().isNull());
        QVERIFY(save->icon().isNull()); // its file is missing
        QVERIFY(exit->icon().isNull()); // the set doesn't name it
        QVERIFY(!icons.apply(QStringLiteral("Absent"), &actions));
        QCOMPARE(icons.current(), QStringLiteral("Mine"));
    }
};

QTEST_MAIN(TestManagers)
#include "tst_managers.moc"
