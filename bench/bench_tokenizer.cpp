// How fast the lexer reads the largest state file of the real engine files,
// beside a plain scan of the same buffer (counting its line feeds), and how
// fast a file's encoding is detected and decoded, beside a copy of its bytes.
#include "benchutil.h"

#include "text/qcodecs.h"
#include "text/qtexttoken.h"
#include "text/qtokenizer.h"

#include <QCoreApplication>
#include <QFile>
#include <cstring>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QString fileName = bench::largestFile(bench::realData(), { QStringLiteral("*.cns"), QStringLiteral("*.CNS") });
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        std::printf(
            "no real state file found under '%s': nothing to measure\n", qPrintable(bench::realData()));
        return 0;
    }
    initCodecs();
    const QByteArray data = file.readAll();
    const QString text = stringFromData(data, 0, nullptr);
    const QStringList lines = text.split(u'\n');
    const int lineCount = int(lines.size());
    constexpr int passes = 50;
    constexpr int repetitions = 7;
    std::printf("%s: %lld bytes, %d lines, %d passes per measurement\n", qPrintable(fileName),
        static_cast<long long>(data.size()), lineCount, passes);

    const double scanMs = bench::bestMs(repetitions, [&] {
        for (int pass = 0; pass < passes; ++pass) {
            int feeds = 0;
            for (const QChar *c = text.constData(), *end = c + text.size(); c != end; ++c)
                feeds += *c == u'\n';
            bench::keep(feeds);
        }
    });
    const double wholeMs = bench::bestMs(repetitions, [&] {
        for (int pass = 0; pass < passes; ++pass) {
            QTokenizer tokenizer(text);
            int tokens = 0;
            while (tokenizer.getToken() != tokEnd)
                ++tokens;
            bench::keep(tokens);
        }
    });
    // As the element tree works: one tokenizer per line, tokens with their text.
    const double perLineMs = bench::bestMs(repetitions, [&] {
        for (int pass = 0; pass < passes; ++pass) {
            for (const QString& line : lines) {
                QTokenizer tokenizer(line);
                bench::keep(QTextToken::readLine(tokenizer));
            }
        }
    });

    const double linesDone = double(lineCount) * passes;
    auto linesPerSecond = [&](double ms) -> QByteArray {
        return QByteArray::number(linesDone / (ms / 1000.0), 'f', 0) + " lines/s";
    };
    bench::report("plain scan (count line feeds)", scanMs, scanMs, linesPerSecond(scanMs).constData());
    bench::report(
        "tokenizer, whole buffer, codes only", wholeMs, scanMs, linesPerSecond(wholeMs).constData());
    bench::report(
        "tokenizer, per line, QTextToken lists", perLineMs, scanMs, linesPerSecond(perLineMs).constData());

    QByteArray copy(data.size(), '\0');
    const double copyMs = bench::bestMs(repetitions, [&] {
        for (int pass = 0; pass < passes; ++pass) {
            std::memcpy(copy.data(), data.constData(), size_t(data.size()));
            bench::keep(copy);
        }
    });
    const double decodeMs = bench::bestMs(repetitions, [&] {
        for (int pass = 0; pass < passes; ++pass)
            bench::keep(stringFromData(data, 0, nullptr));
    });
    bench::report("memcpy of the file's bytes", copyMs, copyMs);
    bench::report("detect encoding and decode", decodeMs, copyMs,
        QByteArray(
            QByteArray::number(bench::mbPerSecond(double(data.size()) * passes, decodeMs), 'f', 1) + " MB/s")
            .constData());
    return 0;
}
