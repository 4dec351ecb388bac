#include "projectkit.h"
#include "realdata.h"
#include "tst_project.h"

#include "qrecordingprompt.h"
#include "syntax/qmugensyntaxhierarchy.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"
#include "util/qengineversion.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCodec>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

namespace {

/// Enough Japanese for the detector to be sure of the encoding.
QString japaneseStates()
{
    QString text;
    for (int i = 0; i < 6; ++i) {
        text += QStringLiteral("; 日本語のコメントです。キャラクターの立ち状態の説明。\n[Statedef %1]\n"
                               "type = S\n; 攻撃と防御、必殺技の設定\nanim = %1\n\n")
                    .arg(i);
    }
    return text;
}

QByteArray encoded(const char* codec, const QString& text)
{
    return QTextCodec::codecForName(codec)->fromUnicode(text);
}

} // namespace

void TestProject::detectLanguage_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("language");
    QTest::newRow("comment") << QStringLiteral("; only a comment\n") << int(sptMugen);
    QTest::newRow("indented header") << QStringLiteral("  [Statedef 1]\ntype = S") << int(sptMugen);
    QTest::newRow("header on a later line") << QStringLiteral("x = 1\n[Foo]\n") << int(sptMugen);
    QTest::newRow("lua") << QStringLiteral("local function f() end") << int(sptLua);
    QTest::newRow("function at the very start") << QStringLiteral("function f() end") << int(sptNone);
    QTest::newRow("empty") << QString() << int(sptNone);
    QTest::newRow("neither") << QStringLiteral("x = 1\ny = 2") << int(sptNone);
}

void TestProject::detectLanguage()
{
    QFETCH(QString, text);
    QFETCH(int, language);
    QCOMPARE(int(QSyntaxTextEditor::detectLanguage(text)), language);

    // A file without a language has no processor and no outline.
    QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("file.txt"));
    kit::writeBytes(fileName, text.toUtf8());
    QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_1, true);
    QVERIFY(editor.fromFile(fileName, 0, false));
    QCOMPARE(int(editor.language()), language);
    QCOMPARE(editor.processor() != nullptr, language == sptMugen);
    QCOMPARE(editor.hierarchy() != nullptr, language == sptMugen);
}

void TestProject::encodingsSurviveASave_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("codec"); // empty: any codec that gives the bytes back
    QTest::addColumn<bool>("mark");

    const QString ascii = QStringLiteral("; plain\n[Statedef 0]\ntype = S\n\tanim = 0\n");
    QTest::newRow("ascii, LF") << ascii.toLatin1() << QString() << false;
    QTest::newRow("ascii, mixed ends, no final end")
        << QByteArray("[Statedef 0]\r\ntype = S\nanim = 0\rctrl = 1") << QString() << false;
    QTest::newRow("utf-8 with mark") << QByteArray("\xEF\xBB\xBF") + encoded("UTF-8", japaneseStates())
                                     << QStringLiteral("UTF-8") << true;
    QTest::newRow("utf-8 without mark") << encoded("UTF-8", japaneseStates()) << QStringLiteral("UTF-8") << false;
    QTest::newRow("shift-jis") << encoded("Shift_JIS", japaneseStates()) << QStringLiteral("Shift_JIS") << false;
    QTest::newRow("no-break space kept")
        << QByteArray("; a\xC2\xA0" "b\r\n[Statedef 0]\r\n") << QString() << false;
}

void TestProject::encodingsSurviveASave()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, codec);
    QFETCH(bool, mark);

    QTemporaryDir dir;
    const QString source = dir.filePath(QStringLiteral("in.cns"));
    const QString target = dir.filePath(QStringLiteral("out.cns"));
    kit::writeBytes(source, bytes);

    QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_1, true);
    QVERIFY(editor.fromFile(source, 0, false));
    QVERIFY(!editor.document()->toPlainText().startsWith(QChar(QChar::ByteOrderMark)));
    QCOMPARE(editor.hasByteOrderMark(), mark);
    if (!codec.isEmpty())
        QCOMPARE(codecName(editor.codec()), codec);
    QVERIFY(editor.toFile(target, false, false));
    QCOMPARE(kit::readBytes(target), kit::withCrlf(bytes));
    QCOMPARE(editor.fileName(), QFileInfo(target).absoluteFilePath());
    QCOMPARE(editor.title(), QStringLiteral("out.cns"));

    // Read back, the text is the same.
    QSyntaxTextEditor again(nullptr, pftStates, false, engineVersion::v1_1, true);
    QVERIFY(again.fromFile(target, 0, false));
    QCOMPARE(again.document()->toRawText(), editor.document()->toRawText());
}

void TestProject::realTextFilesComeBackWithCrlf()
{
    PF_REQUIRE_REALDATA();
    QTemporaryDir dir;
    const QStringList files = realDataFiles({QStringLiteral("def"), QStringLiteral("cns"), QStringLiteral("cmd"),
                                             QStringLiteral("air"), QStringLiteral("st")});
    QVERIFY(files.size() > 100);
    int marked = 0;
    for (const QString& fileName : files) {
        QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_1, true);
        QVERIFY2(editor.fromFile(fileName, 0, false), qPrintable(fileName));
        const QString target = dir.filePath(QStringLiteral("copy"));
        QVERIFY2(editor.toFile(target, false, false), qPrintable(fileName));
        QVERIFY2(kit::readBytes(target) == kit::withCrlf(kit::readBytes(fileName)), qPrintable(fileName));
        marked += editor.hasByteOrderMark() ? 1 : 0;
    }
    QVERIFY(marked > 0);
}

void TestProject::failedSaveKeepsPreviousFile()
{
    QTemporaryDir dir;
    const QString source = dir.filePath(QStringLiteral("kfm.cns"));
    kit::writeBytes(source, "[Statedef 0]\r\ntype = S\r\n");
    QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_1, true);
    QVERIFY(editor.fromFile(source, 0, false));
    QTextCursor(editor.document()).insertText(QStringLiteral("; edited\n"));
    QVERIFY(editor.isModified());

    // The save writes a temporary file beside the target first: with the
    // longest name a folder allows, the temporary name can't be made, even
    // for a user who may write anywhere. The previous file must stay.
    const QString longest = dir.filePath(QString(251, QLatin1Char('a')) + QStringLiteral(".cns"));
    kit::writeBytes(longest, "previous\r\n");
    QCOMPARE(kit::readBytes(longest), QByteArray("previous\r\n"));
    QVERIFY(!editor.toFile(longest, false, false));
    QCOMPARE(kit::readBytes(longest), QByteArray("previous\r\n"));
    QVERIFY(editor.isModified());
    QCOMPARE(editor.fileName(), QFileInfo(source).absoluteFilePath());
    QVERIFY(!editor.isSaving());

    QVERIFY(!editor.toFile(dir.filePath(QStringLiteral("no/such/folder/x.cns")), false, false));
    QVERIFY(editor.toFile(source, false, false));
    QCOMPARE(kit::readBytes(source), QByteArray("; edited\r\n[Statedef 0]\r\ntype = S\r\n"));
    QVERIFY(!editor.isModified());
}

void TestProject::failedLoadKeepsDocument()
{
    QTemporaryDir dir;
    const QString source = dir.filePath(QStringLiteral("kfm.cns"));
    kit::writeBytes(source, "[Statedef 0]\r\n");
    QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_1, true);
    QVERIFY(editor.fromFile(source, 0, false));
    QTextCursor(editor.document()).insertText(QStringLiteral("; typed\n"));

    QVERIFY(!editor.fromFile(dir.filePath(QStringLiteral("missing.cns")), 0, false));
    QVERIFY(!editor.fromFile(dir.path(), 0, false));
    QCOMPARE(editor.document()->toPlainText(), QStringLiteral("; typed\n[Statedef 0]\n"));
    QCOMPARE(editor.fileName(), QFileInfo(source).absoluteFilePath());
    QVERIFY(editor.isModified());
}

void TestProject::keepNameLeavesDocumentAlone()
{
    QTemporaryDir dir;
    const QString source = dir.filePath(QStringLiteral("a.cns"));
    const QString copy = dir.filePath(QStringLiteral("run/b.cns"));
    const QString other = dir.filePath(QStringLiteral("c.cns"));
    kit::writeBytes(source, "[Statedef 0]\n");
    kit::writeBytes(other, "[Statedef 9]\n");
    QDir().mkpath(dir.filePath(QStringLiteral("run")));

    QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_1, true);
    QSignalSpy renamed(&editor, &QSyntaxTextEditor::fileNameChanged);
    QVERIFY(editor.fromFile(source, 0, false));
    QCOMPARE(renamed.count(), 1);
    QTextCursor(editor.document()).insertText(QStringLiteral("; typed\n"));

    QVERIFY(editor.toFile(copy, true, true));
    QCOMPARE(kit::readBytes(copy), QByteArray("; typed\r\n[Statedef 0]\r\n"));
    QCOMPARE(editor.fileName(), QFileInfo(source).absoluteFilePath());
    QCOMPARE(editor.title(), QStringLiteral("a.cns"));
    QVERIFY(editor.isModified());

    QVERIFY(editor.fromFile(other, 0, true));
    QCOMPARE(editor.document()->toPlainText(), QStringLiteral("[Statedef 9]\n"));
    QCOMPARE(editor.fileName(), QFileInfo(source).absoluteFilePath());
    QCOMPARE(renamed.count(), 1);
}

void TestProject::unencodableTextSavesAsUtf8()
{
    QTemporaryDir dir;
    const QString source = dir.filePath(QStringLiteral("jp.cns"));
    kit::writeBytes(source, encoded("Shift_JIS", japaneseStates()));
    QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_1, true);
    QVERIFY(editor.fromFile(source, 0, false));
    QCOMPARE(codecName(editor.codec()), QStringLiteral("Shift_JIS"));
    QTextCursor(editor.document()).insertText(QStringLiteral("; 한국어\n"));

    QRecordingPrompt prompt;
    QVERIFY(editor.toFile(source, false, false));
    QCOMPARE(prompt.count(QStringLiteral("warning")), 1);
    QCOMPARE(codecName(editor.codec()), QStringLiteral("UTF-8"));
    QCOMPARE(kit::readBytes(source), kit::withCrlf(encoded("UTF-8", QStringLiteral("; 한국어\n") + japaneseStates())));
}

void TestProject::checkErrorsTakesCheckerFindings()
{
    QTemporaryDir dir;
    const QString source = dir.filePath(QStringLiteral("x.cns"));
    kit::writeBytes(source, "[Statedef 0]\ntype = S\n\n[State 0, a]\ntype = NoSuchThing\ntrigger1 = 1\n\n"
                            "[State 0, b]\ntype = Null\ntrigger1 = BackEdge > 0\n");
    QSyntaxTextEditor editor(nullptr, pftStates, false, engineVersion::v1_0, true);
    QVERIFY(editor.fromFile(source, 0, false));
    editor.checkErrors();
    QCOMPARE(editor.messages()->count(mtError), 2);
    QCOMPARE(editor.messages()->at(0).line, 4);
    QCOMPARE(editor.messages()->at(0).type, mtError);
    QCOMPARE(editor.messages()->at(1).line, 9);
    QCOMPARE(editor.messages()->at(1).index, 11);

    // The trigger is the engine's 1.1: the same text is right there, without an edit.
    editor.setSyntaxVersion(engineVersion::v1_1);
    editor.checkErrors();
    QCOMPARE(editor.messages()->count(mtError), 1);

    // Findings follow typing: fix the controller's name.
    QTextCursor cursor(editor.document()->findBlockByNumber(4));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(QStringLiteral("type = Null"));
    editor.checkErrors();
    QCOMPARE(editor.messages()->count(), 0);
}

void TestProject::outlineAnswersSectionsAndValues()
{
    QTemporaryDir dir;
    const QString source = dir.filePath(QStringLiteral("x.def"));
    kit::writeBytes(source, "[Info]\r\nname = \"A;B\" ; the name\r\n  [ BGdef ]\r\nSPR = x.sff\r\n\r\n[BG 0]\r\n");
    QSyntaxTextEditor editor(nullptr, pftDefinitions, true, engineVersion::v1_1, true);
    QVERIFY(editor.fromFile(source, 0, false));
    QVERIFY(editor.sectionExists(QStringLiteral("bgdef")));
    QVERIFY(editor.sectionExists(QStringLiteral("INFO")));
    QVERIFY(editor.sectionExists(QStringLiteral("BG 0")));
    QVERIFY(!editor.sectionExists(QStringLiteral("camera")));
    QCOMPARE(editor.findValue(QStringLiteral("info"), QStringLiteral("Name")), QStringLiteral("\"A;B\""));
    QCOMPARE(editor.findValue(QStringLiteral("bgdef"), QStringLiteral("spr")), QStringLiteral("x.sff"));
    QVERIFY(editor.findValue(QStringLiteral("bgdef"), QStringLiteral("debugbg")).isNull());
    QVERIFY(editor.findValue(QStringLiteral("camera"), QStringLiteral("startx")).isNull());

    // The outline is rebuilt after the typing stops, not on each key.
    QTextCursor(editor.document()).insertText(QStringLiteral("[Camera]\nstartx = 5\n"));
    QVERIFY(!editor.sectionExists(QStringLiteral("camera")));
    QTRY_VERIFY(editor.sectionExists(QStringLiteral("camera")));
    QCOMPARE(editor.findValue(QStringLiteral("camera"), QStringLiteral("startx")), QStringLiteral("5"));
    QCOMPARE(editor.hierarchy()->groups().size(), 4);
}
