#include "elementkit.h"
#include "randomedits.h"

#include "realdata.h"
#include "text/qcommonelements.h"
#include "text/qgroupparam.h"
#include "text/qnamedparamgroup.h"
#include "text/qtextelementreg.h"

#include <QFile>
#include <QTextDocument>
#include <QtTest>

using kit::Editor;

namespace {

const QString stateText = QStringLiteral("; Stand\n"
                                         "\n"
                                         "[Statedef 0]\n"
                                         "type = S\n"
                                         "life = 10\n"
                                         "\n"
                                         "[State 0, 1]\n"
                                         "type = ChangeAnim\n"
                                         "life = 20\n"
                                         "life = 30\n"
                                         "trigger1 = Anim != 0 && Anim != 5\n"
                                         "\n"
                                         "; Walk\n"
                                         "[Statedef 20]\n"
                                         "life = 40\n");

QString lineText(const QElementTextEditor& editor, int line)
{
    return editor.document()->findBlockByNumber(line).text();
}

QGroupParam* paramAt(const QElementTextEditor& editor, int line)
{
    QTextElement* element = editor.elementAt(line);
    return element && element->groupType() == QGroupParam::paramGroupType ? static_cast<QGroupParam*>(element)
                                                                          : nullptr;
}

QParamGroup* groupAt(const QElementTextEditor& editor, int line)
{
    QTextElement* element = editor.elementAt(line);
    return element && (element->type() & QTextElement::paramGroupBit) ? static_cast<QParamGroup*>(element)
                                                                      : nullptr;
}

/// Replaces `removed` characters at (line, column) through the editor's cursor.
void edit(Editor& editor, int line, int column, int removed, const QString& inserted)
{
    TextEdit change;
    change.position = editor.document()->findBlockByNumber(line).position() + column;
    change.removed = removed;
    change.inserted = inserted;
    change.apply(editor.cursor());
}

QString readText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace

class TestElements : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { kit::registerElements(); }
    void cleanup() { kit::groupLog().clear(); }

    void firstCharacterRules_data();
    void firstCharacterRules();
    void linesRecognisedByPriority_data();
    void linesRecognisedByPriority();
    void enableCountsChooseTheEntries();
    void chainFollowsLineEdits_data();
    void chainFollowsLineEdits();
    void nameComments();
    void deletedKeyPromotesDuplicate();
    void setParamValueCases();
    void modelWritesDoNotReparse();
    void changeGroupsAndSignals();
    void unlinkedEditorFollowsOnlyItsCursor();
    void groupExtentAndInsertion();
    void chainWalks();
    void poolsRecycle();
    void randomEditsMatchFreshChain_data();
    void randomEditsMatchFreshChain();
};

void TestElements::firstCharacterRules_data()
{
    QTest::addColumn<unsigned int>("rule");
    QTest::addColumn<QString>("accepted");
    QTest::addColumn<QString>("refused");
    QTest::newRow("anything") << 1u << QStringLiteral("a[;0\x01") << QString();
    QTest::newRow("digit or minus") << 2u << QStringLiteral("09-") << QStringLiteral("a+.");
    QTest::newRow("bracket") << 0x5B03u << QStringLiteral("[") << QStringLiteral("]a{");
    QTest::newRow("two") << ((0x42u << 16) | (0x41u << 8) | 4u) << QStringLiteral("AB")
                         << QStringLiteral("abC");
    QTest::newRow("three") << ((0x43u << 24) | (0x42u << 16) | (0x41u << 8) | 5u) << QStringLiteral("ABC")
                           << QStringLiteral("abcD");
    QTest::newRow("letter either case") << 0x4306u << QStringLiteral("Cc") << QStringLiteral("Dd#");
    QTest::newRow("two letters either case") << 0x494C07u << QStringLiteral("LlIi") << QStringLiteral("Jj");
    QTest::newRow("three letters either case") << ((0x43u << 24) | (0x42u << 16) | (0x41u << 8) | 8u)
                                               << QStringLiteral("AaBbCc") << QStringLiteral("Dd");
    QTest::newRow("unknown rule") << 9u << QString() << QStringLiteral("a[0");
}

void TestElements::firstCharacterRules()
{
    QFETCH(unsigned int, rule);
    QFETCH(QString, accepted);
    QFETCH(QString, refused);
    for (QChar c : accepted)
        QVERIFY2(validFirstChar(rule, c), qPrintable(QString(c)));
    for (QChar c : refused)
        QVERIFY2(!validFirstChar(rule, c), qPrintable(QString(c)));
}

void TestElements::linesRecognisedByPriority_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected"); // description of line 0, empty for none
    QTest::newRow("singleton") << QStringLiteral("[Info]") << QStringLiteral("0 46/10 named by - holds []");
    QTest::newRow("singleton any case")
        << QStringLiteral("[iNFO]") << QStringLiteral("0 46/10 named by - holds []");
    QTest::newRow("two-word singleton")
        << QStringLiteral("[Select Info]") << QStringLiteral("0 46/1a named by - holds []");
    QTest::newRow("singleton with more words is unknown")
        << QStringLiteral("[Info 2]") << QStringLiteral("0 22/0 named by -");
    QTest::newRow("named before unknown")
        << QStringLiteral("[State 200, Hit]") << QStringLiteral("0 20006/0 named by - holds [] '200, Hit'");
    QTest::newRow("keyword is a whole word")
        << QStringLiteral("[Statedef 5]") << QStringLiteral("0 10006/0 named by - holds [] '5'");
    QTest::newRow("unclosed named is unknown")
        << QStringLiteral("[State 200") << QStringLiteral("0 22/0 named by -");
    QTest::newRow("any bracket line") << QStringLiteral("  [Foo bar]") << QStringLiteral("0 22/0 named by -");
    QTest::newRow("int") << QStringLiteral("LIFE = -3 ; hurt")
                         << QStringLiteral("0 11/3 life#2 = QVariant(int, -3) in -");
    QTest::newRow("int with a float is nothing") << QStringLiteral("life = 3.5") << QString();
    QTest::newRow("string") << QStringLiteral("name = \"Kung Fu\"")
                            << QStringLiteral("0 11/1 name#1 = QVariant(QString, Kung Fu) in -");
    QTest::newRow("string without quotes is nothing") << QStringLiteral("name = Kung") << QString();
    QTest::newRow("value") << QStringLiteral("type = S")
                           << QStringLiteral("0 11/2 type#3 = QVariant(QString, S) in -");
    QTest::newRow("float list") << QStringLiteral(
        "velset = 2.5, -1") << QStringLiteral("0 11/6 velset#4 = QVariant(QPointF, QPointF(2.5,-1)) in -");
    QTest::newRow("file keeps spaces")
        << QStringLiteral("sprite = my chars/kfm.sff ; comment")
        << QStringLiteral("0 11/9 sprite#10 = QVariant(QString, my chars/kfm.sff) in -");
    QTest::newRow("version") << QStringLiteral("mugenversion = 1.0")
                             << QStringLiteral("0 11/8 mugenversion#5 = QVariant(uint, 16777216) in -");
    QTest::newRow("unknown key is nothing") << QStringLiteral("height = 3") << QString();
    QTest::newRow("lone comment is nothing") << QStringLiteral("; just a note\nlife = 1") << QString();
    QTest::newRow("comment above a group")
        << QStringLiteral("; Walk\n[Statedef 20]") << QStringLiteral("0 9/0 'Walk' names 1");
    QTest::newRow("ruler above a group names it too")
        << QStringLiteral(";------\n[Info]") << QStringLiteral("0 9/0 '------' names 1");
    QTest::newRow("blank") << QStringLiteral("   \t") << QString();
}

void TestElements::linesRecognisedByPriority()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    Editor editor;
    editor.setText(text);
    const QStringList chain = kit::describe(editor);
    const QString first
        = chain.isEmpty() || !chain.first().startsWith(QLatin1String("0 ")) ? QString() : chain.first();
    QCOMPARE(first, expected);
    QCOMPARE(chain, kit::describeFresh(text));
}

void TestElements::enableCountsChooseTheEntries()
{
    Editor editor;
    editor.enableElement(true, kit::stateType, 0); // a second user of the same kind
    editor.enableElement(false, kit::stateType, 0);
    editor.setText(QStringLiteral("[State 1]\nlife = 1"));
    QCOMPARE(editor.elementAt(0)->groupType(), kit::stateType);

    editor.enableElement(false, kit::stateType, 0);
    editor.updateAllElements();
    QCOMPARE(editor.elementAt(0)->groupType(), QUnknownGroup::unknownGroupType); // the next entry claims it
    QCOMPARE(paramAt(editor, 1)->group(), nullptr);

    editor.enableElement(false, QGroupParam::paramGroupType, 3);
    editor.updateAllElements();
    QCOMPARE(editor.elementAt(1), nullptr);
    QVERIFY(editor.changes.contains(QStringLiteral("R 1 param")));
}

void TestElements::chainFollowsLineEdits_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("removed");
    QTest::addColumn<QString>("inserted");
    QTest::addColumn<QStringList>("changes");

    QTest::newRow("type in a value") << 4 << 8 << 0 << QStringLiteral("5")
                                     << QStringList { QStringLiteral("U 4 param") };
    QTest::newRow("insert a line") << 5 << 0 << 0 << QStringLiteral("ctrl = 1\n")
                                   << QStringList { QStringLiteral("A 5 param") };
    QTest::newRow("insert lines") << 3 << 0 << 0 << QStringLiteral("ctrl = 1\n\n[Info]\n")
                                  << QStringList { QStringLiteral("R 3 param"), QStringLiteral("A 3 param"),
                                         QStringLiteral("A 5 header"), QStringLiteral("A 6 param") };
    QTest::newRow("delete a line") << 4 << 0 << 10 << QString()
                                   << QStringList { QStringLiteral("R - param") };
    QTest::newRow("delete a whole group")
        << 6 << 0 << 87 << QString()
        << QStringList { QStringLiteral("R - header"), QStringLiteral("R - param"),
               QStringLiteral("R - param"), QStringLiteral("R - param"), QStringLiteral("R - param") };
    QTest::newRow("replace a line") << 3 << 0 << 8 << QStringLiteral("[Info]")
                                    << QStringList { QStringLiteral("R 3 param"),
                                           QStringLiteral("A 3 header") };
    QTest::newRow("change a key") << 4 << 0 << 4 << QStringLiteral("ctrl")
                                  << QStringList { QStringLiteral("R 4 param"), QStringLiteral("A 4 param") };
    QTest::newRow("join two lines") << 3 << 8 << 1 << QString()
                                    << QStringList { QStringLiteral("R - param"),
                                           QStringLiteral("R 3 param") };
    QTest::newRow("delete the first line")
        << 0 << 0 << 8 << QString() << QStringList { QStringLiteral("R - comment") };
    QTest::newRow("delete the last line")
        << 13 << 13 << 10 << QString() << QStringList { QStringLiteral("R - param") };
    QTest::newRow("replace the last line")
        << 14 << 0 << 9 << QStringLiteral("[Info]\nname = \"A\"")
        << QStringList { QStringLiteral("R 14 param"), QStringLiteral("A 14 header"),
               QStringLiteral("A 15 param") };
    QTest::newRow("paste before the first line")
        << 0 << 0 << 0 << QStringLiteral("[Info]\nlife = 1\n")
        << QStringList { QStringLiteral("R 0 comment"), QStringLiteral("A 0 header"),
               QStringLiteral("A 1 param"), QStringLiteral("A 2 comment") };
}

void TestElements::chainFollowsLineEdits()
{
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(int, removed);
    QFETCH(QString, inserted);
    QFETCH(QStringList, changes);

    for (bool linked : { true, false }) {
        Editor editor(linked);
        editor.setText(stateText);
        editor.updateAllElements();
        if (linked) {
            // Through the document, as a view would edit it.
            QTextCursor cursor(editor.document());
            TextEdit change;
            change.position = editor.document()->findBlockByNumber(line).position() + column;
            change.removed = removed;
            change.inserted = inserted;
            change.apply(cursor);
        } else {
            edit(editor, line, column, removed, inserted);
        }
        // The report may also list neighbours read again; these must be in it.
        const QStringList& reported = editor.changes;
        for (const QString& change : changes)
            QVERIFY2(reported.contains(change), qPrintable(reported.join(QLatin1String(" | "))));
        QCOMPARE(kit::checkChain(editor), QString());
        QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));
    }
}

void TestElements::nameComments()
{
    Editor editor;
    editor.setText(stateText);
    auto* walk = static_cast<QGroupHeader*>(editor.elementAt(13));
    auto* stand = static_cast<QGroupHeader*>(editor.elementAt(2));
    QCOMPARE(stand->nameText(), QStringLiteral("Stand")); // across a blank line
    QCOMPARE(walk->nameText(), QStringLiteral("Walk"));
    QCOMPARE(walk->firstLine(), 12);
    QCOMPARE(stand->firstLine(), 2); // the blank line ends the comments above

    // More blank lines between keep the name; a line of text between drops it.
    edit(editor, 13, 0, 0, QStringLiteral("\n\n"));
    QCOMPARE(static_cast<QGroupHeader*>(editor.elementAt(15))->nameText(), QStringLiteral("Walk"));
    edit(editor, 13, 0, 0, QStringLiteral("life = 1"));
    QCOMPARE(editor.elementAt(12), nullptr);
    QCOMPARE(static_cast<QGroupHeader*>(editor.elementAt(15))->nameText(), QString());
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));
    edit(editor, 13, 0, 8, QString());
    QCOMPARE(static_cast<QGroupHeader*>(editor.elementAt(15))->nameText(), QStringLiteral("Walk"));

    // Removing the header leaves a plain comment, which is no element.
    edit(editor, 15, 0, 14, QString());
    QCOMPARE(editor.elementAt(12), nullptr);
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));

    // Writing names: rewrite, insert above, remove.
    stand = static_cast<QGroupHeader*>(editor.elementAt(2));
    stand->setNameText(QStringLiteral("Standing"));
    QCOMPARE(lineText(editor, 0), QStringLiteral("; Standing"));
    QCOMPARE(stand->nameText(), QStringLiteral("Standing"));
    auto* state = static_cast<QGroupHeader*>(editor.elementAt(6));
    state->setNameText(QStringLiteral("Anim"));
    QCOMPARE(lineText(editor, 6), QStringLiteral("; Anim"));
    QCOMPARE(state->nameText(), QStringLiteral("Anim"));
    QCOMPARE(state->line(), 7);
    state->setNameText(QString());
    QCOMPARE(lineText(editor, 6), QStringLiteral("[State 0, 1]"));
    QCOMPARE(state->nameText(), QString());
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));
}

void TestElements::deletedKeyPromotesDuplicate()
{
    Editor editor;
    editor.setText(stateText);
    QParamGroup* state = groupAt(editor, 6);
    QCOMPARE(state->paramAsInt(kit::idLife, -1), 20);
    QCOMPARE(paramAt(editor, 9)->group(), nullptr); // a later duplicate is no member

    edit(editor, 8, 0, 10, QString()); // "life = 20\n"
    QCOMPARE(kit::groupLog(), QStringList { QStringLiteral("updated 6: 8") });
    QCOMPARE(state->paramAsInt(kit::idLife, -1), 30);
    QCOMPARE(state->parameter(1), paramAt(editor, 8)); // in document order, after type

    kit::groupLog().clear();
    edit(editor, 8, 0, 10, QString());
    QCOMPARE(kit::groupLog().first(), QStringLiteral("removed 6: -")); // then the line read again below it
    QCOMPARE(state->paramAsInt(kit::idLife, -1), -1);

    // An earlier duplicate typed in takes over, as a fresh read would have it.
    kit::groupLog().clear();
    edit(editor, 7, 0, 0, QStringLiteral("life = 5\n"));
    edit(editor, 9, 0, 0, QStringLiteral("life = 6\n"));
    QCOMPARE(state->paramAsInt(kit::idLife, -1), 5);
    edit(editor, 7, 0, 0, QStringLiteral("life = 4\n"));
    QCOMPARE(state->paramAsInt(kit::idLife, -1), 4);
    QCOMPARE(kit::groupLog().last(), QStringLiteral("updated 6: 7"));
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));

    // Removing the group header hands its parameters to the group above.
    kit::groupLog().clear();
    edit(editor, 6, 0, 13, QString());
    QParamGroup* stand = groupAt(editor, 2);
    QCOMPARE(stand->paramAsString(kit::idTrigger, QString()), QStringLiteral("Anim != 0 && Anim != 5"));
    QCOMPARE(stand->paramAsInt(kit::idLife, -1), 10); // the first one stays
    QVERIFY2(kit::groupLog().contains(QStringLiteral("updated 2: 10")),
        qPrintable(kit::groupLog().join(QLatin1String(" | "))));
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));

    // removeParam promotes the next duplicate of the group by hand, too.
    QGroupParam* first = stand->parameter(QGroupParamID(kit::idLife));
    QGroupParam* next = stand->removeParam(first);
    QVERIFY(next && next != first);
    QCOMPARE(next->group(), stand);
    QCOMPARE(first->group(), nullptr);
}

void TestElements::setParamValueCases()
{
    Editor editor;
    editor.setText(stateText);
    QParamGroup* state = groupAt(editor, 6);
    const int signalCount = int(editor.updatedSignals.size());

    state->setParamValue(kit::idLife, QStringLiteral("life"), QStringLiteral("25")); // exists: rewritten
    QCOMPARE(lineText(editor, 8), QStringLiteral("life = 25"));
    QCOMPARE(state->paramAsInt(kit::idLife, -1), 25);
    QVERIFY(kit::groupLog().isEmpty()); // the caller knows its own value

    state->setParamValue(kit::idCtrl, QStringLiteral("ctrl"), QStringLiteral("1")); // absent: appended
    QCOMPARE(lineText(editor, 11), QStringLiteral("ctrl = 1"));
    QCOMPARE(state->paramAsInt(kit::idCtrl, -1), 1);
    QVERIFY(kit::groupLog().isEmpty());

    state->setParamValue(
        kit::idLife, QStringLiteral("life"), QString()); // empty: removed, duplicate takes over
    QCOMPARE(lineText(editor, 8), QStringLiteral("life = 30"));
    QCOMPARE(state->paramAsInt(kit::idLife, -1), 30);
    QCOMPARE(kit::groupLog(), QStringList { QStringLiteral("updated 6: 8") });

    const QString before = editor.text();
    const int signalsBefore = int(editor.updatedSignals.size());
    state->setParamValue(kit::idTime, QStringLiteral("time"), QString()); // empty on absent: nothing
    QCOMPARE(editor.text(), before);
    QCOMPARE(editor.updatedSignals.size(), signalsBefore);
    QVERIFY(editor.updatedSignals.size() > signalCount);
    QVERIFY(state->reportsUpdates());
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));
}

void TestElements::modelWritesDoNotReparse()
{
    Editor editor;
    editor.setText(QStringLiteral("[State 1, a]\nLIFE = 3\nname = \"x\"\nvelset = 1, 2\nsize = 1, 2\n"));
    auto* life = static_cast<QIntParam*>(paramAt(editor, 1));
    editor.changes.clear();
    const int signalCount = int(editor.updatedSignals.size());

    life->setValue(7);
    QCOMPARE(lineText(editor, 1), QStringLiteral("life = 7")); // the registered spelling
    static_cast<QStringParam*>(paramAt(editor, 2))->setString(QStringLiteral("Kung Fu"));
    QCOMPARE(lineText(editor, 2), QStringLiteral("name = \"Kung Fu\""));
    static_cast<QFloatNParam*>(paramAt(editor, 3))->setValue(1, 0.5);
    QCOMPARE(lineText(editor, 3), QStringLiteral("velset = 1, 0.5"));
    static_cast<QIntNParam*>(paramAt(editor, 4))->setValue(2, 9); // stored, not printed: count stays 2
    QCOMPARE(lineText(editor, 4), QStringLiteral("size = 1, 2"));
    auto* group = static_cast<QNamedParamGroup*>(groupAt(editor, 0));
    group->setName(QStringLiteral("200, b"));
    QCOMPARE(lineText(editor, 0), QStringLiteral("[State 200, b]"));

    QVERIFY(editor.changes.isEmpty());
    QCOMPARE(editor.updatedSignals.size(), signalCount);
    QCOMPARE(paramAt(editor, 1), life);
    QCOMPARE(life->value(), 7);
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));

    // With reparse the line is read again, as any edit.
    life->changeText(QStringLiteral("life = 8"), true);
    QVERIFY(editor.changes.contains(QStringLiteral("U 1 param")));
    QCOMPARE(life->value(), 8);
    QCOMPARE(editor.updatedSignals.last(), false);
}

void TestElements::changeGroupsAndSignals()
{
    Editor editor;
    editor.setText(stateText);
    editor.updatedSignals.clear();

    editor.beginChange();
    edit(editor, 4, 7, 2, QStringLiteral("11"));
    edit(editor, 3, 0, 0, QStringLiteral("ctrl = 0\n"));
    QVERIFY(editor.updatedSignals.isEmpty());
    editor.endChange();
    QCOMPARE(editor.updatedSignals, QList<bool> { true });
    QCOMPARE(paramAt(editor, 5)->getValue().toInt(), 11);

    editor.document()->undo(); // one step for the whole group
    QCOMPARE(editor.text(), stateText);
    QCOMPARE(kit::describe(editor), kit::describeFresh(stateText));

    // A nested begin forgets what the outer level gathered.
    editor.updatedSignals.clear();
    editor.beginChange();
    edit(editor, 3, 0, 0, QStringLiteral("ctrl = 0\n"));
    editor.beginChange();
    edit(editor, 5, 7, 2, QStringLiteral("12"));
    editor.endChange();
    QVERIFY(editor.updatedSignals.isEmpty());
    editor.endChange();
    QCOMPARE(editor.updatedSignals, QList<bool> { false });

    // An empty group still reports.
    editor.updatedSignals.clear();
    editor.beginChange();
    editor.endChange();
    QCOMPARE(editor.updatedSignals, QList<bool> { false });

    // Outside a group every edit reports by itself.
    edit(editor, 5, 7, 2, QStringLiteral("13"));
    edit(editor, 5, 0, 0, QStringLiteral("\n"));
    edit(editor, 6, 0, 0, QStringLiteral("[Info]\n"));
    QCOMPARE(editor.updatedSignals, (QList<bool> { false, false, true, true }));
}

void TestElements::unlinkedEditorFollowsOnlyItsCursor()
{
    Editor editor(false);
    editor.setText(stateText);
    QCOMPARE(editor.head(), nullptr);
    editor.updateAllElements();
    const QStringList built = kit::describe(editor);
    QCOMPARE(built, kit::describeFresh(stateText));

    QTextCursor plain(editor.document());
    plain.setPosition(editor.document()->findBlockByNumber(4).position());
    plain.insertText(QStringLiteral("ctrl = 1\n"));
    // Not followed: the split line keeps its old element, the new one has none.
    QCOMPARE(paramAt(editor, 4)->key(), QStringLiteral("life"));
    QCOMPARE(editor.elementAt(5), nullptr);
    edit(editor, 4, 7, 1, QStringLiteral("2"));
    QCOMPARE(paramAt(editor, 4)->key(), QStringLiteral("ctrl"));
    QCOMPARE(paramAt(editor, 4)->getValue().toInt(), 2);
}

void TestElements::groupExtentAndInsertion()
{
    Editor editor;
    editor.setText(QStringLiteral("[Info]\nname = \"a\"\n\n; Files\n[Files]\nsprite = a.sff"));
    auto* info = static_cast<QGroupHeader*>(editor.elementAt(0));
    auto* files = static_cast<QGroupHeader*>(editor.elementAt(4));
    QCOMPARE(info->lastLine(), 2);
    QCOMPARE(files->firstLine(), 3);
    QCOMPARE(files->lastLine(), editor.document()->blockCount()); // one past the end
    QCOMPARE(files->endPosition(), editor.document()->characterCount() - 1);
    QCOMPARE(info->select().selectedText(), QStringLiteral("[Info]\u2029name = \"a\"\u2029\u2029"));

    // After the last group of a text without a final line feed: a new last line.
    editor.insertAfter(files, QStringLiteral("cns = a.cns"), false);
    QCOMPARE(lineText(editor, 6), QStringLiteral("cns = a.cns"));
    QCOMPARE(static_cast<QParamGroup*>(files)->parameterCount(), 2);
    // After a group in the middle: below its last line, the blank one.
    editor.insertAfter(info, QStringLiteral("displayname = \"b\""), false);
    QCOMPARE(lineText(editor, 3), QStringLiteral("displayname = \"b\""));
    QCOMPARE(
        static_cast<QParamGroup*>(info)->paramAsString(kit::idDisplayName, QString()), QStringLiteral("b"));
    editor.insertAfter(nullptr, QStringLiteral("; end"), false);
    editor.insert(QStringLiteral("; end 2"));
    QCOMPARE(lineText(editor, editor.document()->blockCount() - 1), QStringLiteral("; end 2"));

    // Before the first line the new text runs into the old first line.
    editor.insertBefore(info, QStringLiteral("; x"), true);
    QCOMPARE(lineText(editor, 0), QString());
    QCOMPARE(lineText(editor, 1), QStringLiteral("; x[Info]"));
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));

    // Removing a header takes its whole group with it.
    files = static_cast<QGroupHeader*>(editor.elementAt(6));
    files->remove(true);
    QVERIFY(!editor.text().contains(QLatin1String("Files")));
    QVERIFY(!editor.text().contains(QLatin1String("sprite")));
    QCOMPARE(kit::describe(editor), kit::describeFresh(editor.text()));
}

void TestElements::chainWalks()
{
    Editor editor;
    editor.setText(stateText);
    QTextElement* last = editor.elementAt(14);
    QCOMPARE(last->previous(QTextElement::headerBit), editor.elementAt(13));
    QCOMPARE(last->previous(QTextElement::headerBit | QTextElement::paramGroupBit, 0), editor.elementAt(13));
    QCOMPARE(last->previous(kit::stateType), editor.elementAt(6));
    // A stop met first ends the walk; all its bits are needed unless the top bit is set.
    QCOMPARE(last->previous(kit::stateType, kit::statedefType), nullptr);
    QCOMPARE(last->previous(kit::stateType, kit::statedefType | 0x1), editor.elementAt(6));
    QCOMPARE(last->previous(kit::stateType, QTextElement::stopAnyBit | kit::statedefType | 0x1), nullptr);
    QCOMPARE(last->previous(QGroupParam::paramGroupType, QGroupParam::paramGroupType),
        editor.elementAt(10)); // want first
    QCOMPARE(editor.elementAt(3)->next(QNameComment::commentGroupType), editor.elementAt(12));
    QCOMPARE(editor.elementAt(3)->nextOfKind(kit::statedefType, 0), editor.elementAt(13));
    QCOMPARE(last->previousOfKind(QGroupParam::paramGroupType, 2), editor.elementAt(7));
    QCOMPARE(editor.head()->previousValid(), nullptr);
}

void TestElements::poolsRecycle()
{
    QRecycleAllocator<QIntParam> pool;
    QIntParam* a = pool.alloc();
    QIntParam* b = pool.alloc();
    QCOMPARE(pool.allocated(), 2);
    a->clean(); // an element finds its own pool
    QCOMPARE(pool.available(), 1);
    QCOMPARE(pool.alloc(), a);
    pool.clean(a);
    pool.clean(b);
    pool.flush();
    QCOMPARE(pool.allocated(), 0);
    QCOMPARE(pool.available(), 0);

    {
        Editor editor;
        editor.setText(stateText);
        const int free = intAlloc.available();
        edit(editor, 4, 0, 10, QString());
        QCOMPARE(intAlloc.available(), free + 1); // the removed line's element went back
        edit(editor, 4, 0, 0, QStringLiteral("life = 2\n"));
        QCOMPARE(intAlloc.available(), free); // and is taken again
    }
    flushCommonElements();
    QCOMPARE(intAlloc.available(), 0);
    QCOMPARE(intAlloc.allocated(), 0); // every editor is gone, so every element was free
}

void TestElements::randomEditsMatchFreshChain_data()
{
    RandomEdits::addRows({
        { "fanyer__mugen/chars/kfm/kfm.def", 400 },
        { "fanyer__mugen/stages/kfm.def", 500 },
        { "fanyer__mugen/data/system.def", 400 },
        { "fanyer__mugen/chars/kfm/kfm.cmd", 500 },
        { "fanyer__mugen/chars/kfm/kfm.cns", 300 },
        { "fanyer__mugen/chars/kfm/kfm.air", 150 },
    });
}

void TestElements::randomEditsMatchFreshChain()
{
    PF_REQUIRE_REALDATA();
    QFETCH(QString, file);
    QFETCH(int, edits);
    const QString original = readText(realDataDir() + QLatin1Char('/') + file);
    QVERIFY2(!original.isEmpty(), qPrintable(file));
    const quint32 seed = qHash(file) ^ 0x5eed;
    RandomEdits random(seed, original.split(QLatin1Char('\n')));

    Editor linked(true); // follows its document, edited as a view would, with undo
    Editor unlinked(false); // follows only its own cursor
    linked.setText(original);
    unlinked.setText(original);
    unlinked.updateAllElements();

    for (int i = 0; i < edits; ++i) {
        QString label;
        const int roll = random.bounded(20);
        if (roll == 0 && linked.document()->isUndoAvailable()) {
            linked.document()->undo();
            label = QStringLiteral("undo");
        } else if (roll == 1 && linked.document()->isRedoAvailable()) {
            linked.document()->redo();
            label = QStringLiteral("redo");
        } else if (roll == 2) {
            linked.beginChange();
            unlinked.beginChange();
            for (int step = 0; step < 3; ++step) {
                const TextEdit edit = random.next(*linked.document());
                edit.apply(linked.cursor());
                edit.apply(unlinked.cursor());
                label += edit.label + QLatin1Char(';');
            }
            unlinked.endChange();
            linked.endChange();
        } else {
            const TextEdit edit = random.next(*linked.document());
            QTextCursor cursor(linked.document());
            edit.apply(cursor);
            edit.apply(unlinked.cursor());
            label = edit.label;
        }
        if (unlinked.text() != linked.text())
            TextEdit::difference(unlinked.text(), linked.text()).apply(unlinked.cursor());

        const QString where
            = QStringLiteral("%1, seed %2, edit %3 (%4)").arg(file).arg(seed).arg(i).arg(label);
        const QStringList fresh = kit::describeFresh(linked.text());
        for (const Editor* editor : { &linked, &unlinked }) {
            const QString broken = kit::checkChain(*editor);
            QVERIFY2(broken.isEmpty(), qPrintable(where + QLatin1String(": ") + broken));
            const QStringList chain = kit::describe(*editor);
            if (chain != fresh) {
                int at = 0;
                while (at < chain.size() && at < fresh.size() && chain.at(at) == fresh.at(at))
                    ++at;
                QFAIL(qPrintable(
                    QStringLiteral("%1, %2 editor: element %3 is \"%4\", a fresh read gives \"%5\"")
                        .arg(where, editor == &linked ? QStringLiteral("linked") : QStringLiteral("unlinked"))
                        .arg(at)
                        .arg(chain.value(at), fresh.value(at))));
            }
        }
    }
}

QTEST_MAIN(TestElements)
#include "tst_elements.moc"
