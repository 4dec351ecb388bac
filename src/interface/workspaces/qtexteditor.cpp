#include "qtexteditor.h"

#include "qtextcompletions.h"
#include "qtexteditorgutter.h"
#include "qtexteditorlayout.h"
#include "text/qtexteditorblockdata.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStringListModel>
#include <QTextBlock>
#include <QToolTip>

namespace {

constexpr int markWidth = 12;
constexpr int foldWidth = 12;

const QTextEditorBlockData* dataOf(const QTextBlock& block)
{
    return static_cast<const QTextEditorBlockData*>(block.userData());
}

/// The worst finding of a line: 0 error, 1 warning, -1 none.
int worstFinding(const QTextBlock& block)
{
    const QTextEditorBlockData* data = dataOf(block);
    if (!data || data->messages.isEmpty())
        return -1;
    for (const QSynMsg& msg : data->messages) {
        if (msg.isError())
            return 0;
    }
    return 1;
}

/// Where the line's comment starts (a ";" outside quotes), or its length.
int commentStart(const QString& text)
{
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('"'))
            quoted = !quoted;
        else if (text.at(i) == QLatin1Char(';') && !quoted)
            return i;
    }
    return int(text.size());
}

/// The column of the bracket matching the one at `column`, or -1. The
/// engine's brackets never span lines, so the line is all there is to search.
int matchingBracket(const QString& text, int column)
{
    static const QString opening = QStringLiteral("([{");
    static const QString closing = QStringLiteral(")]}");
    const QChar c = text.at(column);
    const int open = int(opening.indexOf(c));
    const int close = int(closing.indexOf(c));
    const int step = open >= 0 ? 1 : -1;
    const QChar same = c;
    const QChar other = open >= 0 ? closing.at(open) : opening.at(close);
    const int end = step > 0 ? commentStart(text) : -1;
    int depth = 0;
    for (int i = column; i != end && i >= 0 && i < text.size(); i += step) {
        if (text.at(i) == same)
            ++depth;
        else if (text.at(i) == other && --depth == 0)
            return i;
    }
    return -1;
}

bool isBracket(QChar c)
{
    return QStringLiteral("()[]{}").contains(c);
}

/// The lines a cursor's selection covers; a selection ending at the start of
/// a line leaves that line out.
std::pair<QTextBlock, QTextBlock> selectedLines(const QTextCursor& cursor)
{
    QTextDocument* document = cursor.document();
    const QTextBlock first = document->findBlock(cursor.selectionStart());
    QTextBlock last = document->findBlock(cursor.selectionEnd());
    if (cursor.hasSelection() && last != first && cursor.selectionEnd() == last.position())
        last = last.previous();
    return {first, last};
}

} // namespace

QTextEditor::QTextEditor(QWidget* parent)
    : QPlainTextEdit(parent)
    , m_gutter(new QTextEditorGutter(this))
    , m_completer(new QCompleter(this))
    , m_completions(new QTextCompletions)
    , m_lineColor(255, 250, 220)
    , m_parenColor(255, 0, 0)
    , m_parenRangeColor(232, 242, 255)
{
    m_completer->setModel(new QStringListModel(m_completer));
    m_completer->setWidget(this);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setCompletionMode(QCompleter::PopupCompletion);
    m_completer->popup()->setObjectName(QStringLiteral("completionList"));
    connect(m_completer, qOverload<const QString&>(&QCompleter::activated), this, &QTextEditor::insertCompletion);

    connect(this, &QPlainTextEdit::blockCountChanged, this, &QTextEditor::updateGutterWidth);
    connect(this, &QPlainTextEdit::updateRequest, this, &QTextEditor::updateGutter);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &QTextEditor::updateSelections);
    updateGutterWidth();
}

QTextEditor::~QTextEditor()
{
    delete m_completions;
}

void QTextEditor::setColors(const QColor& line, const QColor& paren, const QColor& parenRange)
{
    m_lineColor = line;
    m_parenColor = paren;
    m_parenRangeColor = parenRange;
    updateSelections();
}

void QTextEditor::setTextDocument(QTextDocument* document)
{
    if (!qobject_cast<QTextEditorLayout*>(document->documentLayout()))
        document->setDocumentLayout(new QTextEditorLayout(document));
    setDocument(document);
    m_completer->popup()->hide();
    updateGutterWidth();
    updateSelections();
}

int QTextEditor::gutterWidth() const
{
    int digits = 1;
    for (int lines = qMax(1, blockCount()); lines >= 10; lines /= 10)
        ++digits;
    return markWidth + fontMetrics().horizontalAdvance(QLatin1Char('9')) * qMax(3, digits) + foldWidth + 4;
}

void QTextEditor::updateGutterWidth()
{
    // A change of the margins lays the whole document out again: only when the width changes.
    const int width = gutterWidth();
    if (viewportMargins().left() != width)
        setViewportMargins(width, 0, 0, 0);
    const QRect area = contentsRect();
    const QRect geometry(area.left(), area.top(), width, area.height());
    if (m_gutter->geometry() != geometry)
        m_gutter->setGeometry(geometry);
}

void QTextEditor::updateGutter(const QRect& rect, int dy)
{
    if (dy)
        m_gutter->scroll(0, dy);
    else
        m_gutter->update(0, rect.y(), m_gutter->width(), rect.height());
}

void QTextEditor::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    updateGutterWidth();
}

void QTextEditor::paintGutter(QPaintEvent* event)
{
    QPainter painter(m_gutter);
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    const int width = m_gutter->width();
    const int current = textCursor().blockNumber();
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    QTextBlock block = firstVisibleBlock();
    int top = qRound(blockBoundingGeometry(block).translated(contentOffset()).top());
    while (block.isValid() && top <= event->rect().bottom()) {
        const int height = qRound(blockBoundingRect(block).height());
        if (block.isVisible() && top + height >= event->rect().top()) {
            const int line = fontMetrics().height();
            const int finding = worstFinding(block);
            if (finding >= 0) {
                painter.save();
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setPen(Qt::NoPen);
                painter.setBrush(finding == 0 ? QColor(220, 40, 40) : QColor(230, 180, 0));
                painter.drawEllipse(QRectF(2, top + (line - 8) / 2.0, 8, 8));
                painter.restore();
            }
            if (block.blockNumber() == current)
                painter.setFont(bold);
            painter.drawText(markWidth, top, width - markWidth - foldWidth - 2, line, Qt::AlignRight,
                             QString::number(block.blockNumber() + 1));
            if (block.blockNumber() == current)
                painter.setFont(plain);
            if (isSectionHeader(block)) {
                const QRectF box(width - foldWidth + 1, top + (line - 9) / 2.0, 9, 9);
                painter.setBrush(Qt::NoBrush);
                painter.drawRect(box);
                painter.drawLine(QPointF(box.left() + 2, box.center().y()), QPointF(box.right() - 2, box.center().y()));
                if (isFolded(block.blockNumber()))
                    painter.drawLine(QPointF(box.center().x(), box.top() + 2), QPointF(box.center().x(), box.bottom() - 2));
            }
        }
        top += block.isVisible() ? height : 0;
        block = block.next();
    }
}

void QTextEditor::gutterClicked(const QPoint& pos)
{
    const QTextBlock block = cursorForPosition(QPoint(0, pos.y())).block();
    if (pos.x() >= m_gutter->width() - foldWidth - 2 && isSectionHeader(block))
        setFolded(block.blockNumber(), !isFolded(block.blockNumber()));
}

bool QTextEditor::isSectionHeader(const QTextBlock& block)
{
    const QString text = block.text();
    for (const QChar c : text) {
        if (!c.isSpace())
            return c == QLatin1Char('[');
    }
    return false;
}

bool QTextEditor::isFolded(int headerLine) const
{
    const QTextBlock header = document()->findBlockByNumber(headerLine);
    const QTextBlock next = header.next();
    return isSectionHeader(header) && next.isValid() && !next.isVisible() && !isSectionHeader(next);
}

void QTextEditor::setFolded(int headerLine, bool folded)
{
    const QTextBlock header = document()->findBlockByNumber(headerLine);
    if (!isSectionHeader(header))
        return;
    QTextBlock block = header.next();
    QTextBlock last = header;
    for (; block.isValid() && !isSectionHeader(block); block = block.next()) {
        block.setVisible(!folded);
        block.setLineCount(folded ? 0 : qMax(1, block.layout()->lineCount()));
        last = block;
    }
    if (last == header)
        return;
    // A cursor inside hidden lines would type where nobody sees it.
    if (folded && textCursor().position() > header.position() + header.length() - 1
        && textCursor().position() <= last.position() + last.length() - 1) {
        QTextCursor cursor(header);
        cursor.movePosition(QTextCursor::EndOfBlock);
        setTextCursor(cursor);
    }
    document()->markContentsDirty(header.position(), last.position() + last.length() - header.position());
    viewport()->update();
    m_gutter->update();
}

void QTextEditor::unfoldAll()
{
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (isSectionHeader(block) && isFolded(block.blockNumber()))
            setFolded(block.blockNumber(), false);
    }
}

void QTextEditor::zoomBy(int steps)
{
    if (m_zoom + steps < -6 || m_zoom + steps > 20)
        return;
    m_zoom += steps;
    steps > 0 ? zoomIn(steps) : zoomOut(-steps);
    updateGutterWidth();
}

void QTextEditor::zoomReset()
{
    zoomBy(-m_zoom);
}

void QTextEditor::wheelEvent(QWheelEvent* event)
{
    if (event->modifiers() & Qt::ControlModifier) {
        zoomBy(event->angleDelta().y() > 0 ? 1 : -1);
        event->accept();
        return;
    }
    QPlainTextEdit::wheelEvent(event);
}

void QTextEditor::updateSelections()
{
    QList<QTextEdit::ExtraSelection> selections;
    QTextEdit::ExtraSelection line;
    line.format.setBackground(m_lineColor);
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    line.cursor = textCursor();
    line.cursor.clearSelection();
    selections.append(line);

    const QTextBlock block = textCursor().block();
    const QString text = block.text();
    int column = textCursor().positionInBlock();
    if (column >= text.size() || !isBracket(text.at(column)))
        --column; // the bracket just before the cursor counts too
    if (column >= 0 && column < text.size() && isBracket(text.at(column)) && column < commentStart(text)) {
        const int match = matchingBracket(text, column);
        if (match >= 0) {
            QTextEdit::ExtraSelection range;
            range.format.setBackground(m_parenRangeColor);
            range.cursor = QTextCursor(block);
            range.cursor.setPosition(block.position() + qMin(column, match));
            range.cursor.setPosition(block.position() + qMax(column, match) + 1, QTextCursor::KeepAnchor);
            selections.append(range);
            for (const int at : {column, match}) {
                QTextEdit::ExtraSelection paren;
                paren.format.setForeground(m_parenColor);
                paren.format.setFontWeight(QFont::Bold);
                paren.cursor = QTextCursor(block);
                paren.cursor.setPosition(block.position() + at);
                paren.cursor.setPosition(block.position() + at + 1, QTextCursor::KeepAnchor);
                selections.append(paren);
            }
        }
    }
    setExtraSelections(selections);
    // Only the lines whose number changes weight are painted again, not the whole margin.
    const QTextBlock previous = document()->findBlockByNumber(m_cursorLine);
    for (const QTextBlock& changed : {previous, block}) {
        if (changed.isValid() && changed.isVisible())
            m_gutter->update(blockBoundingGeometry(changed).translated(contentOffset()).toAlignedRect().adjusted(-m_gutter->width(), 0, m_gutter->width(), 0));
    }
    m_cursorLine = block.blockNumber();
    if (!block.isVisible()) { // the cursor went into a folded section
        for (QTextBlock header = block; header.isValid(); header = header.previous()) {
            if (isSectionHeader(header)) {
                setFolded(header.blockNumber(), false);
                break;
            }
        }
    }
}

bool QTextEditor::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QPlainTextEdit::viewportEvent(event);
    auto* help = static_cast<QHelpEvent*>(event);
    const QTextCursor cursor = cursorForPosition(help->pos());
    const QTextBlock block = cursor.block();
    const int column = cursor.positionInBlock();
    QString tip;
    // The checker's finding under the mouse first; else what the word means.
    if (const QTextEditorBlockData* data = dataOf(block)) {
        for (const QSynMsg& msg : data->messages) {
            if (column >= msg.column && column <= msg.column + qMax(1, msg.length))
                tip = tip.isEmpty() ? msg.text : tip + QLatin1Char('\n') + msg.text;
        }
    }
    if (tip.isEmpty() && m_describer) {
        QTextCursor word = cursor;
        word.select(QTextCursor::WordUnderCursor);
        tip = m_describer(word.selectedText());
    }
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, viewport());
    return true;
}

bool QTextEditor::event(QEvent* event)
{
    // The editor's own keys win over window shortcuts while it has the focus.
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        const Qt::KeyboardModifiers mods = key->modifiers() & ~Qt::KeypadModifier;
        const bool ctrl = mods == Qt::ControlModifier;
        const bool alt = mods == Qt::AltModifier;
        if ((ctrl && (key->key() == Qt::Key_Slash || key->key() == Qt::Key_D || key->key() == Qt::Key_Space))
            || (alt && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down))) {
            event->accept();
            return true;
        }
    }
    return QPlainTextEdit::event(event);
}

bool QTextEditor::handleEditorKey(QKeyEvent* event)
{
    const Qt::KeyboardModifiers mods = event->modifiers() & ~Qt::KeypadModifier;
    const int key = event->key();
    if (mods == Qt::ControlModifier && key == Qt::Key_Slash)
        toggleComment();
    else if (mods == Qt::ControlModifier && key == Qt::Key_D)
        duplicateLine();
    else if (mods == Qt::ControlModifier && key == Qt::Key_Space)
        complete();
    else if (mods == Qt::AltModifier && (key == Qt::Key_Up || key == Qt::Key_Down))
        moveLines(key == Qt::Key_Up);
    else if (key == Qt::Key_Backtab || (key == Qt::Key_Tab && (mods & Qt::ShiftModifier)))
        indentSelection(true);
    else if (key == Qt::Key_Tab && mods == Qt::NoModifier && textCursor().hasSelection()
             && selectedLines(textCursor()).first != selectedLines(textCursor()).second)
        indentSelection(false);
    else
        return false;
    return true;
}

void QTextEditor::keyPressEvent(QKeyEvent* event)
{
    QAbstractItemView* popup = m_completer->popup();
    if (popup->isVisible()) {
        switch (event->key()) {
        case Qt::Key_Enter:
        case Qt::Key_Return:
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            event->ignore(); // the completer takes them
            return;
        default:
            break;
        }
    }
    if (!isReadOnly() && handleEditorKey(event))
        return;
    QPlainTextEdit::keyPressEvent(event);

    const QString typed = event->text();
    const bool wordKey = !typed.isEmpty() && (typed.at(0).isLetterOrNumber() || typed.at(0) == QLatin1Char('_')
                                              || typed.at(0) == QLatin1Char('.'));
    const bool afterAssign = !typed.isEmpty() && (typed.at(0) == QLatin1Char('=') || typed.at(0) == QLatin1Char(' '))
                             && m_completions->wantsListAfter(textCursor());
    // While a word is typed the list opens at its third letter, so that
    // short words and numbers type without it.
    if (!isReadOnly()
        && ((wordKey && (popup->isVisible() || m_completions->typedLength(textCursor()) >= 3)) || afterAssign
            || (popup->isVisible() && event->key() == Qt::Key_Backspace)))
        complete();
    else if (popup->isVisible() && !wordKey)
        popup->hide();
}

void QTextEditor::complete()
{
    QString prefix;
    const QStringList words = m_completions->candidates(textCursor(), &prefix);
    QAbstractItemView* popup = m_completer->popup();
    if (words.isEmpty()) {
        popup->hide();
        return;
    }
    auto* model = static_cast<QStringListModel*>(m_completer->model());
    if (model->stringList() != words)
        model->setStringList(words);
    m_completer->setCompletionPrefix(prefix);
    if (m_completer->completionCount() == 0) {
        popup->hide();
        return;
    }
    // Shown again on each key, so the list shrinks to the words still offered.
    QRect rect = cursorRect();
    rect.setWidth(popup->sizeHintForColumn(0) + popup->verticalScrollBar()->sizeHint().width() + 8);
    rect.setHeight(rect.height() + 3); // the list leaves the line's underline in sight
    m_completer->complete(rect);
    popup->setCurrentIndex(m_completer->completionModel()->index(0, 0));
}

void QTextEditor::insertCompletion(const QString& completion)
{
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, int(m_completer->completionPrefix().size()));
    cursor.insertText(completion);
    setTextCursor(cursor);
}

void QTextEditor::toggleComment()
{
    const auto [first, last] = selectedLines(textCursor());
    bool allCommented = true;
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        const QString text = block.text().trimmed();
        if (!text.isEmpty() && !text.startsWith(QLatin1Char(';')))
            allCommented = false;
        if (block == last)
            break;
    }
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        QTextCursor line(block);
        if (allCommented) {
            const int at = int(block.text().indexOf(QLatin1Char(';')));
            if (at >= 0) {
                line.setPosition(block.position() + at);
                line.deleteChar();
            }
        } else if (!block.text().trimmed().isEmpty()) {
            line.insertText(QStringLiteral(";"));
        }
        if (block == last)
            break;
    }
    cursor.endEditBlock();
}

void QTextEditor::indentSelection(bool outdent)
{
    const auto [first, last] = selectedLines(textCursor());
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        QTextCursor line(block);
        if (!outdent) {
            line.insertText(QStringLiteral("\t"));
        } else {
            const QString text = block.text();
            int remove = 0;
            if (text.startsWith(QLatin1Char('\t')))
                remove = 1;
            else
                while (remove < 4 && remove < text.size() && text.at(remove) == QLatin1Char(' '))
                    ++remove;
            line.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, remove);
            line.removeSelectedText();
        }
        if (block == last)
            break;
    }
    cursor.endEditBlock();
}

void QTextEditor::duplicateLine()
{
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    if (cursor.hasSelection()) {
        const QString text = cursor.selectedText();
        const int end = cursor.selectionEnd();
        cursor.setPosition(end);
        cursor.insertText(text);
        cursor.setPosition(end);
        cursor.setPosition(end + int(text.size()), QTextCursor::KeepAnchor);
    } else {
        const int column = cursor.positionInBlock();
        const QString text = cursor.block().text();
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.insertText(QStringLiteral("\n") + text);
        cursor.setPosition(cursor.block().position() + column);
    }
    cursor.endEditBlock();
    setTextCursor(cursor);
}

void QTextEditor::moveLines(bool up)
{
    const auto [first, last] = selectedLines(textCursor());
    const QTextBlock other = up ? first.previous() : last.next();
    if (!other.isValid())
        return;
    const QTextBlock top = up ? other : first;
    const QTextBlock bottom = up ? last : other;
    QStringList lines;
    for (QTextBlock block = first;; block = block.next()) {
        lines.append(block.text());
        if (block == last)
            break;
    }
    if (up)
        lines.append(other.text());
    else
        lines.prepend(other.text());

    QTextCursor cursor = textCursor();
    const int anchorOffset = cursor.anchor() - first.position();
    const int positionOffset = cursor.position() - first.position();
    const int start = top.position();
    cursor.beginEditBlock();
    cursor.setPosition(start);
    cursor.setPosition(bottom.position() + bottom.length() - 1, QTextCursor::KeepAnchor);
    cursor.insertText(lines.join(QLatin1Char('\n')));
    // The moved lines keep their selection where they now stand.
    const int movedStart = up ? start : start + int(other.text().size()) + 1;
    cursor.setPosition(movedStart + anchorOffset);
    cursor.setPosition(movedStart + positionOffset, QTextCursor::KeepAnchor);
    cursor.endEditBlock();
    setTextCursor(cursor);
}
