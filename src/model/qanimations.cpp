#include "qanimations.h"

#include "qanimationedit.h"
#include "qanimationframe.h"
#include "qanimationregs.h"
#include "qanimationslinker.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qnamecomment.h"
#include "text/qunknowngroup.h"
#include "util/qprompt.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>

namespace {

/// What an AIR document is made of: naming comments, other groups (which end
/// an action), and the lines of actions.
const QTextElementType linkedTypes[] = { QNameComment::commentGroupType, QUnknownGroup::unknownGroupType,
                                         animationElement::action, animationElement::frame,
                                         animationElement::declaration, animationElement::box,
                                         animationElement::interFrame };

QClipboard* clipboard()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) ? QGuiApplication::clipboard() : nullptr;
}

/// The text of the lines from `start` to `end`, as plain text with line feeds.
QString textBetween(QTextDocument* document, int start, int end)
{
    QTextCursor cursor(document);
    cursor.setPosition(start);
    cursor.setPosition(std::min(end, document->characterCount() - 1), QTextCursor::KeepAnchor);
    return cursor.selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

} // namespace

QAnimations::QAnimations(QProject* project, QSyntaxTextEditor* text, QObject* parent)
    : QOrganizableObject(parent)
    , QProjectFile(project, pftAnimations)
{
    setTextEditor(text);
}

QAnimations::~QAnimations()
{
    setTextEditor(nullptr);
}

void QAnimations::init()
{
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    QTextElementReg::registerElement(new AnimReg);
    QTextElementReg::registerElement(new FrameReg);
    QTextElementReg::registerElement(new InterFrameReg);
    QTextElementReg::registerElement(new CLSNDeclReg);
    QTextElementReg::registerElement(new CLSNReg);
}

void QAnimations::flush()
{
    animAlloc.flush();
    frmAlloc.flush();
    clsnDeclAlloc.flush();
    clsnAlloc.flush();
    ifrmAlloc.flush();
}

void QAnimations::setTextEditor(QSyntaxTextEditor* text)
{
    if (text == m_text)
        return;
    linkTxt(false);
    if (m_text)
        disconnect(m_text, nullptr, this, nullptr);
    m_text = text;
    if (!m_text)
        return;
    // A document deleted before the model leaves it nothing to follow.
    connect(m_text, &QObject::destroyed, this, [this] {
        m_text = nullptr;
        m_linked = false;
        beginResetModel();
        m_list.clear();
        endResetModel();
    });
    linkTxt(true);
}

void QAnimations::linkTxt(bool on)
{
    if (!m_text || on == m_linked)
        return;
    m_linked = on;
    if (on) {
        for (QTextElementType type : linkedTypes)
            m_text->enableElement(true, type, 0);
        connect(m_text, &QElementTextEditor::update, this, &QAnimations::update);
        connect(m_text, &QElementTextEditor::updated, this, &QAnimations::changed);
        // The text is read as it is: a wrong count in it is the file's, not an edit's.
        const bool renumber = m_renumber;
        m_renumber = false;
        m_text->updateAllElements();
        m_renumber = renumber;
        rebuild();
        QAnimationsLinker::relinkAll(m_text);
        return;
    }
    disconnect(m_text, &QElementTextEditor::update, this, &QAnimations::update);
    disconnect(m_text, &QElementTextEditor::updated, this, &QAnimations::changed);
    beginResetModel();
    m_list.clear();
    endResetModel();
    for (QTextElementType type : linkedTypes)
        m_text->enableElement(false, type, 0);
    m_text->updateAllElements();
}

void QAnimations::insertText(unsigned int position, const QString& text)
{
    const QAnimation* before = at(int(position));
    insertLineAbove(m_text, before ? before->firstLine() : m_text->document()->blockCount(), text);
}

QAnimation* QAnimations::add(int number)
{
    if (!m_text)
        return nullptr;
    QAnimationEdit edit(m_text);
    // A blank line between the last action and the new one.
    const QTextBlock last = m_text->document()->lastBlock();
    const bool blank = last.length() <= 1 && (!last.previous().isValid() || last.previous().length() <= 1);
    insertText(unsigned(count()), (blank ? QString() : QStringLiteral("\n")) + QAnimation::headerText(number));
    return m_list.isEmpty() ? nullptr : m_list.last();
}

QAnimation* QAnimations::insert(unsigned int position, int number)
{
    if (!m_text)
        return nullptr;
    if (position >= unsigned(count()))
        return add(number);
    QAnimationEdit edit(m_text);
    insertText(position, QAnimation::headerText(number) + QLatin1Char('\n'));
    return at(int(position));
}

void QAnimations::remove(unsigned int position)
{
    QAnimation* animation = at(int(position));
    if (!animation || !m_text)
        return;
    QAnimationEdit edit(m_text);
    animation->remove(true);
}

void QAnimations::move(unsigned int from, unsigned int to)
{
    QAnimation* animation = at(int(from));
    if (!animation || !m_text || to >= unsigned(count()) || from == to)
        return;
    QTextDocument* document = m_text->document();
    QString text = textBetween(document, animation->startPosition(), animation->endPosition());
    if (!text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    text.chop(1);
    const unsigned int last = unsigned(count()) - 1;
    QAnimationEdit edit(m_text);
    if (to < from) {
        animation->remove(true);
        insertText(to, text);
    } else {
        // Behind the last action, or before the one at `to`: both lie below, so the cut comes after.
        insertText(to >= last ? unsigned(count()) : to, text);
        animation->remove(true);
    }
}

QAnimation* QAnimations::duplicate(unsigned int position, int number)
{
    QAnimation* animation = at(int(position));
    if (!animation || !m_text)
        return nullptr;
    QString text = textBetween(m_text->document(), animation->startPosition(), animation->endPosition());
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    if (number != -1) {
        const QString header = QStringLiteral("[begin action %1]").arg(animation->number());
        text.replace(header, QAnimation::headerText(number), Qt::CaseInsensitive);
    }
    QAnimationEdit edit(m_text);
    insertText(position + 1, text);
    return at(int(position) + 1);
}

void QAnimations::copy(unsigned int position)
{
    const QAnimation* animation = at(int(position));
    if (QClipboard* board = clipboard(); animation && board)
        board->setText(animation->text());
}

bool QAnimations::paste(unsigned int position)
{
    QClipboard* board = clipboard();
    const QString text = board ? board->text() : QString();
    if (text.isEmpty() || !m_text)
        return false;
    QAnimationEdit edit(m_text);
    QAnimation* animation = insert(m_list.isEmpty() ? 0 : std::min(position, unsigned(count())), 0);
    if (animation)
        animation->setText(text);
    return animation != nullptr;
}

int QAnimations::find(unsigned int from, int number) const
{
    for (int i = int(from); i < count(); ++i) {
        if (m_list.at(i)->number() == number)
            return i;
    }
    return -1;
}

int QAnimations::find(unsigned int from, const QString& text) const
{
    for (int i = int(from); i < count(); ++i) {
        const QAnimation* animation = m_list.at(i);
        if (QString::number(animation->number()) == text || animation->nameText() == text)
            return i;
    }
    return -1;
}

void QAnimations::autoOrganize()
{
    if (!m_text)
        return;
    QAnimationEdit edit(m_text);
    for (int i = 1; i < count(); ++i) {
        for (int j = 0; j < i; ++j) {
            if (m_list.at(j)->number() > m_list.at(i)->number()) {
                move(unsigned(i), unsigned(j));
                break;
            }
        }
    }
}

void QAnimations::beginChange()
{
    if (m_text)
        m_text->beginChange();
}

void QAnimations::endChange()
{
    if (m_text)
        m_text->endChange();
}

bool QAnimations::fromFile(const QString& fileName, unsigned int codec, bool keepName)
{
    if (!m_text)
        return false;
    m_text->clear();
    const bool renumber = m_renumber;
    m_renumber = false;
    const bool read = m_text->fromFile(fileName, codec, keepName);
    m_renumber = renumber;
    return read;
}

bool QAnimations::toFile(const QString& fileName, bool utf8, bool keepName)
{
    return m_text && m_text->toFile(fileName, utf8, keepName);
}

bool QAnimations::canSave(unsigned int) const
{
    if (count() > 0)
        return true;
    prompt().warning(tr("Save AIR"), tr("You can't save an empty AIR because M.U.G.E.N. will not open it."));
    return false;
}

bool QAnimations::canDiscard()
{
    if (!isModified())
        return true;
    return prompt().question(tr("Discard changes"), tr("Do you really want to discard the changes made in the animations?"),
                             QPrompt::Yes | QPrompt::No, QPrompt::No)
           == QPrompt::Yes;
}

bool QAnimations::isModified() const
{
    return m_text && m_text->isModified();
}

bool QAnimations::isEmpty() const
{
    return m_list.isEmpty();
}

int QAnimations::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant QAnimations::data(const QModelIndex& index, int role) const
{
    const QAnimation* animation = index.isValid() ? at(index.row()) : nullptr;
    if (!animation || role != Qt::DisplayRole)
        return QVariant();
    const QString name = animation->nameText();
    return name.isEmpty() ? QString::number(animation->number())
                          : QStringLiteral("%1 - %2").arg(animation->number()).arg(name);
}
