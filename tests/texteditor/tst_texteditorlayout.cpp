// What a keystroke repaints in the text editor: only its own line, even
// though the checker recolours that line while the document reports the
// edit, and what the repaint shows is what a fresh view of the same text shows.
#include "interface/workspaces/qtexteditor.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"
#include "text/qcommonelements.h"
#include "util/qengineversion.h"

#include <QTextBlock>
#include <QtTest>

namespace {

QString states(int count)
{
    QString text = QStringLiteral("[Statedef 200]\ntype = S\n\n");
    for (int i = 0; i < count; ++i)
        text
            += QStringLiteral("[State 200, %1]\ntype = HitDef\ntrigger1 = AnimElem = 3 && Var(10) > 2 ; hit\n"
                              "attr = S, NA\ndamage = 23, 0\n\n")
                   .arg(i);
    return text;
}

/// A checked state document in an editor whose cursor doesn't blink into the pictures.
struct Shown
{
    QSyntaxTextEditor document { nullptr, pftStates, false, engineVersion::v1_1, true };
    QTextEditor editor;
    explicit Shown(const QString& text)
    {
        document.document()->setPlainText(text);
        editor.setTextDocument(document.document());
        editor.setCursorWidth(0);
        editor.resize(700, 400);
        editor.show();
    }
    void putCursor(int line, int column)
    {
        QTextCursor cursor(document.document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
        editor.setTextCursor(cursor);
    }
};

} // namespace

class TestTextEditorLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initCodecs();
        initCommonElements();
        QVERIFY(QSyntaxTextEditor::initProperties(
            qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data")));
    }

    void keystrokeRepaintsItsLine()
    {
        Shown shown(states(40));
        // The end of a trigger: its edits change nothing the lines below depend on.
        const int line = 11;
        shown.putCursor(line, int(shown.document.document()->findBlockByNumber(line).text().size()));
        QVERIFY(QTest::qWaitForWindowExposed(&shown.editor));
        // The document's first edit after it is shown also carries what it
        // kept from its loading, and lays the view out whole once.
        QTest::keyClicks(&shown.editor, QStringLiteral(" "));
        QCoreApplication::processEvents();
        const QRect typed = shown.editor.cursorRect();

        QList<QRect> asked;
        connect(&shown.editor, &QPlainTextEdit::updateRequest, this, [&asked](const QRect& rect, int dy) {
            if (dy == 0)
                asked.append(rect);
        });
        // Keys that recolour the line: the comment goes, an operator and a
        // number come, a stray word is underlined, a comment comes back.
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(&shown.editor, Qt::Key_Backspace);
        QTest::keyClicks(&shown.editor, QStringLiteral("+ 1 x"));
        QTest::keyClicks(&shown.editor, QStringLiteral(" ; note"));
        // The line, and at most the one below that the document's report reaches into; never the view.
        QVERIFY(!asked.isEmpty());
        for (const QRect& rect : std::as_const(asked)) {
            QVERIFY2(rect.top() >= typed.top() - typed.height()
                    && rect.bottom() <= typed.bottom() + 2 * typed.height(),
                qPrintable(QStringLiteral("repainted %1..%2 for the line at %3..%4")
                               .arg(rect.top())
                               .arg(rect.bottom())
                               .arg(typed.top())
                               .arg(typed.bottom())));
        }
    }

    void repaintedLinesLookAsFreshlyPainted()
    {
        Shown typedInto(states(30));
        typedInto.putCursor(8, 0);
        QVERIFY(QTest::qWaitForWindowExposed(&typedInto.editor));
        // A misspelled controller, a new line, a comment, a line joined back:
        // colours and underlines come and go on the lines typed into.
        typedInto.putCursor(7, int(QStringLiteral("type = HitDef").size()));
        QTest::keyClick(&typedInto.editor, Qt::Key_Backspace);
        QTest::keyClicks(&typedInto.editor, QStringLiteral("x"));
        QTest::keyClick(&typedInto.editor, Qt::Key_Return);
        QTest::keyClicks(&typedInto.editor, QStringLiteral("trigger2 = Time > 10 ; later"));
        QTest::keyClick(&typedInto.editor, Qt::Key_Return);
        QTest::keyClick(&typedInto.editor, Qt::Key_Backspace);
        QCoreApplication::processEvents();
        const QString text = typedInto.document.document()->toPlainText();
        const int position = typedInto.editor.textCursor().position();

        Shown fresh(text);
        QTextCursor cursor(fresh.document.document());
        cursor.setPosition(position);
        fresh.editor.setTextCursor(cursor);
        QVERIFY(QTest::qWaitForWindowExposed(&fresh.editor));
        QCoreApplication::processEvents();
        QCOMPARE(typedInto.editor.viewport()->grab().toImage(), fresh.editor.viewport()->grab().toImage());
    }
};

QTEST_MAIN(TestTextEditorLayout)
#include "tst_texteditorlayout.moc"
