// Text widgets: Label, LineEdit, TextEdit and PlainTextEdit, with
// AbstractScrollArea, the base of the editors and the item views.
#include "qluaqtaccess.h"
#include "qluawidgethandles.h"
#include "qluawidgets.h"
#include "qluawidgettableinit.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {

void setNumber(const LObject& self, double number) { lq::as<QLabel>(self)->setNum(number); }
void setBuddy(const LObject& self, const LWidget& buddy) { lq::as<QLabel>(self)->setBuddy(buddy.get()); }

luabind::object buddy(const LObject& self, lua_State* state)
{
    return LQObject::wrap(state, lq::as<QLabel>(self)->buddy());
}

std::string textEditSelection(const LObject& self)
{
    return lua::std(lq::as<QTextEdit>(self)->textCursor().selectedText());
}

std::string plainEditSelection(const LObject& self)
{
    return lua::std(lq::as<QPlainTextEdit>(self)->textCursor().selectedText());
}

void setSelection(const LObject& self, int start, int length) { lq::as<QLineEdit>(self)->setSelection(start, length); }

constexpr char linkActivated[] = "linkActivated(QString)";
constexpr char linkHovered[] = "linkHovered(QString)";
constexpr char textChangedText[] = "textChanged(QString)";
constexpr char textChanged[] = "textChanged()";
constexpr char textEdited[] = "textEdited(QString)";
constexpr char returnPressed[] = "returnPressed()";
constexpr char editingFinished[] = "editingFinished()";
constexpr char selectionChanged[] = "selectionChanged()";
constexpr char cursorPositionChanged[] = "cursorPositionChanged()";
constexpr char cursorMoved[] = "cursorPositionChanged(int,int)";
constexpr char copyAvailable[] = "copyAvailable(bool)";
constexpr char undoAvailable[] = "undoAvailable(bool)";
constexpr char redoAvailable[] = "redoAvailable(bool)";
constexpr char blockCountChanged[] = "blockCountChanged(int)";
constexpr char modificationChanged[] = "modificationChanged(bool)";

luabind::scope lqabstractscrollarea()
{
    using namespace luabind;
    return class_<LAbstractScrollArea, LFrame>("AbstractScrollArea")
        LQ_PROPERTY("horizontalScrollBarPolicy", QAbstractScrollArea, horizontalScrollBarPolicy, setHorizontalScrollBarPolicy)
        LQ_PROPERTY("verticalScrollBarPolicy", QAbstractScrollArea, verticalScrollBarPolicy, setVerticalScrollBarPolicy)
        .enum_("ScrollBarPolicy")[
            value("ScrollBarAsNeeded", Qt::ScrollBarAsNeeded),
            value("ScrollBarAlwaysOff", Qt::ScrollBarAlwaysOff),
            value("ScrollBarAlwaysOn", Qt::ScrollBarAlwaysOn)
        ];
}

luabind::scope lqlabel()
{
    using namespace luabind;
    return class_<LLabel, LFrame>("Label")
        LQ_CONSTRUCTORS(LLabel)
        LQ_TEXT_CONSTRUCTOR(LLabel)
        LQ_PARENT_CONSTRUCTOR(LLabel)
        LQ_PROPERTY("text", QLabel, text, setText)
        LQ_PROPERTY("wordWrap", QLabel, wordWrap, setWordWrap)
        LQ_PROPERTY("alignment", QLabel, alignment, setAlignment)
        LQ_PROPERTY("textFormat", QLabel, textFormat, setTextFormat)
        LQ_PROPERTY("openExternalLinks", QLabel, openExternalLinks, setOpenExternalLinks)
        LQ_PROPERTY("indent", QLabel, indent, setIndent)
        LQ_PROPERTY("margin", QLabel, margin, setMargin)
        LQ_READ("selectedText", QLabel, selectedText)
        LQ_READ("hasSelectedText", QLabel, hasSelectedText)
        .property("buddy", &buddy, &setBuddy)
        LQ_SIGNAL("linkActivated", linkActivated)
        LQ_SIGNAL("linkHovered", linkHovered)
        LQ_METHOD("setText", QLabel, setText)
        LQ_METHOD("clear", QLabel, clear)
        .def("setNum", &setNumber)
        .enum_("TextFormat")[
            value("PlainText", Qt::PlainText), value("RichText", Qt::RichText),
            value("AutoText", Qt::AutoText), value("MarkdownText", Qt::MarkdownText)
        ];
}

luabind::scope lqtextedit()
{
    using namespace luabind;
    return class_<LTextEdit, LAbstractScrollArea>("TextEdit")
        LQ_CONSTRUCTORS(LTextEdit)
        LQ_TEXT_CONSTRUCTOR(LTextEdit)
        LQ_PARENT_CONSTRUCTOR(LTextEdit)
        LQ_PROPERTY("plainText", QTextEdit, toPlainText, setPlainText)
        LQ_PROPERTY("html", QTextEdit, toHtml, setHtml)
        LQ_PROPERTY("readOnly", QTextEdit, isReadOnly, setReadOnly)
        LQ_PROPERTY("acceptRichText", QTextEdit, acceptRichText, setAcceptRichText)
        LQ_PROPERTY("placeholderText", QTextEdit, placeholderText, setPlaceholderText)
        LQ_PROPERTY("lineWrapMode", QTextEdit, lineWrapMode, setLineWrapMode)
        LQ_PROPERTY("undoRedoEnabled", QTextEdit, isUndoRedoEnabled, setUndoRedoEnabled)
        .property("selectedText", &textEditSelection)
        LQ_SIGNAL("textChanged", textChanged)
        LQ_SIGNAL("selectionChanged", selectionChanged)
        LQ_SIGNAL("cursorPositionChanged", cursorPositionChanged)
        LQ_SIGNAL("copyAvailable", copyAvailable)
        LQ_SIGNAL("undoAvailable", undoAvailable)
        LQ_SIGNAL("redoAvailable", redoAvailable)
        LQ_METHOD("toPlainText", QTextEdit, toPlainText)
        LQ_METHOD("toHtml", QTextEdit, toHtml)
        LQ_METHOD("setPlainText", QTextEdit, setPlainText)
        LQ_METHOD("setHtml", QTextEdit, setHtml)
        LQ_METHOD("setText", QTextEdit, setText)
        LQ_METHOD("append", QTextEdit, append)
        LQ_METHOD("insertPlainText", QTextEdit, insertPlainText)
        LQ_METHOD("insertHtml", QTextEdit, insertHtml)
        LQ_METHOD("clear", QTextEdit, clear)
        LQ_METHOD("selectAll", QTextEdit, selectAll)
        LQ_METHOD("undo", QTextEdit, undo)
        LQ_METHOD("redo", QTextEdit, redo)
        LQ_METHOD("copy", QTextEdit, copy)
        LQ_METHOD("cut", QTextEdit, cut)
        LQ_METHOD("paste", QTextEdit, paste)
        .enum_("LineWrapMode")[
            value("NoWrap", QTextEdit::NoWrap), value("WidgetWidth", QTextEdit::WidgetWidth),
            value("FixedPixelWidth", QTextEdit::FixedPixelWidth), value("FixedColumnWidth", QTextEdit::FixedColumnWidth)
        ];
}

luabind::scope lqplaintextedit()
{
    using namespace luabind;
    return class_<LPlainTextEdit, LAbstractScrollArea>("PlainTextEdit")
        LQ_CONSTRUCTORS(LPlainTextEdit)
        LQ_TEXT_CONSTRUCTOR(LPlainTextEdit)
        LQ_PARENT_CONSTRUCTOR(LPlainTextEdit)
        LQ_PROPERTY("plainText", QPlainTextEdit, toPlainText, setPlainText)
        LQ_PROPERTY("readOnly", QPlainTextEdit, isReadOnly, setReadOnly)
        LQ_PROPERTY("placeholderText", QPlainTextEdit, placeholderText, setPlaceholderText)
        LQ_PROPERTY("maximumBlockCount", QPlainTextEdit, maximumBlockCount, setMaximumBlockCount)
        LQ_PROPERTY("lineWrapMode", QPlainTextEdit, lineWrapMode, setLineWrapMode)
        LQ_READ("blockCount", QPlainTextEdit, blockCount)
        .property("selectedText", &plainEditSelection)
        LQ_SIGNAL("textChanged", textChanged)
        LQ_SIGNAL("selectionChanged", selectionChanged)
        LQ_SIGNAL("cursorPositionChanged", cursorPositionChanged)
        LQ_SIGNAL("blockCountChanged", blockCountChanged)
        LQ_SIGNAL("modificationChanged", modificationChanged)
        LQ_METHOD("toPlainText", QPlainTextEdit, toPlainText)
        LQ_METHOD("setPlainText", QPlainTextEdit, setPlainText)
        LQ_METHOD("appendPlainText", QPlainTextEdit, appendPlainText)
        LQ_METHOD("insertPlainText", QPlainTextEdit, insertPlainText)
        LQ_METHOD("clear", QPlainTextEdit, clear)
        LQ_METHOD("selectAll", QPlainTextEdit, selectAll)
        LQ_METHOD("undo", QPlainTextEdit, undo)
        LQ_METHOD("redo", QPlainTextEdit, redo)
        .enum_("LineWrapMode")[value("NoWrap", QPlainTextEdit::NoWrap), value("WidgetWidth", QPlainTextEdit::WidgetWidth)];
}

luabind::scope lqlineedit()
{
    using namespace luabind;
    return class_<LLineEdit, LWidget>("LineEdit")
        LQ_CONSTRUCTORS(LLineEdit)
        LQ_TEXT_CONSTRUCTOR(LLineEdit)
        LQ_PARENT_CONSTRUCTOR(LLineEdit)
        LQ_PROPERTY("text", QLineEdit, text, setText)
        LQ_PROPERTY("placeholderText", QLineEdit, placeholderText, setPlaceholderText)
        LQ_PROPERTY("readOnly", QLineEdit, isReadOnly, setReadOnly)
        LQ_PROPERTY("maxLength", QLineEdit, maxLength, setMaxLength)
        LQ_PROPERTY("echoMode", QLineEdit, echoMode, setEchoMode)
        LQ_PROPERTY("alignment", QLineEdit, alignment, setAlignment)
        LQ_PROPERTY("inputMask", QLineEdit, inputMask, setInputMask)
        LQ_PROPERTY("frame", QLineEdit, hasFrame, setFrame)
        LQ_PROPERTY("modified", QLineEdit, isModified, setModified)
        LQ_PROPERTY("cursorPosition", QLineEdit, cursorPosition, setCursorPosition)
        LQ_PROPERTY("clearButtonEnabled", QLineEdit, isClearButtonEnabled, setClearButtonEnabled)
        LQ_READ("selectedText", QLineEdit, selectedText)
        LQ_READ("hasSelectedText", QLineEdit, hasSelectedText)
        LQ_READ("displayText", QLineEdit, displayText)
        LQ_SIGNAL("textChanged", textChangedText)
        LQ_SIGNAL("textEdited", textEdited)
        LQ_SIGNAL("returnPressed", returnPressed)
        LQ_SIGNAL("editingFinished", editingFinished)
        LQ_SIGNAL("selectionChanged", selectionChanged)
        LQ_SIGNAL("cursorPositionChanged", cursorMoved)
        LQ_METHOD("setText", QLineEdit, setText)
        LQ_METHOD("insert", QLineEdit, insert)
        LQ_METHOD("clear", QLineEdit, clear)
        LQ_METHOD("selectAll", QLineEdit, selectAll)
        LQ_METHOD("undo", QLineEdit, undo)
        LQ_METHOD("redo", QLineEdit, redo)
        .def("setSelection", &setSelection)
        .enum_("EchoMode")[
            value("Normal", QLineEdit::Normal), value("NoEcho", QLineEdit::NoEcho),
            value("Password", QLineEdit::Password), value("PasswordEchoOnEdit", QLineEdit::PasswordEchoOnEdit)
        ];
}

} // namespace

void registerLuaQTextEdit(lua_State* state)
{
    lq::wraps<LAbstractScrollArea>();
    lq::wraps<LLabel>();
    lq::wraps<LTextEdit>();
    lq::wraps<LPlainTextEdit>();
    lq::wraps<LLineEdit>();
    luabind::module(state)[lqabstractscrollarea(), lqlabel(), lqtextedit(), lqplaintextedit(), lqlineedit()];
}
