#include "interface/dialogs/calculator.h"
#include "interface/qmessageboxprompt.h"
#include "interface/qprogress.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>
#include <QtTest>

namespace {

/// Presses a button of the message box that will be open next, as a person would.
void answerNextBox(QMessageBox::StandardButton button, QString* seenText)
{
    QTimer::singleShot(0, [button, seenText]() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        *seenText = box->text();
        if (button == QMessageBox::NoButton)
            box->reject(); // Escape or the close button
        else
            box->button(button)->click();
    });
}

} // namespace

class TestInterface : public QObject
{
    Q_OBJECT

private slots:
    void messageBoxPromptMapsAnswers()
    {
        QMessageBoxPrompt boxes;
        QString seen;

        answerNextBox(QMessageBox::Yes, &seen);
        QCOMPARE(boxes.question(QStringLiteral("Discard changes"), QStringLiteral("Discard?"),
                                QPrompt::Yes | QPrompt::No, QPrompt::No),
                 QPrompt::Yes);
        QCOMPARE(seen, QStringLiteral("Discard?"));

        answerNextBox(QMessageBox::Cancel, &seen);
        QCOMPARE(boxes.question(QString(), QStringLiteral("Save?"),
                                QPrompt::Save | QPrompt::Discard | QPrompt::Cancel, QPrompt::Save),
                 QPrompt::Cancel);

        // Closing the box without a choice gives the default answer.
        answerNextBox(QMessageBox::NoButton, &seen);
        QCOMPARE(boxes.question(QString(), QStringLiteral("Remove?"), QPrompt::Yes | QPrompt::No,
                                QPrompt::No),
                 QPrompt::No);

        answerNextBox(QMessageBox::Ok, &seen);
        boxes.critical(QStringLiteral("XML Error"), QStringLiteral("bad file"));
        QCOMPARE(seen, QStringLiteral("bad file"));
    }

    void calculatorEvaluates()
    {
        double value = 0;
        QVERIFY(Calculator::evaluate(QStringLiteral("(320 - 48) / 2"), value));
        QCOMPARE(value, 136.0);
        QVERIFY(Calculator::evaluate(QStringLiteral("-2 * -(3 + 1) % 5 + 0.5"), value));
        QCOMPARE(value, 3.5);
        for (const char* bad : {"", "1 +", "(2", "2)", "1 / 0", "4 % 0", "1..2", "abc", "3 4"})
            QVERIFY2(!Calculator::evaluate(QString::fromLatin1(bad), value), bad);

        Calculator calculator;
        QTest::keyClicks(calculator.input(), QStringLiteral("60 * 4 / 3"));
        QCOMPARE(calculator.resultText(), QStringLiteral("80"));
    }

    void progressCancels()
    {
        QProgress progress(QStringLiteral("Loading"));
        bool allow = true;
        progress.onProgress(3, 10, allow);
        QVERIFY(allow);
        QCOMPARE(progress.maximum(), 10);
        QCOMPARE(progress.value(), 3);

        progress.cancel();
        progress.onProgress(4, 10, allow);
        QVERIFY(!allow);
    }
};

QTEST_MAIN(TestInterface)
#include "tst_interface.moc"
