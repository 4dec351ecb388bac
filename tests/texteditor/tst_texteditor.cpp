// The text editor widget as an author uses it: typing, folding, the editing
// keys, brackets, completion and the checker's findings under the text.
#include "interface/qquickfind.h"
#include "interface/workspaces/qtexteditor.h"
#include "interface/workspaces/qtextoutline.h"
#include "text/qtextsearch.h"
#include "managers/qsctrlmanager.h"
#include "managers/qsnippetmanager.h"
#include "syntax/qluasyntaxhierarchy.h"
#include "syntax/qmugensyntaxproperties.h"
#include "syntax/qsyntaxprocessor.h"
#include "interface/workspaces/qtextcompletions.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"
#include "text/qcommonelements.h"
#include "util/qengineversion.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCompleter>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QToolTip>
#include <QtTest>

namespace {

const char* const stateText = "[Statedef 200]\n"
                              "type = S\n"
                              "anim = 200\n"
                              "\n"
                              "[State 200, Hit]\n"
                              "type = HitDef\n"
                              "trigger1 = AnimElem = 3\n"
                              "\n"
                              "[State 200, End]\n"
                              "type = ChangeState\n"
                              "trigger1 = !AnimTime\n"
                              "value = 0";

QString lineText(QTextEditor& editor, int line)
{
    return editor.document()->findBlockByNumber(line).text();
}

void putCursor(QTextEditor& editor, int line, int column)
{
    QTextCursor cursor(editor.document()->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
    editor.setTextCursor(cursor);
}

} // namespace

class TestTextEditor : public QObject
{
    Q_OBJECT

    /// A checked state document shown in a fresh editor.
    struct Fixture
    {
        QSyntaxTextEditor states;
        QTextEditor editor;
        explicit Fixture(unsigned int version, const QString& text = QString::fromLatin1(stateText))
            : states(nullptr, pftStates, false, version, true)
        {
            states.document()->setPlainText(text);
            editor.setTextDocument(states.document());
            editor.resize(700, 500);
            editor.show();
        }
    };

private slots:
    void initTestCase()
    {
        initCodecs();
        initCommonElements();
        QVERIFY(QSyntaxTextEditor::initProperties(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data")));
    }

    void foldsAndUnfoldsSections()
    {
        Fixture f(engineVersion::v1_1);
        QTextEditor& editor = f.editor;
        QVERIFY(QTextEditor::isSectionHeader(editor.document()->findBlockByNumber(4)));
        QVERIFY(!QTextEditor::isSectionHeader(editor.document()->findBlockByNumber(5)));
        putCursor(editor, 6, 3);
        editor.setFolded(4, true);
        QVERIFY(editor.isFolded(4));
        for (int line = 5; line <= 7; ++line)
            QVERIFY(!editor.document()->findBlockByNumber(line).isVisible());
        QVERIFY(editor.document()->findBlockByNumber(8).isVisible()); // the next section stays
        QVERIFY(editor.document()->findBlockByNumber(3).isVisible());
        // The cursor left the hidden lines for the header.
        QCOMPARE(editor.textCursor().blockNumber(), 4);
        // Typing on the header changes only the header.
        QTest::keyClicks(&editor, QStringLiteral("x"));
        QCOMPARE(lineText(editor, 4), QStringLiteral("[State 200, Hit]x"));
        QCOMPARE(lineText(editor, 5), QStringLiteral("type = HitDef"));

        // A click on the fold box in the margin opens it again.
        QWidget* gutter = editor.findChild<QWidget*>(QStringLiteral("textGutter"));
        QVERIFY(gutter);
        const QRect header = editor.cursorRect(QTextCursor(editor.document()->findBlockByNumber(4)));
        QTest::mouseClick(gutter, Qt::LeftButton, {}, QPoint(gutter->width() - 6, header.center().y()));
        QVERIFY(!editor.isFolded(4));
        QVERIFY(editor.document()->findBlockByNumber(6).isVisible());

        // Moving into folded lines unfolds them.
        editor.setFolded(0, true);
        putCursor(editor, 2, 0);
        QVERIFY(!editor.isFolded(0));
        editor.setFolded(0, true);
        editor.setFolded(8, true);
        editor.unfoldAll();
        QVERIFY(!editor.isFolded(0) && !editor.isFolded(8));
    }

    void editingKeysAreSingleUndoSteps()
    {
        Fixture f(engineVersion::v1_1);
        QTextEditor& editor = f.editor;
        QTextDocument* document = editor.document();
        const QString original = document->toPlainText();

        // Ctrl+/ comments the selected lines, and again uncomments them.
        QTextCursor cursor(document->findBlockByNumber(5));
        cursor.setPosition(document->findBlockByNumber(7).position(), QTextCursor::KeepAnchor);
        editor.setTextCursor(cursor);
        QTest::keyClick(&editor, Qt::Key_Slash, Qt::ControlModifier);
        QCOMPARE(lineText(editor, 5), QStringLiteral(";type = HitDef"));
        QCOMPARE(lineText(editor, 6), QStringLiteral(";trigger1 = AnimElem = 3"));
        QCOMPARE(lineText(editor, 7), QString()); // the line the selection ends at is left alone
        QTest::keyClick(&editor, Qt::Key_Slash, Qt::ControlModifier);
        QCOMPARE(document->toPlainText(), original);
        QTest::keyClick(&editor, Qt::Key_Slash, Qt::ControlModifier);
        document->undo();
        QCOMPARE(document->toPlainText(), original);

        // Tab and Shift+Tab indent and outdent a selection of lines.
        editor.setTextCursor(cursor);
        QTest::keyClick(&editor, Qt::Key_Tab);
        QCOMPARE(lineText(editor, 5), QStringLiteral("\ttype = HitDef"));
        QCOMPARE(lineText(editor, 6), QStringLiteral("\ttrigger1 = AnimElem = 3"));
        QTest::keyClick(&editor, Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(document->toPlainText(), original);

        // Ctrl+D duplicates the line; one undo takes it back.
        putCursor(editor, 9, 4);
        QTest::keyClick(&editor, Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(lineText(editor, 9), QStringLiteral("type = ChangeState"));
        QCOMPARE(lineText(editor, 10), QStringLiteral("type = ChangeState"));
        QCOMPARE(editor.textCursor().blockNumber(), 10);
        QCOMPARE(editor.textCursor().positionInBlock(), 4);
        document->undo();
        QCOMPARE(document->toPlainText(), original);

        // Alt+Up and Alt+Down move the line, the last line included.
        putCursor(editor, 11, 2);
        QTest::keyClick(&editor, Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(lineText(editor, 10), QStringLiteral("value = 0"));
        QCOMPARE(lineText(editor, 11), QStringLiteral("trigger1 = !AnimTime"));
        QCOMPARE(editor.textCursor().blockNumber(), 10);
        QTest::keyClick(&editor, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(document->toPlainText(), original);
        QTest::keyClick(&editor, Qt::Key_Down, Qt::AltModifier); // nothing below the last line
        QCOMPARE(document->toPlainText(), original);
        putCursor(editor, 0, 0);
        QTest::keyClick(&editor, Qt::Key_Up, Qt::AltModifier); // nothing above the first
        QCOMPARE(document->toPlainText(), original);
    }

    void matchesBrackets()
    {
        Fixture f(engineVersion::v1_1, QStringLiteral("[State 0, x]\ntrigger1 = (Var(1) + 2) * 3 ; (not here"));
        QTextEditor& editor = f.editor;
        putCursor(editor, 1, 11); // before the outer "("
        const QList<QTextEdit::ExtraSelection> selections = editor.extraSelections();
        QCOMPARE(selections.size(), 4); // the line, the range, both brackets
        QCOMPARE(selections.at(1).cursor.selectedText(), QStringLiteral("(Var(1) + 2)"));
        putCursor(editor, 1, 18); // behind the inner ")"
        QCOMPARE(editor.extraSelections().at(1).cursor.selectedText(), QStringLiteral("(1)"));
        putCursor(editor, 1, 37); // a bracket in a comment matches nothing
        QCOMPARE(editor.extraSelections().size(), 1);
    }

    void misspelledControllerIsUnderlinedAndMarked()
    {
        Fixture f(engineVersion::v1_1, QStringLiteral("[Statedef 0]\n\n[State 0, x]\n"));
        QTextEditor& editor = f.editor;
        putCursor(editor, 3, 0);
        QTest::keyClicks(&editor, QStringLiteral("type = ChangeStat"));
        editor.completer()->popup()->hide();
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClicks(&editor, QStringLiteral("trigger1 = 1"));
        const QTextBlock line = editor.document()->findBlockByNumber(3);
        const auto* data = static_cast<const QTextEditorBlockData*>(line.userData());
        QVERIFY(data && !data->messages.isEmpty());
        QVERIFY(data->messages.first().isError());
        QCOMPARE(data->messages.first().text, QStringLiteral("Unknown 'State' type"));
        bool underlined = false;
        for (const QTextLayout::FormatRange& range : line.layout()->formats())
            underlined |= range.format.underlineStyle() != QTextCharFormat::NoUnderline && range.format.underlineColor().red() > 200;
        QVERIFY(underlined);
        f.states.checkErrors();
        QVERIFY(f.states.messages()->count(mtError) >= 1); // the list of the window counts it

        // The margin shows a red mark on that line only.
        QWidget* gutter = editor.findChild<QWidget*>(QStringLiteral("textGutter"));
        const QImage image = gutter->grab().toImage();
        const auto redIn = [&](int line) {
            const QRect rect = editor.cursorRect(QTextCursor(editor.document()->findBlockByNumber(line)));
            for (int y = rect.top(); y <= rect.bottom(); ++y)
                for (int x = 0; x < 12; ++x) {
                    const QColor c = image.pixelColor(x * image.width() / gutter->width(), y);
                    if (c.red() > 180 && c.green() < 90)
                        return true;
                }
            return false;
        };
        QVERIFY(redIn(3));
        QVERIFY(!redIn(4));

        // Mending the word clears the finding.
        putCursor(editor, 3, 17);
        QTest::keyClicks(&editor, QStringLiteral("e"));
        editor.completer()->popup()->hide();
        QVERIFY(data->messages.isEmpty());
    }

    void completesControllersForTheVersion()
    {
        Fixture f(engineVersion::v1_0, QStringLiteral("[Statedef 0]\n\n[State 0, x]\n"));
        QTextEditor& editor = f.editor;
        putCursor(editor, 3, 0);
        QTest::keyClicks(&editor, QStringLiteral("type = "));
        QAbstractItemView* popup = editor.completer()->popup();
        QVERIFY(popup->isVisible());
        const auto offered = [&]() {
            QStringList words;
            QAbstractItemModel* model = editor.completer()->completionModel();
            for (int row = 0; row < model->rowCount(); ++row)
                words.append(model->index(row, 0).data().toString());
            return words;
        };
        QVERIFY(offered().contains(QStringLiteral("ChangeState")));
        QVERIFY(offered().contains(QStringLiteral("RemapPal"))); // new in 1.0
        QTest::keyClicks(&editor, QStringLiteral("changes"));
        QCOMPARE(offered(), QStringList{QStringLiteral("ChangeState")});
        QTest::keyClick(popup, Qt::Key_Return);
        QCOMPARE(lineText(editor, 3), QStringLiteral("type = ChangeState"));

        // The parameters of the named controller are offered at a new line.
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClicks(&editor, QStringLiteral("val"));
        QVERIFY(popup->isVisible());
        QVERIFY(offered().contains(QStringLiteral("value")));
        popup->hide();
        // Triggers after "=" of a trigger line.
        QTest::keyClick(&editor, Qt::Key_Return);
        QTest::keyClicks(&editor, QStringLiteral("trigger1 = ani"));
        QVERIFY(popup->isVisible());
        QVERIFY(offered().join(QLatin1Char(' ')).contains(QStringLiteral("animtime"), Qt::CaseInsensitive));
        popup->hide();

        // The Beta knows no RemapPal.
        f.states.setSyntaxVersion(engineVersion::beta);
        putCursor(editor, 3, 7);
        editor.complete();
        QVERIFY(!offered().contains(QStringLiteral("RemapPal")));
        popup->hide();
        // Comments get no list.
        putCursor(editor, 0, 0);
        QTest::keyClicks(&editor, QStringLiteral("; type = "));
        QVERIFY(!popup->isVisible());
    }

    void outlineNestsStatesAndJumps()
    {
        Fixture f(engineVersion::v1_1, QStringLiteral("; Stand\n[Statedef 0]\ntype = S\n[State 0, a]\ntype = Null\n"
                                                       "[Statedef 20] ; Walk\n[State 20, b]\ntype = VelSet\n"
                                                       "[Command]\nname = \"QCF_x\"\ncommand = ~D, DF, F, x\n"
                                                       "[Begin Action 5] ; Turn\n[Files]"));
        QTextOutline outline;
        outline.setTextDocument(f.states.document());
        QCOMPARE(outline.topLevelItemCount(), 5);
        QCOMPARE(outline.topLevelItem(0)->text(0), QStringLiteral("Statedef 0  Stand"));
        QCOMPARE(outline.topLevelItem(0)->child(0)->text(0), QStringLiteral("State 0, a  (Null)"));
        QCOMPARE(outline.topLevelItem(1)->text(0), QStringLiteral("Statedef 20  Walk"));
        QCOMPARE(outline.topLevelItem(1)->child(0)->text(0), QStringLiteral("State 20, b  (VelSet)"));
        QCOMPARE(outline.topLevelItem(2)->text(0), QStringLiteral("Command \"QCF_x\""));
        QCOMPARE(outline.topLevelItem(3)->text(0), QStringLiteral("Begin Action 5  Turn"));
        QCOMPARE(outline.topLevelItem(4)->text(0), QStringLiteral("Files"));
        QSignalSpy jumped(&outline, &QTextOutline::lineActivated);
        emit outline.itemClicked(outline.topLevelItem(1)->child(0), 0);
        QCOMPARE(jumped.value(0).value(0).toInt(), 6);

        // It follows edits on its timer, not on each key.
        putCursor(f.editor, 0, 0);
        QTest::keyClicks(&f.editor, QStringLiteral("[Statedef 9]"));
        QTest::keyClick(&f.editor, Qt::Key_Return);
        QCOMPARE(outline.topLevelItemCount(), 5);
        QTRY_COMPARE(outline.topLevelItemCount(), 6);
    }

    void quickFindSearchesAndReplaces()
    {
        Fixture f(engineVersion::v1_1);
        QQuickFind find(&f.editor);
        f.editor.setFocus();
        putCursor(f.editor, 0, 0);
        find.start();
        QTest::keyClicks(find.findField(), QStringLiteral("anim"));
        QCOMPARE(f.editor.textCursor().blockNumber(), 2); // "anim = 200", found as typed
        QVERIFY(find.findNext());
        QCOMPARE(f.editor.textCursor().blockNumber(), 6); // AnimElem
        find.wordBox()->setChecked(true);
        QVERIFY(find.findNext()); // whole words: only "anim" itself, wrapping round
        QCOMPARE(f.editor.textCursor().blockNumber(), 2);
        find.wordBox()->setChecked(false);
        find.regexBox()->setChecked(true);
        find.findField()->setText(QStringLiteral("trigger(\\d)"));
        find.replaceField()->setText(QStringLiteral("trigger\\1"));
        QCOMPARE(find.replaceAll(), 2);
        find.findField()->setText(QStringLiteral("AnimTime"));
        find.replaceField()->setText(QStringLiteral("AnimElemTime(1)"));
        find.regexBox()->setChecked(false);
        QCOMPARE(find.replaceAll(), 1);
        QCOMPARE(lineText(f.editor, 10), QStringLiteral("trigger1 = !AnimElemTime(1)"));
        f.editor.document()->undo(); // one step per replace
        QCOMPARE(lineText(f.editor, 10), QStringLiteral("trigger1 = !AnimTime"));
        find.findField()->setText(QStringLiteral("(unclosed"));
        find.regexBox()->setChecked(true);
        QVERIFY(!find.findNext());
        QVERIFY(!QTextSearch(QStringLiteral("(unclosed"), true, false, false).isValid());
    }

    void templatesAndDescriptionsCoverTheVocabulary()
    {
        QSCtrlManager sctrls(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data/sctrls"));
        const QMugenSyntaxProperties* vocabulary = QSyntaxTextEditor::mugenProperties();
        QSet<QString> listed;
        for (const QString& name : sctrls.controllers()) {
            listed.insert(name.toLower());
            QVERIFY2(!sctrls.description(name).isEmpty(), qPrintable(name));
        }
        for (int i = 0; i < vocabulary->controllerCount(QMugenSyntaxProperties::StateController); ++i) {
            const QSynController& controller = vocabulary->controller(QMugenSyntaxProperties::StateController, i);
            QVERIFY2(listed.contains(controller.name.toLower()), qPrintable(controller.name));
        }
        // Every trigger spelled in the file is one the checker knows.
        const QSynTable& triggers = vocabulary->section(QStringLiteral("trigger"));
        const QHash<QString, QString> spelled = sctrls.triggerSpellings();
        for (auto it = spelled.cbegin(); it != spelled.cend(); ++it)
            QVERIFY2(triggers.entries.contains(it.key()), qPrintable(it.value()));
        QCOMPARE(spelled.value(QStringLiteral("animelemtime")), QStringLiteral("AnimElemTime"));

        // A template, inserted and checked, gives no error but its empty values.
        QCOMPARE(sctrls.templateFor(QStringLiteral("varset"), QStringLiteral("200")),
                 QStringLiteral("[State 200, VarSet]\ntype = VarSet\ntrigger1 = \nv = \nvalue = \n"));
        QVERIFY(sctrls.templateFor(QStringLiteral("NoSuch"), QStringLiteral("0")).isEmpty());

        // The editor tells a word's description under the mouse, and completes in its spelling.
        QTextCompletions::setSpelling(spelled);
        Fixture f(engineVersion::v1_1);
        f.editor.setDescriber([&](const QString& word) { return sctrls.description(word); });
        const QRect word = f.editor.cursorRect(QTextCursor(f.editor.document()->findBlockByNumber(9)));
        const QPoint at(word.left() + f.editor.fontMetrics().horizontalAdvance(QStringLiteral("type = Chan")), word.center().y());
        QHelpEvent help(QEvent::ToolTip, at, f.editor.viewport()->mapToGlobal(at));
        QApplication::sendEvent(f.editor.viewport(), &help);
        QCOMPARE(QToolTip::text(), sctrls.description(QStringLiteral("ChangeState")));
        putCursor(f.editor, 10, 20);
        QTest::keyClicks(&f.editor, QStringLiteral(" || AnimElemT"));
        QAbstractItemModel* offered = f.editor.completer()->completionModel();
        QCOMPARE(offered->index(0, 0).data().toString(), QStringLiteral("AnimElemTime"));
        QTextCompletions::setSpelling({});
    }

    void luaOutlineListsFunctions()
    {
        QTextDocument lua;
        lua.setPlainText(QStringLiteral("-- a tool script\n"
                                        "local helper = require(\"x\")\n"
                                        "function main(project, arg)\n"
                                        "  local function inner(a)\n"
                                        "    if a then return 1 elseif b then return 2 end\n"
                                        "    for i = 1, 3 do print(i) end\n"
                                        "  end\n"
                                        "  return inner(1)\n"
                                        "end\n"
                                        "--[[\n"
                                        "function commented()\n"
                                        "end\n"
                                        "]]\n"
                                        "M.make = function(x,  y) return x end\n"
                                        "local s = \"function notme()\"\n"
                                        "function template() end\n"));
        QLuaSyntaxHierarchy hierarchy(&lua);
        hierarchy.update();
        const QList<QLuaSyntaxHierarchy::Item> items = hierarchy.outline();
        QStringList labels;
        for (const QLuaSyntaxHierarchy::Item& item : items)
            labels.append(QStringLiteral("%1@%2/%3").arg(item.label).arg(item.line).arg(item.level));
        QCOMPARE(labels, (QStringList{QStringLiteral("main(project, arg)@2/0"), QStringLiteral("inner(a)@3/1"),
                                      QStringLiteral("M.make(x, y)@13/0"), QStringLiteral("template()@15/0")}));

        // The outline panel picks the Lua outline by the text, and nests as it does for states.
        QTextOutline outline;
        outline.setTextDocument(&lua);
        QCOMPARE(outline.topLevelItemCount(), 3);
        QCOMPARE(outline.topLevelItem(0)->child(0)->text(0), QStringLiteral("inner(a)"));
    }

    void snippetsCheckCleanWhereTheyBelong()
    {
        QSnippetManager snippets(nullptr, qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data/snippets"));
        QVERIFY(snippets.snippetsFor(QStringLiteral("states")).size() >= 6);
        QVERIFY(snippets.snippetsFor(QStringLiteral("commands")).size() >= 2);
        for (const QSnippetManager::Snippet& snippet : snippets.snippets()) {
            QVERIFY2(!snippet.description.isEmpty() && !snippet.kinds.isEmpty(), qPrintable(snippet.title));
            QVERIFY2(snippet.text.endsWith(QLatin1Char('\n')), qPrintable(snippet.title));
            for (const QString& kind : snippet.kinds) {
                // In a file of its kind, under a state definition as an author would put it.
                const bool commands = kind == QLatin1String("commands");
                QSyntaxTextEditor text(nullptr, commands ? pftCommands : pftStates, false, engineVersion::v1_0, true);
                const QString above = snippet.text.startsWith(QLatin1String("[State")) ? QStringLiteral("[Statedef -1]\n") : QString();
                text.document()->setPlainText(above + snippet.text);
                text.checkErrors();
                QString found;
                for (int i = 0; i < text.messages()->count(); ++i)
                    found += QMessages::format(text.messages()->at(i)) + QLatin1Char('\n');
                QVERIFY2(text.messages()->count(mtError) == 0, qPrintable(snippet.title + QStringLiteral(": ") + found));
            }
        }
        // A file without a title line is no snippet; a missing folder gives none.
        QTemporaryDir dir;
        QFile plain(dir.filePath(QStringLiteral("plain.txt")));
        QVERIFY(plain.open(QIODevice::WriteOnly));
        plain.write("[State 0, x]\ntype = Null\n");
        plain.close();
        QFile good(dir.filePath(QStringLiteral("good.txt")));
        QVERIFY(good.open(QIODevice::WriteOnly));
        good.write("; Mine | Says hello | states\r\n[State 0, Hello]\r\ntype = Null");
        good.close();
        QSnippetManager mine(nullptr, dir.path());
        QCOMPARE(mine.snippets().size(), 1);
        QCOMPARE(mine.snippet(QStringLiteral("Mine")).text, QStringLiteral("[State 0, Hello]\ntype = Null\n"));
        QVERIFY(mine.snippet(QStringLiteral("plain")).title.isNull());
        QVERIFY(QSnippetManager(nullptr, dir.filePath(QStringLiteral("none"))).snippets().isEmpty());
    }

    void zoomsAndTellsFindings()
    {
        Fixture f(engineVersion::v1_1);
        QTextEditor& editor = f.editor;
        const qreal size = editor.font().pointSizeF();
        editor.zoomBy(3);
        QVERIFY(editor.font().pointSizeF() > size);
        editor.zoomReset();
        QCOMPARE(editor.font().pointSizeF(), size);
        QCOMPARE(editor.zoomSteps(), 0);
    }
};

QTEST_MAIN(TestTextEditor)
#include "tst_texteditor.moc"
