// The cost of one keystroke in element documents of growing size: the chain
// must follow an edit at a cost that does not grow with the document. Each
// figure stands beside the same keystrokes on a bare text document of the
// same size, and is given in microseconds per edit.
#include "benchutil.h"

#include "text/namedparamgrpreg.h"
#include "text/paramreg.h"
#include "text/qcommonelements.h"
#include "text/qelementtexteditor.h"
#include "text/qnamedparamgroup.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QTextDocument>

namespace {

/// A states model in miniature: named groups that keep their parameters.
class StateGroup : public QNamedParamGroup
{
public:
    QTextElementType groupType() const override { return 0x2000; }
};

QRecycleAllocator<StateGroup> statePool;

class StateGroupReg : public NamedParamGrpReg
{
public:
    using NamedParamGrpReg::NamedParamGrpReg;
    QTextElementType type() const override { return 0x2000; }
    QTextElement* create() override { return setup(statePool.alloc()); }
};

class StatesEditor : public QElementTextEditor
{
public:
    StatesEditor()
        : QElementTextEditor(true)
    {
        for (const QTextElementReg* reg : std::as_const(regElems))
            enableElement(true, reg->type(), reg->subType());
    }

protected:
    void updateInternal(QList<QTextElementChange>& changes) override { updateCommonElements(changes); }
};

void registerStates()
{
    const auto param = [](const char* key, QGroupParamID id, auto& pool) {
        using T = std::remove_reference_t<decltype(*pool.alloc())>;
        QTextElementReg::registerElement(new ParamReg<T>(QLatin1String(key), id, &pool));
    };
    param("type", 1, valAlloc);
    param("physics", 2, valAlloc);
    param("anim", 3, intAlloc);
    param("ctrl", 4, intAlloc);
    param("velset", 5, floatnAlloc);
    param("trigger1", 6, fpAlloc);
    param("value", 7, fpAlloc);
    QTextElementReg::registerElement(new StateGroupReg("Statedef"));
    QTextElementReg::registerElement(new StateGroupReg("State"));
    initCommonElements();
}

/// A state file of about `lines` lines, in the shape of the engine's own.
QString stateFile(int lines)
{
    QString text;
    for (int n = 0; text.count(QLatin1Char('\n')) < lines; ++n)
        text += QStringLiteral("; State %1\n[Statedef %1]\ntype = S\nphysics = S\nanim = %1\nctrl = 1\n"
                               "velset = 0, 0\n\n[State %1, 1]\ntype = ChangeAnim\ntrigger1 = Time = 0\n"
                               "value = %1\n\n")
                    .arg(n);
    return text;
}

/// Positions inside the values ("= S") and inside the keys of parameter lines.
QList<int> positions(const QTextDocument& document, int count, bool inKey)
{
    QRandomGenerator random(7);
    QList<int> list;
    while (list.size() < count) {
        const QTextBlock block = document.findBlockByNumber(int(random.bounded(document.blockCount())));
        const QString text = block.text();
        const int equals = int(text.indexOf(QLatin1String(" = ")));
        if (equals > 1)
            list.append(block.position() + (inKey ? 1 : equals + 3));
    }
    return list;
}

/// Types one character at each position and deletes it again.
template <class Cursor> void keystrokes(Cursor& cursor, const QList<int>& at)
{
    for (int position : at) {
        cursor.setPosition(position);
        cursor.insertText(QStringLiteral("x"));
        cursor.setPosition(position);
        cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    }
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    registerStates();
    constexpr int edits = 2000; // keystrokes per measurement, half typing, half deleting
    constexpr int repetitions = 5;
    std::printf("one keystroke in a states document; %d keystrokes per measurement, best of %d\n", edits,
        repetitions);
    std::printf("%-44s %10s      %s\n", "", "ms", "baseline: the same keystrokes on a bare document");

    for (int lines : { 1000, 10000, 30000, 100000 }) {
        const QString text = stateFile(lines);
        QTextDocument bare;
        bare.setPlainText(text);
        StatesEditor editor;
        const double loadMs = bench::bestMs(1, [&] { editor.document()->setPlainText(text); });
        int elements = 0;
        for (QTextElement* e = editor.head(); e; e = e->chainNext())
            ++elements;

        const QList<int> values = positions(bare, edits / 2, false);
        const QList<int> keys = positions(bare, edits / 2, true);
        QTextCursor bareCursor(&bare);
        const double baseMs = bench::bestMs(repetitions, [&] { keystrokes(bareCursor, values); });
        QTextCursor viewCursor(editor.document());
        const double viewMs = bench::bestMs(repetitions, [&] { keystrokes(viewCursor, values); });
        const double cursorMs = bench::bestMs(repetitions, [&] { keystrokes(editor.cursor(), values); });
        const double keyMs = bench::bestMs(repetitions, [&] { keystrokes(viewCursor, keys); });

        char label[96];
        std::printf("\n%d lines, %d elements, built in %.1f ms (%.2f us per line)\n",
            editor.document()->blockCount(), elements, loadMs,
            loadMs * 1000 / editor.document()->blockCount());
        const auto line = [&](const char* what, double ms) {
            char extra[64];
            std::snprintf(extra, sizeof extra, "= %.2f us per keystroke", ms * 1000 / edits);
            std::snprintf(label, sizeof label, "%d lines: %s", lines, what);
            bench::report(label, ms, baseMs, extra);
        };
        line("bare document (baseline)", baseMs);
        line("value keystroke, typed in a view", viewMs);
        line("value keystroke, through the cursor", cursorMs);
        line("key keystroke (element replaced)", keyMs);

        // A paste of 1,000 lines in the middle, then its undo: proportional to
        // the pasted lines, not to the document.
        const QString pasted = stateFile(1000);
        const int middle = bare.findBlockByNumber(bare.blockCount() / 2).position();
        const auto paste = [&](QTextDocument& document) {
            QTextCursor cursor(&document);
            cursor.setPosition(middle);
            cursor.insertText(pasted);
            document.undo();
        };
        const double barePasteMs = bench::bestMs(repetitions, [&] { paste(bare); });
        const double pasteMs = bench::bestMs(repetitions, [&] { paste(*editor.document()); });
        std::snprintf(label, sizeof label, "%d lines: bare paste of 1,000 lines + undo", lines);
        bench::report(label, barePasteMs, barePasteMs);
        std::snprintf(label, sizeof label, "%d lines: paste of 1,000 lines + undo", lines);
        bench::report(label, pasteMs, barePasteMs);
        bench::keep(elements);
    }
    return 0;
}
