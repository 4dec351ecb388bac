#include "managers/qconfigmanager.h"
#include "qrecordingprompt.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TestConfig : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

    QString write(const QString& name, const QByteArray& content)
    {
        const QString path = m_dir.filePath(name);
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(content);
        return path;
    }

private slots:
    void defaultsWithoutFile()
    {
        QConfigManager config;
        QCOMPARE(QConfigManager::defaultCount(), 63);
        QCOMPARE(config.values().size(), 63);
        QVERIFY(!config.fromFile(m_dir.filePath(QStringLiteral("missing.xml"))));
        QCOMPARE(config.values().size(), 63);
        QCOMPARE(config.value(QStringLiteral("language")).toString(), QStringLiteral("en-us"));
        QCOMPARE(config.value(QStringLiteral("window_height")).toInt(), 750);
        QCOMPARE(config.value(QStringLiteral("font_name")).toString(), QStringLiteral("Courier"));
        QVERIFY(config.value(QStringLiteral("save_only_modified")).toBool());
        QVERIFY(!config.value(QStringLiteral("use_opengl")).toBool());
        QVERIFY(config.mugens().isEmpty());
    }

    void roundTripKeepsEveryValue()
    {
        QRecordingPrompt prompt;
        QConfigManager config;
        config[QStringLiteral("zoom_level")] = 5;
        config[QStringLiteral("confirm_close")] = false;
        config[QStringLiteral("proj_path")] = QStringLiteral("/home/author/chars/ström & <co>");
        config.addMugen({QStringLiteral("1.1"), QStringLiteral("/games/mugen/mugen.exe"),
                         QStringLiteral("-r motif"), QString()});
        config.addMugen({QStringLiteral("Beta"), QStringLiteral("/games/old/mugen.exe"), QString(),
                         QStringLiteral("icon.png")});
        const QString path = m_dir.filePath(QStringLiteral("round.xml"));
        QVERIFY(config.toFile(path));

        QConfigManager reread;
        QVERIFY(reread.fromFile(path));
        QCOMPARE(reread.mugens(), config.mugens());
        for (auto it = config.values().cbegin(); it != config.values().cend(); ++it)
            QCOMPARE(reread.value(it.key()).toString(), it.value().toString());
        QCOMPARE(reread.value(QStringLiteral("zoom_level")).toInt(), 5);
        QVERIFY(!reread.value(QStringLiteral("confirm_close")).toBool());
        // Negative numbers survive as text and convert back.
        QCOMPARE(reread.value(QStringLiteral("background_x")).toString(), QStringLiteral("-213"));
        QCOMPARE(reread.value(QStringLiteral("background_x")).toInt(), -213);
        QCOMPARE(prompt.entries().size(), 0);
    }

    void unknownKeysSurviveAWrite()
    {
        const QString path = write(QStringLiteral("unknown.xml"),
            "<?xml version=\"1.0\"?>\n<configuration>\n"
            " <config name=\"from_a_newer_version\" value=\"42\"/>\n"
            " <config name=\"zoom_level\" value=\"3\"/>\n"
            "</configuration>\n");
        QConfigManager config;
        QVERIFY(config.fromFile(path));
        QCOMPARE(config.values().size(), 64);
        QVERIFY(config.toFile(path));
        QConfigManager reread;
        QVERIFY(reread.fromFile(path));
        QCOMPARE(reread.value(QStringLiteral("from_a_newer_version")).toString(), QStringLiteral("42"));
        QCOMPARE(reread.value(QStringLiteral("zoom_level")).toInt(), 3);
    }

    void gapInEngineRowsDropsWhatFollows()
    {
        const QString path = write(QStringLiteral("gap.xml"),
            "<configuration>"
            "<config name=\"mugen_0_name\" value=\"first\"/>"
            "<config name=\"mugen_0_exe\" value=\"a.exe\"/>"
            "<config name=\"mugen_2_name\" value=\"after the gap\"/>"
            "<config name=\"mugen_2_exe\" value=\"c.exe\"/>"
            "</configuration>");
        QConfigManager config;
        QVERIFY(config.fromFile(path));
        QCOMPARE(config.mugens().size(), 1);
        QCOMPARE(config.mugens().first().name, QStringLiteral("first"));
        QCOMPARE(config.mugens().first().executable, QStringLiteral("a.exe"));

        QVERIFY(config.toFile(path));
        QConfigManager reread;
        reread.fromFile(path);
        QVERIFY(!reread.values().contains(QStringLiteral("mugen_2_name")));
        QVERIFY(reread.values().contains(QStringLiteral("mugen_0_params")));
        QCOMPARE(reread.mugens().size(), 1);
    }

    void faultyFilesKeepDefaultsAndReport_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("kept");
        QTest::newRow("empty") << QByteArray() << QString();
        QTest::newRow("not xml") << QByteArray("language=fr\nzoom=3\n") << QString();
        QTest::newRow("truncated")
            << QByteArray("<configuration><config name=\"zoom_level\" value=\"7\"/><config name=\"lang")
            << QStringLiteral("zoom_level");
        QTest::newRow("wrong root") << QByteArray("<settings><config name=\"zoom_level\" value=\"7\"/></settings>")
                                    << QString();
    }

    void faultyFilesKeepDefaultsAndReport()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, kept);
        QRecordingPrompt prompt;
        const QString path = write(QStringLiteral("bad.xml"), content);
        QConfigManager config;
        config[QStringLiteral("set_before")] = 1;
        QVERIFY(!config.fromFile(path));

        QCOMPARE(prompt.count(QStringLiteral("critical")), 1);
        const QRecordingPrompt::Entry& report = prompt.entries().first();
        QCOMPARE(report.title, QStringLiteral("XML Error"));
        QVERIFY2(report.text.contains(QStringLiteral(" on '%1' at line, ").arg(path)), qPrintable(report.text));
        QVERIFY(report.text.contains(QStringLiteral(", column ")));

        // Defaults hold, values read before the fault stay, earlier values are gone.
        QVERIFY(!config.values().contains(QStringLiteral("set_before")));
        QCOMPARE(config.value(QStringLiteral("language")).toString(), QStringLiteral("en-us"));
        if (!kept.isEmpty())
            QCOMPARE(config.value(kept).toInt(), 7);
        else
            QCOMPARE(config.value(QStringLiteral("zoom_level")).toInt(), 2);
    }

    void importReplacesEnginesAndExportMatchesFile()
    {
        QConfigManager source;
        source.addMugen({QStringLiteral("exported"), QStringLiteral("x.exe"), QString(), QString()});
        source[QStringLiteral("thumb_size")] = 96;
        const QString exported = m_dir.filePath(QStringLiteral("settings.pfc3"));
        QVERIFY(source.exportConfiguration(exported));

        QConfigManager target;
        target.addMugen({QStringLiteral("old"), QStringLiteral("old.exe"), QString(), QString()});
        QVERIFY(target.importConfiguration(exported));
        QCOMPARE(target.mugens().size(), 1);
        QCOMPARE(target.mugens().first().name, QStringLiteral("exported"));
        QCOMPARE(target.value(QStringLiteral("thumb_size")).toInt(), 96);
        QVERIFY(QConfigManager::exportFilter().contains(QStringLiteral("*.pfc3")));
    }
};

QTEST_GUILESS_MAIN(TestConfig)
#include "tst_config.moc"
