// The dialogs around a run, as an author uses them: choosing among engines
// (the last one used comes first next time) and picking a backup.
#include "enginekit.h"
#include "projectkit.h"
#include "qrecordingprompt.h"
#include "screenshots.h"

#include "interface/dialogs/bakdlg.h"
#include "interface/dialogs/mugrundlg.h"
#include "managers/qconfigmanager.h"
#include "managers/qmugenrun.h"
#include "model/qproject.h"
#include "text/qcodecs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

namespace {

/// Acts on the run dialog that will be open next: checks the row it opened
/// on, picks `row`, presses OK.
void pickEngine(int row, int* openedOn)
{
    QTimer::singleShot(0, [row, openedOn] {
        auto* dialog = qobject_cast<MugRunDlg*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        auto* list = dialog->findChild<QListView*>(QStringLiteral("list"));
        *openedOn = list->currentIndex().row();
        list->setCurrentIndex(list->model()->index(row, 0));
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
}

} // namespace

class TestEngineRunDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initCodecs();
        QProject::init();
        configMan = &m_config;
        enginekit::installLauncher(
            m_root.filePath(QStringLiteral("bin")), m_root.filePath(QStringLiteral("rec")));
    }
    void cleanupTestCase() { configMan = nullptr; }

    void secondRunTakesTheEngineUsedLast()
    {
        QRecordingPrompt prompt;
        QString exe;
        QString params;
        QVERIFY(!MugRunDlg::chooseEngine(nullptr, &m_config, exe, params));
        QCOMPARE(prompt.entries().first().text,
            QStringLiteral("Oops, you need to configure a M.U.G.E.N. first. Do it in the Tools / Options."));

        const QString first = m_root.filePath(QStringLiteral("mugen10/mugen.exe"));
        const QString second = m_root.filePath(QStringLiteral("mugen11/mugen.exe"));
        kit::writeBytes(first, "MZ");
        kit::writeBytes(second, "MZ");
        m_config.addMugen(
            QMugenInfo { QStringLiteral("M.U.G.E.N. 1.0"), first, QStringLiteral("%0 %0"), QString() });
        QVERIFY(MugRunDlg::chooseEngine(nullptr, &m_config, exe, params));
        QCOMPARE(exe, first); // one engine: no question
        m_config.addMugen(
            QMugenInfo { QStringLiteral("M.U.G.E.N. 1.1"), second, QStringLiteral("%0 kfm"), QString() });
        QCOMPARE(m_config.index(1).data(Qt::ToolTipRole).toString(), second + QStringLiteral("\nParameters: %0 kfm"));

        kit::writeBytes(m_root.filePath(QStringLiteral("hero/hero.def")), "[Files]\r\ncns = hero.cns\r\n");
        QProject hero;
        QVERIFY(hero.open(m_root.filePath(QStringLiteral("hero/hero.def")), 0, false, false));

        int openedOn = -1;
        pickEngine(1, &openedOn);
        QVERIFY(MugRunDlg::chooseEngine(nullptr, &m_config, exe, params));
        QCOMPARE(openedOn, 0);
        QCOMPARE(exe, second);
        QCOMPARE(params, QStringLiteral("%0 kfm"));
        QCOMPARE(QMugenRun(exe, params, { &hero }).exec(), 0);
        QCOMPARE(enginekit::readRecord(m_root.filePath(QStringLiteral("rec"))).arguments,
            (QStringList { second, QStringLiteral("pf3_0"), QStringLiteral("kfm") }));

        // The next run opens on the engine used last; Cancel runs nothing.
        pickEngine(1, &openedOn);
        QVERIFY(MugRunDlg::chooseEngine(nullptr, &m_config, exe, params));
        QCOMPARE(openedOn, 1);
        QCOMPARE(m_config.value(QStringLiteral("last_mugen")).toInt(), 1);
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        QVERIFY(!MugRunDlg::chooseEngine(nullptr, &m_config, exe, params));

    }

    void backupDialogPicksNewest()
    {
        const QString def = m_root.filePath(QStringLiteral("bak/hero.def"));
        kit::writeBytes(def, "[Files]\r\n");
        BakDlg none(nullptr, def);
        QVERIFY(none.fileName().isEmpty());
        QVERIFY(!none.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->isEnabled());

        QDir().mkpath(m_root.filePath(QStringLiteral("bak/backup/03-01-2026 8-0-0 pm")));
        QDir().mkpath(m_root.filePath(QStringLiteral("bak/backup/03-01-2026 9-0-0 am")));
        BakDlg dialog(nullptr, def);
        QCOMPARE(dialog.fileName(),
            QFileInfo(def).canonicalPath() + QStringLiteral("/backup/03-01-2026 8-0-0 pm/hero.def"));
        auto* list = dialog.findChild<QListView*>(QStringLiteral("list"));
        list->setCurrentIndex(list->model()->index(1, 0));
        QVERIFY(dialog.fileName().endsWith(QStringLiteral("9-0-0 am/hero.def")));
    }

private:
    QTemporaryDir m_root;
    QConfigManager m_config;
};

QTEST_MAIN(TestEngineRunDialogs)
#include "tst_enginerundialogs.moc"
