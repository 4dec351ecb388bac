#include "qanimation.h"

#include "qanimationedit.h"
#include "qanimationframe.h"
#include "qinterframeelement.h"
#include "text/qelementtexteditor.h"

#include <QTextDocument>

void QAnimation::update(const QList<QTextToken>& tokens)
{
    m_number = tokens.size() > 3 ? tokens.at(3).text.toInt() : 0;
}

void QAnimation::clean()
{
    m_frameIndex = 0;
    m_frames.clear();
    QGroupHeader::clean();
}

QString QAnimation::headerText(int number)
{
    return QStringLiteral("[Begin Action %1]").arg(number);
}

void QAnimation::setNumber(int number)
{
    if (number == m_number || !editor())
        return;
    m_number = number;
    QAnimationEdit edit(editor());
    changeText(headerText(number), false);
}

QString QAnimation::text() const
{
    return select().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n')).trimmed();
}

void QAnimation::setText(const QString& text)
{
    QElementTextEditor* owner = editor();
    if (!owner)
        return;
    QAnimationEdit edit(owner);
    const QTextCursor range = select();
    QElementTextCursor& cursor = owner->cursor();
    cursor.setPosition(range.selectionStart());
    cursor.setPosition(range.selectionEnd(), QTextCursor::KeepAnchor);
    cursor.insertText(text.trimmed() + QLatin1String("\n\n"));
}

int QAnimation::totalTime() const
{
    int total = 0;
    for (const QAnimationFrame* frame : m_frames) {
        if (frame->time() < 0)
            return -1;
        total += frame->time();
    }
    return total;
}

int QAnimation::loopStart() const
{
    for (int i = 0; i < m_frames.size(); ++i) {
        if (m_frames.at(i)->checkInterElem(ifeLoopStart))
            return i;
    }
    return 0;
}

QAnimationFrame* QAnimation::addFrame()
{
    QElementTextEditor* owner = editor();
    if (!owner)
        return nullptr;
    QTextElement* after = m_frames.isEmpty() ? static_cast<QTextElement*>(this) : m_frames.last();
    const int line = after->line() + 1;
    QAnimationEdit edit(owner);
    owner->insertAfter(after, QAnimationFrame::emptyFrame, true);
    QTextElement* added = owner->elementAt(line);
    return added && added->groupType() == animationElement::frame ? static_cast<QAnimationFrame*>(added) : nullptr;
}

QAnimationFrame* QAnimation::insertFrame(unsigned int position)
{
    QAnimationFrame* before = frame(int(position));
    QElementTextEditor* owner = editor();
    if (!before || !owner)
        return addFrame();
    // Above the lines that belong to the frame, so that its boxes stay its own.
    const int line = before->topLine();
    QAnimationEdit edit(owner);
    insertLineAbove(owner, line, QAnimationFrame::emptyFrame);
    QTextElement* added = owner->elementAt(line);
    return added && added->groupType() == animationElement::frame ? static_cast<QAnimationFrame*>(added) : nullptr;
}
