#include "model/qproject.h"
#include "model/qprojectfile.h"
#include "util/qengineversion.h"
#include "util/qmessages.h"
#include "util/qpaths.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// The smallest real file of a project: only its messages matter here.
class MessagesOnlyFile : public QProjectFile
{
public:
    MessagesOnlyFile(QProject* project, QProjectFileType type)
        : QProjectFile(project, type)
    {
    }
    bool canDiscard() override { return true; }
    bool isModified() const override { return false; }
    bool isEmpty() const override { return true; }
    void checkErrors() override {}
};

void touch(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write("x");
}

} // namespace

class TestUtil : public QObject
{
    Q_OBJECT

private slots:
    void forcePathAndRemoveDirOnNestedTrees()
    {
        QTemporaryDir root;
        const QString deep = root.filePath(QStringLiteral("chars/kfm/backup/21-11-2026 1-2-3 pm/kfm.def"));
        QVERIFY(forcePath(deep));
        QVERIFY(QDir(root.filePath(QStringLiteral("chars/kfm/backup/21-11-2026 1-2-3 pm"))).exists());
        QVERIFY(!QFile::exists(deep)); // only the directory is made
        QVERIFY(forcePath(deep));      // and making it again is no fault
        touch(deep);
        touch(root.filePath(QStringLiteral("chars/kfm/kfm.sff")));
        QVERIFY(forcePath(root.filePath(QStringLiteral("chars/kfm/sub/a/b/c.txt"))));
        touch(root.filePath(QStringLiteral("chars/kfm/sub/a/b/c.txt")));

        QVERIFY(removeDir(root.filePath(QStringLiteral("chars/kfm"))));
        QVERIFY(!QDir(root.filePath(QStringLiteral("chars/kfm"))).exists());
        QVERIFY(QDir(root.filePath(QStringLiteral("chars"))).exists()); // the parent stays
        QVERIFY(removeDir(root.filePath(QStringLiteral("not/there"))));
    }

    void versionsReadAndShown_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<uint>("version");
        QTest::addColumn<QString>("label");
        QTest::newRow("1.0") << QStringLiteral("1.0") << 0x01000000u << QStringLiteral("1.0");
        QTest::newRow("1.1 with blanks") << QStringLiteral(" 1.1 ") << 0x01010000u << QStringLiteral("1.1");
        QTest::newRow("four fields") << QStringLiteral("2.0.1.0") << 0x02000100u << QStringLiteral("2.0");
        QTest::newRow("old date") << QStringLiteral("04,14,2002") << 0u << QStringLiteral("Beta");
        QTest::newRow("one number") << QStringLiteral("1") << 0u << QStringLiteral("Beta");
        QTest::newRow("trailing text") << QStringLiteral("1.0 beta") << 0u << QStringLiteral("Beta");
    }

    void versionsReadAndShown()
    {
        QFETCH(QString, text);
        QFETCH(uint, version);
        QFETCH(QString, label);
        QCOMPARE(getVersion(text), version);
        QCOMPARE(engineVersion::label(version), label);
    }

    void messagesFormatPerFile()
    {
        auto format = [](QProjectFileType file, int fileIndex, int index, int line) {
            QMsg msg;
            msg.file = file;
            msg.fileIndex = fileIndex;
            msg.index = index;
            msg.line = line;
            msg.text = QStringLiteral("text");
            return QMessages::format(msg);
        };
        QCOMPARE(format(pftDefinitions, 0, 4, 11), QStringLiteral("DEF(12): text"));
        QCOMPARE(format(pftAnimations, 0, 0, 0), QStringLiteral("AIR(1): text"));
        QCOMPARE(format(pftCommands, 0, 0, 9), QStringLiteral("CMD(10): text"));
        QCOMPARE(format(pftStates, 2, 0, 99), QStringLiteral("ST 2(100): text"));
        QCOMPARE(format(pftSprites, 0, 7, QMsg::SpriteItem), QStringLiteral("SFF(7): text"));
        QCOMPARE(format(pftSprites, 0, 3, QMsg::PaletteItem), QStringLiteral("SFF(palette 3): text"));
        QCOMPARE(format(pftSounds, 0, 5, 0), QStringLiteral("SND(5): text"));
    }

    void projectTotalsFollowTheFiles()
    {
        QProject project;
        QSignalSpy updates(project.messages(), &QMessageList::updated);
        auto* def = new MessagesOnlyFile(&project, pftDefinitions);
        MessagesOnlyFile states(&project, pftStates);
        states.messages()->setFileIndex(1);

        def->messages()->add(mtError, QStringLiteral("bad key"), 0, 3);
        states.messages()->add(mtWarning, QStringLiteral("odd"), 2, 8);
        QCOMPARE(project.messages()->errors(), 1);
        QCOMPARE(project.messages()->warnings(), 1);
        QCOMPARE(project.messages()->rowCount(), 2);

        // A batch recounts once, at its end.
        const int before = updates.count();
        states.messages()->beginChange();
        states.messages()->beginChange();
        for (int i = 0; i < 50; ++i)
            states.messages()->add(mtError, QStringLiteral("e%1").arg(i), 0, i);
        states.messages()->endChange();
        QCOMPARE(project.messages()->errors(), 1);
        states.messages()->endChange();
        QCOMPARE(updates.count(), before + 1);
        QCOMPARE(project.messages()->errors(), 51);

        // Rows run over the files in registration order (after the project's own DEF and sprites).
        int fileIndex = -1;
        const QMsg* first = project.messages()->messageAt(0, fileIndex);
        QVERIFY(first);
        QCOMPARE(first->text, QStringLiteral("bad key"));
        const int defFile = fileIndex;
        const QMsg* last = project.messages()->messageAt(51, fileIndex);
        QVERIFY(last);
        QCOMPARE(last->text, QStringLiteral("e49"));
        QCOMPARE(last->fileIndex, 1);
        QCOMPARE(fileIndex, defFile + 1);
        QVERIFY(!project.messages()->messageAt(52, fileIndex));
        QCOMPARE(project.messages()->data(project.messages()->index(1)).toString(),
                 QStringLiteral("ST 1(9): odd"));

        // A file that goes away takes its messages with it.
        delete def;
        QCOMPARE(project.messages()->errors(), 50);
        states.messages()->clear();
        QCOMPARE(project.messages()->rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(TestUtil)
#include "tst_util.moc"
