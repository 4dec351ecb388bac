// TextDocument: a text file of the project (state files above all) edited
// through a cursor, each edit one step of the document's undo.
#include "qluabindings.h"
#include "qluawrappers.h"
#include "syntax/qsyntaxtexteditor.h"

#include <QTextBlock>
#include <QTextDocument>

LTextDocument::LTextDocument(QSyntaxTextEditor* text)
    : LObject(text)
    , m_cursor(std::make_shared<QTextCursor>(text ? text->document() : nullptr))
{
}

QTextCursor& LTextDocument::cursor() const
{
    text(); // a cursor of a deleted document is no use
    return *m_cursor;
}

namespace {

std::string plainText(const LTextDocument& d) { return lua::std(d.text()->document()->toPlainText()); }
int lineCount(const LTextDocument& d) { return d.text()->document()->blockCount(); }

std::string line(const LTextDocument& d, int index)
{
    QTextDocument* document = d.text()->document();
    checkIndex(index, document->blockCount());
    return lua::std(document->findBlockByNumber(index).text());
}

std::string fileName(const LTextDocument& d) { return lua::std(d.text()->fileName()); }
std::string title(const LTextDocument& d) { return lua::std(d.text()->title()); }
bool isModified(const LTextDocument& d) { return d.text()->isModified(); }
bool atLineStart(const LTextDocument& d) { return d.cursor().atBlockStart(); }
bool atLineEnd(const LTextDocument& d) { return d.cursor().atBlockEnd(); }
bool atStart(const LTextDocument& d) { return d.cursor().atStart(); }
bool atEnd(const LTextDocument& d) { return d.cursor().atEnd(); }
int lineNumber(const LTextDocument& d) { return d.cursor().blockNumber(); }
int columnNumber(const LTextDocument& d) { return d.cursor().columnNumber(); }
std::string selectedText(const LTextDocument& d) { return lua::std(d.cursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'))); }
void clearSelection(const LTextDocument& d) { d.cursor().clearSelection(); }
void removeSelectedText(const LTextDocument& d) { d.cursor().removeSelectedText(); }
void insertText(const LTextDocument& d, const std::string& text) { d.cursor().insertText(lua::str(text)); }
void selectUnder(const LTextDocument& d, int selection) { d.cursor().select(QTextCursor::SelectionType(selection)); }
bool sectionExists(const LTextDocument& d, const std::string& section) { return d.text()->sectionExists(lua::str(section)); }
void undo(const LTextDocument& d) { d.text()->document()->undo(); }
void redo(const LTextDocument& d) { d.text()->document()->redo(); }

std::string findValue(const LTextDocument& d, const std::string& section, const std::string& key)
{
    return lua::std(d.text()->findValue(lua::str(section), lua::str(key)));
}

bool movePosition(const LTextDocument& d, int operation, int mode, int count)
{
    return d.cursor().movePosition(QTextCursor::MoveOperation(operation), QTextCursor::MoveMode(mode), count);
}

bool movePositionOnce(const LTextDocument& d, int operation, int mode)
{
    return movePosition(d, operation, mode, 1);
}

void setPosition(const LTextDocument& d, int position) { d.cursor().setPosition(position); }
int position(const LTextDocument& d) { return d.cursor().position(); }

// The text after the last line, as one edit.
void append(const LTextDocument& d, const std::string& text)
{
    QTextCursor& cursor = d.cursor();
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(lua::str(text));
}

} // namespace

void registerLuaText(lua_State* state)
{
    using namespace luabind;
    module(state)[
        class_<LTextDocument, LObject>("TextDocument")
            .enum_("move")[value("NoMove", QTextCursor::NoMove), value("Start", QTextCursor::Start),
                           value("StartOfLine", QTextCursor::StartOfLine), value("StartOfWord", QTextCursor::StartOfWord),
                           value("PreviousLine", QTextCursor::Up), value("PreviousCharacter", QTextCursor::PreviousCharacter),
                           value("PreviousWord", QTextCursor::PreviousWord), value("EndOfLine", QTextCursor::EndOfLine),
                           value("EndOfWord", QTextCursor::EndOfWord), value("NextLine", QTextCursor::Down),
                           value("NextCharacter", QTextCursor::NextCharacter), value("NextWord", QTextCursor::NextWord),
                           value("End", QTextCursor::End)]
            .enum_("mode")[value("MoveAnchor", QTextCursor::MoveAnchor), value("KeepAnchor", QTextCursor::KeepAnchor)]
            .enum_("selection")[value("LineUnderCursor", QTextCursor::LineUnderCursor),
                                value("WordUnderCursor", QTextCursor::WordUnderCursor)]
            .property("text", &plainText)
            .property("lineCount", &lineCount)
            .property("fileName", &fileName)
            .property("title", &title)
            .property("isModified", &isModified)
            .property("atLineStart", &atLineStart)
            .property("atLineEnd", &atLineEnd)
            .property("atStart", &atStart)
            .property("atEnd", &atEnd)
            .property("lineNumber", &lineNumber)
            .property("columnNumber", &columnNumber)
            .property("selectedText", &selectedText)
            .property("position", &position, &setPosition)
            .def("line", &line)
            .def("clearSelection", &clearSelection)
            .def("removeSelectedText", &removeSelectedText)
            .def("insertText", &insertText)
            .def("append", &append)
            .def("select", &selectUnder)
            .def("movePosition", &movePosition)
            .def("movePosition", &movePositionOnce)
            .def("sectionExists", &sectionExists)
            .def("findValue", &findValue)
            .def("undo", &undo)
            .def("redo", &redo)
    ];
}
