// The live checker on the largest state file of the real data: lines per
// second of a check from scratch, beside a plain scan of the same lines.
#include "benchutil.h"

#include "syntax/qmugensyntaxprocessor.h"
#include "util/qengineversion.h"

#include <QFile>
#include <QGuiApplication>
#include <QTextDocument>

namespace {

QString vocabularyFile()
{
    const QString here = QCoreApplication::applicationDirPath();
    const QStringList candidates = {here + QStringLiteral("/syntax_mugen.xml"), here + QStringLiteral("/../bin/syntax_mugen.xml")};
    for (const QString& candidate : candidates) {
        if (QFile::exists(candidate))
            return candidate;
    }
    return QString();
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);

    const QString fileName = bench::largestFile(bench::realData(), {QStringLiteral("*.cns"), QStringLiteral("*.st")});
    const QString vocabulary = vocabularyFile();
    if (fileName.isEmpty() || vocabulary.isEmpty()) {
        std::printf("bench_checker: needs the real data and syntax_mugen.xml beside the programs\n");
        return 0;
    }
    QFile file(fileName);
    file.open(QIODevice::ReadOnly);
    const QString text = QString::fromUtf8(file.readAll());
    const int lines = int(text.count(QLatin1Char('\n'))) + 1;
    std::printf("%s: %d lines, %lld characters\n", qPrintable(fileName), lines, qint64(text.size()));

    // Baseline: split into lines and look at every character once.
    const double scanMs = bench::bestMs(20, [&] {
        int equals = 0;
        for (const QStringView line : QStringView(text).split(QLatin1Char('\n')))
            for (const QChar c : line)
                equals += c == QLatin1Char('=');
        bench::keep(equals);
    });

    QMugenSyntaxProperties properties;
    const double loadMs = bench::bestMs(5, [&] {
        QMugenSyntaxProperties fresh;
        fresh.fromFile(vocabulary);
        bench::keep(fresh);
    });
    properties.fromFile(vocabulary);

    int messages = 0;
    const double checkMs = bench::bestMs(10, [&] {
        QTextDocument document;
        QMugenSyntaxProcessor processor(&document, &properties);
        processor.setVersion(engineVersion::v1_0);
        messages = 0;
        for (const QSynMsgList& line : processor.checkText(text))
            messages += int(line.size());
    });

    const double highlightMs = bench::bestMs(3, [&] {
        QTextDocument document;
        document.setPlainText(text);
        QMugenSyntaxProcessor processor(&document, &properties);
        processor.setVersion(engineVersion::v1_0);
        bench::keep(processor);
    });

    const double scanBase = scanMs;
    bench::report("plain line scan (baseline)", scanMs, scanBase);
    bench::report("read syntax_mugen.xml", loadMs, scanBase);
    char extra[128];
    std::snprintf(extra, sizeof extra, "(%.0f lines/s, %d messages)", lines / (checkMs / 1000.0), messages);
    bench::report("check from scratch (checkText)", checkMs, scanBase, extra);
    std::snprintf(extra, sizeof extra, "(%.0f lines/s, with formats)", lines / (highlightMs / 1000.0));
    bench::report("highlight a new document", highlightMs, scanBase, extra);
    std::snprintf(extra, sizeof extra, "(%.0f lines/s)", lines / (scanMs / 1000.0));
    bench::report("  baseline rate", scanMs, scanBase, extra);
    return 0;
}
