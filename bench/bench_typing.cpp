// Keystroke latency of the text editor on a state file with the checker and
// highlighting on, at 1,000 and at 100,000 lines, beside the same typing into
// a plain QPlainTextEdit in the same run: the time from the key event until
// its line is repainted. Also the time to open the largest state file of the
// real data, highlighted and checked, until it is painted.
#include "benchutil.h"

#include "interface/workspaces/qtexteditor.h"
#include "interface/workspaces/qtexteditorlayout.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"
#include "text/qcommonelements.h"
#include "util/qengineversion.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>
#include <ctime>
#include <vector>

namespace {

const char* const stateBlock = "[State 200, Hit]\n"
                               "type = HitDef\n"
                               "trigger1 = AnimElem = 3 && Var(10) > 2 ; the hit\n"
                               "attr = S, NA\n"
                               "damage = 23, 0\n"
                               "animtype = Light\n"
                               "pausetime = 12, 12\n"
                               "sparkxy = -10, -76\n"
                               "ground.velocity = -4\n"
                               "\n";

QString stateText(int lines)
{
    const QString block = QString::fromLatin1(stateBlock);
    QString text = QStringLiteral("[Statedef 200]\ntype = S\nanim = 200\n\n");
    const int count = (lines - 4) / 10;
    text.reserve(text.size() + block.size() * count);
    for (int i = 0; i < count; ++i)
        text += block;
    return text;
}

struct Latency
{
    double p50 = 0;
    double p99 = 0;
    double keyOnly99 = 0; ///< the key's handling alone: document, checker, highlighting
    double cpu50 = 0; ///< the same key to repaint in this thread's processor time
    double cpu99 = 0;
};

/// Milliseconds of processor time this thread has used: on a machine shared
/// with other work the wall clock also counts the time others had the core.
double threadCpuMs()
{
    timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

double percentile(std::vector<double> values, double p)
{
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, size_t(p * double(values.size())))];
}

/// The `i`th key of typing new lines of a trigger: Return opens each line.
QString typedKey(int i)
{
    static const QString line = QStringLiteral("trigger2 = Time > 10 && StateNo = 200");
    const int at = i % (int(line.size()) + 1);
    return at == 0 ? QStringLiteral("\r") : QString(line.at(at - 1));
}

/// Where the typing starts: the end of a line in the middle of the text.
QTextCursor middleLineEnd(QTextDocument* document)
{
    QTextCursor cursor(document->findBlockByNumber(document->blockCount() / 2));
    cursor.movePosition(QTextCursor::EndOfBlock);
    return cursor;
}

/// Types lines of a trigger into the middle of the text, each key followed by
/// the repaint it asked for.
Latency typeInto(QPlainTextEdit& editor, int keys)
{
    editor.setTextCursor(middleLineEnd(editor.document()));
    editor.centerCursor();
    QApplication::processEvents();
    std::vector<double> total;
    std::vector<double> keyOnly;
    std::vector<double> cpu;
    for (int i = 0; i < keys; ++i) {
        const QString text = typedKey(i);
        const bool enter = text == QStringLiteral("\r");
        QKeyEvent press(QEvent::KeyPress, enter ? Qt::Key_Return : 0, Qt::NoModifier, text);
        QKeyEvent release(QEvent::KeyRelease, enter ? Qt::Key_Return : 0, Qt::NoModifier, text);
        QElapsedTimer timer;
        const double cpuStart = threadCpuMs();
        timer.start();
        QApplication::sendEvent(&editor, &press);
        keyOnly.push_back(double(timer.nsecsElapsed()) / 1e6);
        QApplication::sendEvent(&editor, &release);
        QApplication::processEvents(); // the repaint the key asked for
        total.push_back(double(timer.nsecsElapsed()) / 1e6);
        cpu.push_back(threadCpuMs() - cpuStart);
    }
    return { percentile(total, 0.5), percentile(total, 0.99), percentile(keyOnly, 0.99), percentile(cpu, 0.5),
        percentile(cpu, 0.99) };
}

/// Processor time of one typed character with no view: the document, its
/// element chain when `linked`, and the checker with its highlighting.
Latency typeIntoDocument(const QString& text, bool linked, int keys)
{
    QSyntaxTextEditor states(nullptr, pftStates, linked, engineVersion::v1_1, true);
    states.document()->setPlainText(text);
    QTextCursor cursor = middleLineEnd(states.document());
    std::vector<double> cpu;
    for (int i = 0; i < keys; ++i) {
        const QString key = typedKey(i);
        const double start = threadCpuMs();
        cursor.insertText(key == QStringLiteral("\r") ? QStringLiteral("\n") : key);
        cpu.push_back(threadCpuMs() - start);
    }
    return { 0, 0, 0, percentile(cpu, 0.5), percentile(cpu, 0.99) };
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    initCodecs();
    initCommonElements();
    if (!QSyntaxTextEditor::initProperties(
            QCoreApplication::applicationDirPath() + QStringLiteral("/../bin"))) {
        std::printf("bench_typing: needs syntax_mugen.xml in the build's bin folder\n");
        return 0;
    }
    // Line counts may be given on the command line ("bench_typing 100000"), to profile one size.
    std::vector<int> sizes;
    for (int i = 1; i < argc; ++i)
        sizes.push_back(QString::fromLocal8Bit(argv[i]).toInt());
    if (sizes.empty())
        sizes = { 1000, 10000, 100000 };
    const int keys = 800;
    for (const int lines : sizes) {
        const QString text = stateText(lines);
        QPlainTextEdit plain;
        plain.setPlainText(text);
        plain.resize(900, 700);
        plain.show();
        const Latency base = typeInto(plain, keys);

        // The checker alone, in a plain widget: what the editor's own drawing adds shows apart.
        QSyntaxTextEditor checkedOnly(nullptr, pftStates, false, engineVersion::v1_1, true);
        checkedOnly.document()->setPlainText(text);
        checkedOnly.document()->setDocumentLayout(new QTextEditorLayout(checkedOnly.document()));
        QPlainTextEdit plainChecked;
        plainChecked.setDocument(checkedOnly.document());
        plainChecked.resize(900, 700);
        plainChecked.show();
        const Latency checker = typeInto(plainChecked, keys);

        QSyntaxTextEditor states(nullptr, pftStates, false, engineVersion::v1_1, true);
        states.document()->setPlainText(text);
        QTextEditor editor;
        editor.setTextDocument(states.document());
        editor.resize(900, 700);
        editor.show();
        const Latency ours = typeInto(editor, keys);

        const Latency alone = typeIntoDocument(text, false, keys);
        const Latency linked = typeIntoDocument(text, true, keys);

        std::printf("%d lines, %d keys; wall clock, then this thread's processor time\n",
            states.document()->blockCount(), keys);
        bench::report("  plain QPlainTextEdit, key to repaint p50", base.p50, base.p50);
        bench::report("  plain QPlainTextEdit, key to repaint p99", base.p99, base.p99);
        bench::report("  QPlainTextEdit checked, key to repaint p50", checker.p50, base.p50);
        bench::report("  QPlainTextEdit checked, key to repaint p99", checker.p99, base.p99);
        bench::report("  QTextEditor checked, key to repaint p50", ours.p50, base.p50);
        bench::report("  QTextEditor checked, key to repaint p99", ours.p99, base.p99);
        bench::report("  QTextEditor checked, key handling alone p99", ours.keyOnly99, base.keyOnly99);
        bench::report("  plain QPlainTextEdit, processor p50", base.cpu50, base.cpu50);
        bench::report("  plain QPlainTextEdit, processor p99", base.cpu99, base.cpu99);
        bench::report("  QPlainTextEdit checked, processor p50", checker.cpu50, base.cpu50);
        bench::report("  QPlainTextEdit checked, processor p99", checker.cpu99, base.cpu99);
        bench::report("  QTextEditor checked, processor p50", ours.cpu50, base.cpu50);
        bench::report("  QTextEditor checked, processor p99", ours.cpu99, base.cpu99);
        bench::report("  no view: document and checker p50", alone.cpu50, base.cpu50);
        bench::report("  no view: document and checker p99", alone.cpu99, base.cpu99);
        bench::report("  no view: with the element chain p50", linked.cpu50, base.cpu50);
        bench::report("  no view: with the element chain p99", linked.cpu99, base.cpu99);
    }
    if (argc > 1)
        return 0;

    const QString file
        = bench::largestFile(bench::realData(), { QStringLiteral("*.cns"), QStringLiteral("*.st") });
    if (file.isEmpty()) {
        std::printf("bench_typing: no real data, the opening of a large file is not measured\n");
        return 0;
    }
    double plainMs = 0;
    const double openMs = bench::bestMs(3, [&] {
        QSyntaxTextEditor states(nullptr, pftStates, false, engineVersion::v1_1, true);
        QTextEditor editor;
        editor.resize(900, 700);
        states.fromFile(file, 0, false);
        editor.setTextDocument(states.document());
        editor.show();
        QApplication::processEvents();
        bench::keep(states);
    });
    plainMs = bench::bestMs(3, [&] {
        QFile in(file);
        in.open(QIODevice::ReadOnly);
        QPlainTextEdit editor;
        editor.resize(900, 700);
        editor.setPlainText(QString::fromLocal8Bit(in.readAll()));
        editor.show();
        QApplication::processEvents();
    });
    QSyntaxTextEditor probe(nullptr, pftStates, false, engineVersion::v1_1, true);
    probe.fromFile(file, 0, false);
    std::printf("open %s (%d lines)\n", qPrintable(file), probe.document()->blockCount());
    bench::report("  plain QPlainTextEdit, read and shown", plainMs, plainMs);
    bench::report("  QTextEditor, read, checked and shown", openMs, plainMs);
    return 0;
}
