// The AIR model: how fast it is built from the text of the largest real AIR
// file, in lines per second beside the plain tokenizer over the same lines in
// the same run; and what one frame edit (setProperties) costs
// in files of 1,000, 3,000 and 10,000 actions, beside replacing the same line
// of a bare text document: the model's cost must not grow with the file.
#include "benchutil.h"

#include "model/qanimationframe.h"
#include "model/qanimations.h"
#include "model/qproject.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qcodecs.h"
#include "text/qtexttoken.h"
#include "text/qtokenizer.h"
#include "util/qengineversion.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextBlock>
#include <QTextDocument>

#include <memory>
#include <vector>

namespace {

/// An AIR of `actions` actions in the shape of a character's: boxes, frames, a loop start.
QString airFile(int actions)
{
    QString text;
    for (int n = 0; n < actions; ++n)
        text += QStringLiteral(
            "; Action %1\n[Begin Action %1]\nClsn2Default: 2\n  Clsn2[0] = -10,-80, 10,0\n"
            "  Clsn2[1] = -5,-90, 5,-80\n%1,0, 0,0, 4\nClsn1: 1\n  Clsn1[0] = 0,-60, 40,-50\n"
            "%1,1, 0,0, 4\nLoopStart\n%1,2, 0,0, 4, H\n\n")
                    .arg(n);
    return text;
}

void measureBuild()
{
    const QString fileName
        = bench::largestFile(bench::realData(), { QStringLiteral("*.air"), QStringLiteral("*.AIR") });
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        std::printf(
            "no real AIR file under '%s': the build is not measured\n", qPrintable(bench::realData()));
        return;
    }
    const QString text = stringFromData(file.readAll(), 0, nullptr);
    const QStringList lines = text.split(u'\n');
    constexpr int repetitions = 7;
    int tokens = 0;
    const double tokenizerMs = bench::bestMs(repetitions, [&] {
        tokens = 0;
        for (const QString& line : lines) {
            QTokenizer tokenizer(line);
            tokens += int(QTextToken::readLine(tokenizer).size());
        }
    });
    // A fresh document and model for each build: the time is the reading alone.
    std::vector<std::unique_ptr<QSyntaxTextEditor>> editors;
    std::vector<std::unique_ptr<QAnimations>> models;
    for (int i = 0; i < repetitions; ++i) {
        editors.push_back(
            std::make_unique<QSyntaxTextEditor>(nullptr, pftAnimations, true, engineVersion::v1_1, false));
        models.push_back(std::make_unique<QAnimations>(nullptr, editors.back().get()));
        models.back()->setRenumber(false);
    }
    int built = 0;
    int actions = 0;
    const double modelMs = bench::bestMs(repetitions, [&] {
        editors.at(size_t(built))->document()->setPlainText(text);
        actions = models.at(size_t(built++))->count();
    });
    QTextDocument bare;
    const double documentMs = bench::bestMs(repetitions, [&] { bare.setPlainText(text); });

    const double count = double(lines.size());
    std::printf("building the model of %s: %d lines, %d actions\n",
        qPrintable(QFileInfo(fileName).fileName()), int(lines.size()), actions);
    const auto rate = [count](double ms) { return count / (ms / 1000.0); };
    char extra[64];
    std::snprintf(extra, sizeof extra, "= %.0f lines/s", rate(tokenizerMs));
    bench::report("plain tokenizer, line by line (baseline)", tokenizerMs, tokenizerMs, extra);
    std::snprintf(extra, sizeof extra, "= %.0f lines/s", rate(documentMs));
    bench::report("bare text document, same text", documentMs, tokenizerMs, extra);
    std::snprintf(extra, sizeof extra, "= %.0f lines/s", rate(modelMs));
    bench::report("text document with the AIR model", modelMs, tokenizerMs, extra);
    bench::keep(tokens);
}

void measureFrameEdit()
{
    constexpr int edits = 2000;
    constexpr int repetitions = 5;
    std::printf("\none setProperties on a frame in the middle; %d edits per measurement, best of %d\n", edits,
        repetitions);
    for (int actions : { 1000, 3000, 10000 }) {
        const QString text = airFile(actions);
        QSyntaxTextEditor editor(nullptr, pftAnimations, true, engineVersion::v1_1, false);
        editor.document()->setUndoRedoEnabled(false);
        QAnimations model(nullptr, &editor);
        editor.document()->setPlainText(text);
        QAnimationFrame* frame = model.at(actions / 2)->frame(1);
        const double modelMs = bench::bestMs(repetitions, [&] {
            for (int i = 0; i < edits; ++i)
                frame->setProperties(frame->sprite(), frame->offset(), 1 + i % 9, frame->flipFlags(),
                    frame->blend(), frame->blendTarget());
        });

        QTextDocument bare;
        bare.setUndoRedoEnabled(false);
        bare.setPlainText(text);
        const QTextBlock block = bare.findBlockByNumber(frame->line());
        QTextCursor cursor(&bare);
        const double bareMs = bench::bestMs(repetitions, [&] {
            for (int i = 0; i < edits; ++i) {
                cursor.setPosition(block.position());
                cursor.setPosition(block.position() + block.length() - 1, QTextCursor::KeepAnchor);
                cursor.insertText(QStringLiteral("%1,1, 0,0, %2").arg(actions / 2).arg(1 + i % 9));
            }
        });
        char label[96];
        char extra[64];
        std::snprintf(
            label, sizeof label, "%d actions, %d lines: bare line (baseline)", actions, bare.blockCount());
        std::snprintf(extra, sizeof extra, "= %.2f us per edit", bareMs * 1000 / edits);
        bench::report(label, bareMs, bareMs, extra);
        std::snprintf(label, sizeof label, "%d actions: setProperties", actions);
        std::snprintf(extra, sizeof extra, "= %.2f us per edit", modelMs * 1000 / edits);
        bench::report(label, modelMs, bareMs, extra);
    }
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    initCodecs();
    QProject::init();
    measureBuild();
    measureFrameEdit();
    return 0;
}
