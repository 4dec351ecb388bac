// State files in the encodings of their authors: each opens, takes a typed
// edit in the editor and saves back in its own encoding, every other line
// byte for byte as it was.
#include "interface/workspaces/qtexteditor.h"
#include "managers/qfilewatchermanager.h"
#include "qrecordingprompt.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"
#include "text/qcommonelements.h"
#include "util/qengineversion.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextCodec>
#include <QtTest>

namespace {

/// Types text a keyboard layout of the language would send: keys carrying the characters.
void typeText(QWidget* widget, const QString& text)
{
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &release);
    }
}

QList<QByteArray> linesOf(const QByteArray& bytes)
{
    return bytes.split('\n');
}

/// A character of the ideographs or syllables whose second byte in `codec`
/// is "]": the byte a careless reader takes for the end of a header.
QString bracketTrailCharacter(QTextCodec* codec)
{
    for (char16_t c = 0x3041; c < 0xD7A0; ++c) {
        const QString text(QChar{c});
        const QByteArray bytes = codec->fromUnicode(text);
        if (bytes.size() == 2 && bytes.at(1) == ']' && codec->toUnicode(bytes) == text)
            return text;
    }
    return QString();
}

} // namespace

class TestTextEncodings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        initCodecs();
        initCommonElements();
        QVERIFY(QSyntaxTextEditor::initProperties(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/data")));
    }

    void fileChangedOnDiskAsksToReload()
    {
        QRecordingPrompt asked;
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("kfm.cns"));
        const auto writeOutside = [&](const QByteArray& bytes) {
            QTest::qWait(20); // a new modification time
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bytes);
        };
        writeOutside("[Statedef 0]\r\ntype = S\r\n");
        QSyntaxTextEditor states(nullptr, pftStates, false, engineVersion::v1_1, true);
        QVERIFY(states.fromFile(path, 0, false));
        QFileWatcherManager watcher;
        watcher.watch(&states);

        // Reload accepted: the other program's text comes in.
        asked.script({QPrompt::Yes});
        writeOutside("[Statedef 1]\r\ntype = S\r\n");
        QTRY_COMPARE(asked.count(QStringLiteral("question")), 1);
        QCOMPARE(states.document()->toPlainText(), QStringLiteral("[Statedef 1]\ntype = S\n"));
        QVERIFY(!states.isModified());

        // Refused: the author's edits stay, and count as a change to save.
        QTextCursor cursor(states.document());
        cursor.insertText(QStringLiteral("; mine\n"));
        asked.script({QPrompt::No});
        writeOutside("[Statedef 2]\r\n");
        QTRY_COMPARE(asked.count(QStringLiteral("question")), 2);
        QVERIFY(states.document()->toPlainText().startsWith(QStringLiteral("; mine\n[Statedef 1]")));
        QVERIFY(states.isModified());

        // The program's own save asks nothing.
        QVERIFY(states.toFile(path, false, false));
        QTest::qWait(300);
        QCOMPARE(asked.count(QStringLiteral("question")), 2);
        // And the file is still watched after the save replaced it.
        asked.script({QPrompt::Yes});
        writeOutside("[Statedef 3]\r\n");
        QTRY_COMPARE(asked.count(QStringLiteral("question")), 3);
        QCOMPARE(states.document()->toPlainText(), QStringLiteral("[Statedef 3]\n"));
    }

    void savesInItsOwnEncoding_data()
    {
        QTest::addColumn<QByteArray>("codec");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<QString>("typed");
        // The codec is left to the detector: each file is opened as with no encoding chosen.
        QTest::newRow("Shift-JIS") << QByteArray("Shift_JIS")
                                   << QStringLiteral("立ち状態の基本動作です。ここで必殺技の入力を確認します。")
                                   << QStringLiteral("；追加した行");
        QTest::newRow("GBK") << QByteArray("GBK") << QStringLiteral("站立状态的基本动作。这里检查必杀技的输入和攻击判定。")
                             << QStringLiteral("；新增的注释");
        QTest::newRow("CP949") << QByteArray("windows-949")
                               << QStringLiteral("서 있는 상태의 기본 동작입니다. 여기서 필살기 입력을 확인합니다.")
                               << QStringLiteral("；추가한 설명");
    }

    void savesInItsOwnEncoding()
    {
        QFETCH(QByteArray, codec);
        QFETCH(QString, comment);
        QFETCH(QString, typed);
        QTextCodec* textCodec = QTextCodec::codecForName(codec);
        QVERIFY(textCodec);
        // Code page 949 never pairs a byte with "]"; the other two do.
        const QString trail = bracketTrailCharacter(textCodec);
        QVERIFY(!trail.isEmpty() || codec == "windows-949");
        QByteArray original;
        for (int i = 0; i < 12; ++i) {
            // Headers and comments also hold a character whose second byte is "]".
            const QString state = QStringLiteral("; %1 %2\r\n[State 0, %3%5]\r\ntype = Null\r\ntrigger1 = Time = %4 ; %1%5]\r\n\r\n")
                                      .arg(comment)
                                      .arg(i)
                                      .arg(comment.left(4))
                                      .arg(i)
                                      .arg(trail);
            original += textCodec->fromUnicode(state);
        }
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("states.cns"));
        {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(original);
        }

        QSyntaxTextEditor states(nullptr, pftStates, false, engineVersion::v1_1, true);
        QVERIFY(states.fromFile(path, 0, false));
        // The detector's name may be another of the codec's names, or a codec
        // that contains it (GB18030 for GBK): what matters is that it reads
        // and writes these bytes as the author's own.
        QTextCodec* detected = QTextCodec::codecForName(codecName(states.codec()).toLatin1());
        QVERIFY2(detected && states.codec() != 0, qPrintable(codecName(states.codec())));
        QCOMPARE(detected->fromUnicode(detected->toUnicode(original)), original);
        QVERIFY2(states.document()->toPlainText().contains(comment), qPrintable(codecName(states.codec())));
        QVERIFY(states.document()->findBlockByNumber(1).text().endsWith(trail + QLatin1Char(']')));

        QTextEditor editor;
        editor.setTextDocument(states.document());
        editor.show();
        const int edited = 6; // "type = Null" of the second state
        QTextCursor cursor(states.document()->findBlockByNumber(edited));
        cursor.movePosition(QTextCursor::EndOfBlock);
        editor.setTextCursor(cursor);
        typeText(&editor, QStringLiteral(" ") + typed);
        QVERIFY(states.isModified());
        const int readWith = states.codec();
        QVERIFY(states.toFile(path, false, false));
        QCOMPARE(states.codec(), readWith); // no fall-back to UTF-8: every character had its bytes

        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> saved = linesOf(file.readAll());
        const QList<QByteArray> before = linesOf(original);
        QCOMPARE(saved.size(), before.size());
        for (int line = 0; line < before.size(); ++line) {
            if (line == edited)
                QCOMPARE(saved.at(line), before.at(line).chopped(1) + textCodec->fromUnicode(QStringLiteral(" ") + typed) + "\r");
            else
                QCOMPARE(saved.at(line), before.at(line));
        }
    }
};

QTEST_MAIN(TestTextEncodings)
#include "tst_textencodings.moc"
