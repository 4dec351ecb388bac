// The commands of a CMD file: the list follows the text, edits are text
// edits of whole groups, ordering by key-sequence length, and the cmd command.
#include "clirunner.h"
#include "projectkit.h"
#include "realdata.h"

#include "model/qcommand.h"
#include "model/qcommands.h"
#include "model/qproject.h"
#include "text/qcodecs.h"
#include "text/qcommandparam.h"

#include <QJsonArray>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QtTest>

namespace {

using kit::readBytes;

void setText(QCommands& commands, const QString& text)
{
    commands.cursor().select(QTextCursor::Document);
    commands.cursor().insertText(text);
}

QStringList names(const QCommands& commands)
{
    QStringList list;
    for (int i = 0; i < commands.count(); ++i)
        list << commands.at(i)->name(false);
    return list;
}

int headerCount(const QByteArray& text)
{
    int count = 0;
    for (const QByteArray& line : text.split('\n'))
        count += line.trimmed().toLower().startsWith("[command]") ? 1 : 0;
    return count;
}

QString kfmCmd()
{
    return realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.cmd");
}

} // namespace

class TestCommands : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void realCommandFilesLoadAndSave();
    void engineCommandsAndLengths();
    void listFollowsTheText();
    void editsMoveWholeGroups();
    void namesAndComments();
    void autoOrganizeByLength();
    void cmdCommandListsCommands();
};

void TestCommands::initTestCase()
{
    initCodecs();
    QProject::init();
}

void TestCommands::realCommandFilesLoadAndSave()
{
    PF_REQUIRE_REALDATA();
    const QStringList files = realDataFiles({ QStringLiteral("cmd") });
    QVERIFY(!files.isEmpty());
    QTemporaryDir dir;
    for (const QString& fileName : files) {
        QCommands commands(nullptr);
        QVERIFY(commands.fromFile(fileName, 0, false));
        const QByteArray original = readBytes(fileName);
        QCOMPARE(commands.count(), headerCount(original));
        QVERIFY(commands.organizer()->rowCount() == commands.count());
        const QString copy = dir.filePath(QStringLiteral("copy.cmd"));
        QVERIFY(commands.toFile(copy, false, true));
        // Line ends are kept: every file, LF or CRLF, comes back byte for byte.
        QVERIFY2(readBytes(copy) == original, qPrintable(fileName));
    }
}

void TestCommands::engineCommandsAndLengths()
{
    PF_REQUIRE_REALDATA();
    QCommands commands(nullptr);
    QVERIFY(commands.fromFile(kfmCmd(), 0, false));
    QCOMPARE(commands.count(), 37);
    // Name, key sequence as written in the file, and the steps the engine counts.
    const struct
    {
        int index;
        const char* name;
        const char* sequence;
        int length;
    } expected[] = {
        { 0, "TripleKFPalm", "~D, DF, F, D, DF, F, x", 7 },
        { 2, "SmashKFUpper", "~D, DB, B, D, DB, B, x", 7 },
        { 4, "blocking", "$F, x", 2 },
        { 5, "blocking", "x, $F", 2 },
        { 8, "upper_xy", "~F, D, DF, x+y", 4 },
        { 12, "QCB_x", "~D, DB, B, x", 4 },
        { 18, "FF_ab", "F, F, a+b", 3 },
        { 21, "FF", "F, F", 2 },
        { 23, "recovery", "x+y", 1 },
        { 24, "down_a", "/$D, a", 2 },
        { 32, "start", "s", 1 },
        { 33, "holdfwd", "/$F", 1 },
        { 36, "holddown", "/$D", 1 },
    };
    for (const auto& row : expected) {
        const QCommand* command = commands.at(row.index);
        QCOMPARE(command->name(false), QLatin1String(row.name));
        const auto* param = static_cast<const QCommandParam*>(
            command->parameter(QCommand::idCommand, QCommandParam::paramSubType));
        QVERIFY(param);
        QCOMPARE(param->toString(), QLatin1String(row.sequence));
        QCOMPARE(command->length(), row.length);
    }
    QCOMPARE(commands.find(0, QStringLiteral("QCF_x")), 9);
    QCOMPARE(commands.find(1, QStringLiteral("TripleKFPalm")), 1);
    QCOMPARE(commands.find(2, QStringLiteral("TripleKFPalm")), -1);
    QCOMPARE(commands.find(0, QStringLiteral("qcf_x")), -1); // names are case-sensitive
    QCOMPARE(commands.organizer()->data(commands.organizer()->index(9)).toString(), QStringLiteral("QCF_x"));
}

void TestCommands::listFollowsTheText()
{
    QCommands commands(nullptr);
    QSignalSpy inserted(commands.organizer(), &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(commands.organizer(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy changed(commands.organizer(), &QAbstractItemModel::dataChanged);
    setText(commands,
        QStringLiteral("[Remap]\nx = x\n\n[Command]\nname = \"a\"\ncommand = a\n\n"
                       "[Command]\nname = \"c\"\ncommand = c\n\n[Statedef -1]\n"));
    QCOMPARE(names(commands), (QStringList { QStringLiteral("a"), QStringLiteral("c") }));
    QCOMPARE(inserted.count(), 2);

    // Typed between the two, the new group takes its place in the list.
    QTextCursor typing(commands.document());
    typing.setPosition(commands.at(1)->startPosition());
    typing.insertText(QStringLiteral("[Command]\nname = \"b\"\ncommand = b\n\n"));
    QCOMPARE(
        names(commands), (QStringList { QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));

    // A renamed command shows its new name.
    const QTextBlock nameLine = commands.document()->findBlockByNumber(commands.at(0)->line() + 1);
    typing.setPosition(nameLine.position() + nameLine.length() - 2);
    typing.insertText(QStringLiteral("z"));
    QCOMPARE(commands.at(0)->name(false), QStringLiteral("az"));
    QVERIFY(changed.count() >= 1);

    // Its header line gone, the group is no command.
    const QTextBlock header = commands.document()->findBlockByNumber(commands.at(1)->line());
    typing.setPosition(header.position());
    typing.setPosition(header.position() + header.length(), QTextCursor::KeepAnchor);
    typing.removeSelectedText();
    QCOMPARE(names(commands), (QStringList { QStringLiteral("az"), QStringLiteral("c") }));
    QCOMPARE(removed.count(), 1);
    QCOMPARE(commands.find(0, QString()), -1);
    commands.add();
    QCOMPARE(commands.find(0, QString()), 2); // an absent name reads as empty
}

void TestCommands::editsMoveWholeGroups()
{
    QCommands commands(nullptr);
    const QString text
        = QStringLiteral("; top\n[Command]\nname = \"a\"\ncommand = a\n\n; the b move\n[Command]\n"
                         "name = \"b\"\ncommand = b\n\n[Command]\nname = \"c\"\ncommand = c\n"
                         "\n[Statedef -1]\n[State -1, x]\ntype = Null\n");
    setText(commands, text);
    QCOMPARE(commands.count(), 3);

    commands.move(0, 2);
    QCOMPARE(
        names(commands), (QStringList { QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("a") }));
    QCOMPARE(commands.at(0)->name(true), QStringLiteral("the b move")); // its comment went along
    // Behind the last command, before the states of the file.
    QVERIFY(commands.document()->toPlainText().endsWith(QStringLiteral("command = a\n\n[Statedef -1]\n"
                                                                       "[State -1, x]\ntype = Null\n")));
    commands.move(2, 0);
    commands.move(1, 2);
    commands.move(2, 1);
    QCOMPARE(commands.document()->toPlainText(), text);

    commands.duplicate(1);
    QCOMPARE(names(commands),
        (QStringList { QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("b"), QStringLiteral("c") }));
    commands.duplicate(3);
    QCOMPARE(commands.count(), 5);
    QCOMPARE(commands.at(4)->name(false), QStringLiteral("c"));
    commands.remove(4);
    commands.remove(2);
    QCOMPARE(commands.document()->toPlainText(), text);

    QCommand* inserted = commands.insert(1);
    QCOMPARE(commands.indexOf(inserted), 1);
    QCOMPARE(commands.at(2)->name(false), QStringLiteral("b"));
    commands.remove(1);
    QCommand* added = commands.add();
    QCOMPARE(commands.indexOf(added), 3);
    QVERIFY(commands.document()->toPlainText().contains(
        QStringLiteral("command = c\n\n[Command]\n[Statedef -1]")));
    QCommand* appended = commands.insert(99);
    QCOMPARE(appended, commands.at(4));

    // Out of range does nothing.
    const QString before = commands.document()->toPlainText();
    commands.move(0, 99);
    commands.duplicate(99);
    commands.remove(99);
    QCOMPARE(commands.document()->toPlainText(), before);

    // In an empty document, and behind a last line without a line feed.
    QCommands empty(nullptr);
    empty.add();
    QCOMPARE(empty.document()->toPlainText(), QStringLiteral("[Command]\n"));
    setText(empty, QStringLiteral("[Command]\nname = \"x\""));
    empty.duplicate(0);
    QCOMPARE(empty.document()->toPlainText(),
        QStringLiteral("[Command]\nname = \"x\"\n[Command]\nname = \"x\"\n"));
    QCOMPARE(names(empty), (QStringList { QStringLiteral("x"), QStringLiteral("x") }));
}

void TestCommands::namesAndComments()
{
    QCommands commands(nullptr);
    setText(
        commands, QStringLiteral("[Command]\nname = \"a\" ; first\ncommand = a\n\n[Command]\ncommand = b\n"));
    QCommand* first = commands.at(0);
    first->setName(QStringLiteral("renamed"), false);
    QCOMPARE(first->name(false), QStringLiteral("renamed"));
    QVERIFY(commands.document()->toPlainText().startsWith(QStringLiteral("[Command]\nname = \"renamed\"")));

    // No name line: nothing is written.
    const QString before = commands.document()->toPlainText();
    commands.at(1)->setName(QStringLiteral("x"), false);
    QCOMPARE(commands.document()->toPlainText(), before);

    commands.at(1)->setName(QStringLiteral("Charge"), true);
    QCOMPARE(commands.at(1)->name(true), QStringLiteral("Charge"));
    QVERIFY(
        commands.document()->toPlainText().contains(QStringLiteral("\n; Charge\n[Command]\ncommand = b")));
    commands.at(1)->setName(QStringLiteral("Charge move"), true);
    QVERIFY(commands.document()->toPlainText().contains(
        QStringLiteral("\n; Charge move\n[Command]\ncommand = b")));
    QCOMPARE(
        commands.organizer()->data(commands.organizer()->index(1)).toString(), QStringLiteral("Charge move"));
    commands.at(1)->setName(QString(), true);
    QCOMPARE(commands.at(1)->name(true), QString());
    QVERIFY(!commands.document()->toPlainText().contains(QStringLiteral("Charge")));
}

void TestCommands::autoOrganizeByLength()
{
    QCommands commands(nullptr);
    setText(commands,
        QStringLiteral("[Command]\nname = \"one\"\ncommand = a\n"
                       "[Command]\nname = \"none\"\n"
                       "[Command]\nname = \"two\"\ncommand = a, b\n"
                       "[Command]\nname = \"three\"\ncommand = a, b, c\n"
                       "[Command]\nname = \"two again\"\ncommand = x, y\n"
                       "[Command]\nname = \"only\"\ncommand = a, >b\n"
                       "[Command]\nname = \"one again\"\ncommand = z\n"));
    commands.autoOrganize();
    // ">" counts 3; equal lengths keep their order; no sequence goes last.
    QCOMPARE(names(commands),
        (QStringList { QStringLiteral("only"), QStringLiteral("three"), QStringLiteral("two"),
            QStringLiteral("two again"), QStringLiteral("one"), QStringLiteral("one again"),
            QStringLiteral("none") }));
    // One step for the author's undo.
    commands.document()->undo();
    QCOMPARE(commands.at(0)->name(false), QStringLiteral("one"));
    QCOMPARE(commands.count(), 7);

    PF_REQUIRE_REALDATA();
    QCommands kfm(nullptr);
    QVERIFY(kfm.fromFile(kfmCmd(), 0, false));
    QList<QPair<int, QString>> before;
    for (int i = 0; i < kfm.count(); ++i)
        before << qMakePair(kfm.at(i)->length(), kfm.at(i)->name(false) + kfm.at(i)->name(true));
    kfm.organizer()->autoOrganize();
    QCOMPARE(kfm.count(), before.size());
    std::stable_sort(
        before.begin(), before.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    for (int i = 0; i < kfm.count(); ++i)
        QCOMPARE(kfm.at(i)->name(false) + kfm.at(i)->name(true), before.at(i).second);
}

void TestCommands::cmdCommandListsCommands()
{
    PF_REQUIRE_REALDATA();
    const CliResult json = runCli({ QStringLiteral("--json"), QStringLiteral("cmd"), kfmCmd() });
    QCOMPARE(json.exitCode, 0);
    QCOMPARE(json.json().value(QStringLiteral("commandCount")).toInt(), 37);
    const QJsonArray list = json.json().value(QStringLiteral("commands")).toArray();
    const QJsonObject first = list.at(0).toObject();
    QCOMPARE(first.value(QStringLiteral("name")).toString(), QStringLiteral("TripleKFPalm"));
    QCOMPARE(first.value(QStringLiteral("length")).toInt(), 7);
    QCOMPARE(first.value(QStringLiteral("time")).toInt(), 20); // its own
    QCOMPARE(list.at(6).toObject().value(QStringLiteral("time")).toInt(), 15); // from [Defaults]
    QCOMPARE(list.at(21).toObject().value(QStringLiteral("time")).toInt(), 10);
    QCOMPARE(list.at(21).toObject().value(QStringLiteral("bufferTime")).toInt(), 1);

    const CliResult text = runCli({ QStringLiteral("cmd"), kfmCmd() });
    QVERIFY(text.out.contains("9: \"QCF_x\" = ~D, DF, F, x (length 4, time 15, buffer 1)\n"));
    QCOMPARE(runCli({ QStringLiteral("cmd"), QStringLiteral("/no/such.cmd") }).exitCode, 1);
    QCOMPARE(runCli({ QStringLiteral("cmd") }).exitCode, 2);
}

QTEST_MAIN(TestCommands)
#include "tst_commands.moc"
