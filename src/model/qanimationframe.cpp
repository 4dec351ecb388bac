#include "qanimationframe.h"

#include "qanimation.h"
#include "qanimationedit.h"
#include "qcollisionbox.h"
#include "qcollisionboxes.h"
#include "qinterframeelement.h"
#include "text/qelementtexteditor.h"
#include "text/qtokenizer.h"

#include <QRegularExpression>
#include <QTextDocument>

#include <cmath>

const QString QAnimationFrame::emptyFrame = QStringLiteral("-1,0, 0,0, 10");

namespace {

constexpr double scaleTolerance = 1e-12;

bool isNumber(const QTextToken& token)
{
    return token.id == tokInteger || token.id == tokFloat;
}

/// Reads the blend field; `token` is known to be an identifier.
void readBlend(const QString& word, QAnimationFrameBlend& blend, QBlendTarget& target)
{
    if (word.startsWith(QLatin1Char('a'), Qt::CaseInsensitive)) {
        blend = afbAdditive;
        // "A" is full strength, any two letters ("A1") half the destination.
        if (word.size() == 2)
            target.destination = 128;
        static const QRegularExpression weights(QStringLiteral("^as(\\d{1,3})d(\\d{1,3})$"),
                                                QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = weights.match(word);
        if (match.hasMatch()) {
            target.source = qint16(match.captured(1).toInt());
            target.destination = qint16(match.captured(2).toInt());
        }
    } else if (word.compare(QLatin1String("s"), Qt::CaseInsensitive) == 0) {
        blend = afbSubtractive;
    }
}

QString blendText(QAnimationFrameBlend blend, QBlendTarget target)
{
    if (blend == afbSubtractive)
        return QStringLiteral("S");
    if (blend != afbAdditive)
        return QString();
    if (target == QBlendTarget())
        return QStringLiteral("A");
    if (target.source == 256 && target.destination == 128)
        return QStringLiteral("A1");
    return QStringLiteral("AS%1D%2").arg(target.source).arg(target.destination);
}

QString numberText(double value, double defaultValue)
{
    return std::fabs(value - defaultValue) <= scaleTolerance ? QString() : QString::number(value, 'g', 6);
}

bool sameScale(double a, double b)
{
    return std::fabs(a - b) <= scaleTolerance;
}

} // namespace

void QAnimationFrame::update(const QList<QTextToken>& tokens)
{
    const auto integer = [&tokens](int at) { return at < tokens.size() ? tokens.at(at).text.toInt() : 0; };
    m_group = qint16(integer(0));
    m_index = qint16(integer(2));
    m_x = integer(4);
    m_y = integer(6);
    m_time = integer(8);
    m_flip = 0;
    m_blend = afbNone;
    m_target = QBlendTarget();

    const int count = int(tokens.size());
    int at = 9;
    if (count >= 11) {
        at = 11;
        if (tokens.at(10).id == tokIdentifier) {
            const QString flip = tokens.at(10).text.toLower();
            m_flip = (flip.contains(QLatin1Char('v')) ? 1u : 0u) | (flip.contains(QLatin1Char('h')) ? 2u : 0u);
            at = 12;
        }
        if (at < count && tokens.at(at).id == tokIdentifier) {
            readBlend(tokens.at(at).text, m_blend, m_target);
            ++at;
        }
    }

    // Scale x, scale y and angle: each from the token behind the next comma;
    // an empty field leaves the default and the next field is still found.
    double* fields[] = { &m_scaleX, &m_scaleY, &m_angle };
    m_scaleX = m_scaleY = 1.0;
    m_angle = 0.0;
    for (double* field : fields) {
        while (at < count && tokens.at(at).id != tokComma)
            ++at;
        if (at >= count)
            break;
        ++at;
        if (at < count && isNumber(tokens.at(at)))
            *field = tokens.at(at++).text.toDouble();
    }
}

void QAnimationFrame::clean()
{
    m_parent = nullptr;
    std::fill(std::begin(m_boxes), std::end(m_boxes), nullptr);
    m_inter.clear();
    QTextElement::clean();
}

int QAnimationFrame::index() const
{
    return m_parent ? int(m_parent->frames().indexOf(const_cast<QAnimationFrame*>(this))) : -1;
}

QString QAnimationFrame::lineText() const
{
    QString text = QStringLiteral("%1,%2, %3,%4, %5").arg(m_group).arg(m_index).arg(m_x).arg(m_y).arg(m_time);
    static const char* const flips[] = { "", "V", "H", "HV" };
    QStringList fields { QLatin1String(flips[m_flip & 3]), blendText(m_blend, m_target),
                         numberText(m_scaleX, 1.0), numberText(m_scaleY, 1.0), numberText(m_angle, 0.0) };
    while (!fields.isEmpty() && fields.last().isEmpty())
        fields.removeLast();
    for (const QString& field : std::as_const(fields))
        text += QLatin1String(", ") + field;
    return text;
}

void QAnimationFrame::writeLine(bool continueDrag)
{
    if (!editor())
        return;
    QAnimationEdit edit(editor(), continueDrag);
    changeText(lineText(), false);
}

void QAnimationFrame::setProperties(QSubItem sprite, QPoint offset, int time, unsigned int flip,
                                    QAnimationFrameBlend blend, QBlendTarget target)
{
    setProperties(sprite, offset, time, flip, blend, target, scaleFactor(), m_angle);
}

void QAnimationFrame::setProperties(QSubItem sprite, QPoint offset, int time, unsigned int flip,
                                    QAnimationFrameBlend blend, QBlendTarget target, QPointF scale, double angle)
{
    if (sprite == this->sprite() && offset == this->offset() && time == m_time && flip == m_flip
        && blend == m_blend && target == m_target && sameScale(scale.x(), m_scaleX)
        && sameScale(scale.y(), m_scaleY) && angle == m_angle)
        return;
    m_group = sprite.group;
    m_index = sprite.index;
    m_x = offset.x();
    m_y = offset.y();
    m_time = time;
    m_flip = flip & 3;
    m_blend = blend;
    m_target = target;
    m_scaleX = scale.x();
    m_scaleY = scale.y();
    m_angle = angle;
    writeLine();
}

void QAnimationFrame::setOffset(QPoint offset, bool continueDrag)
{
    if (offset == this->offset())
        return;
    m_x = offset.x();
    m_y = offset.y();
    writeLine(continueDrag);
}

void QAnimationFrame::setAngle(double angle)
{
    setProperties(sprite(), offset(), m_time, m_flip, m_blend, m_target, scaleFactor(), angle);
}

void QAnimationFrame::setScaleX(double scale)
{
    setScaleFactor(QPointF(scale, m_scaleY));
}

void QAnimationFrame::setScaleY(double scale)
{
    setScaleFactor(QPointF(m_scaleX, scale));
}

void QAnimationFrame::setScaleFactor(QPointF scale)
{
    setProperties(sprite(), offset(), m_time, m_flip, m_blend, m_target, scale, m_angle);
}

QCollisionBoxes* QAnimationFrame::activeBoxes(bool clsn2) const
{
    const int own = clsn2 ? cbtClsn2 : cbtClsn1;
    if (m_boxes[own])
        return m_boxes[own];
    const int fallback = own | cbtClsn1Default;
    if (!m_parent)
        return m_boxes[fallback];
    const QList<QAnimationFrame*>& frames = m_parent->frames();
    for (int i = index(); i >= 0; --i) {
        if (QCollisionBoxes* boxes = frames.at(i)->m_boxes[fallback])
            return boxes;
    }
    return nullptr;
}

QTextElement* QAnimationFrame::insertAbove(QTextElement* element, const QString& text)
{
    const int line = element->line();
    insertLineAbove(editor(), line, text);
    return editor()->elementAt(line);
}

int QAnimationFrame::topLine() const
{
    int top = line();
    for (const QCollisionBoxes* boxes : m_boxes) {
        if (boxes)
            top = std::min(top, boxes->line());
    }
    for (const QInterFrameElement* inter : m_inter)
        top = std::min(top, inter->line());
    return top;
}

QCollisionBox* QAnimationFrame::insertBox(QCollisionBoxType type, const QRect& rect)
{
    if (!editor())
        return nullptr;
    QAnimationEdit edit(editor());
    QCollisionBoxes* boxes = m_boxes[type & 3];
    if (!boxes) {
        // Declarations above a frame stay in the order Clsn1Default, Clsn2Default, Clsn1, Clsn2.
        static const QList<int> anchors[collisionBoxTypeCount] = {
            { cbtClsn2 }, {}, { cbtClsn2Default, cbtClsn1, cbtClsn2 }, { cbtClsn1, cbtClsn2 }
        };
        QTextElement* anchor = this;
        for (int candidate : anchors[type & 3]) {
            if (m_boxes[candidate]) {
                anchor = m_boxes[candidate];
                break;
            }
        }
        QTextElement* declared = insertAbove(anchor, collisionDeclarationText(type, 0));
        if (!declared || declared->groupType() != animationElement::declaration)
            return nullptr;
        boxes = static_cast<QCollisionBoxes*>(declared);
    }
    return boxes->insert(rect);
}

void QAnimationFrame::insertBoxes(const QString& text)
{
    if (!editor())
        return;
    QAnimationEdit edit(editor());
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int at = 0; at < lines.size();) {
        QTokenizer tokenizer(lines.at(at++));
        const QList<QTextToken> head = QTextToken::readLine(tokenizer);
        if (head.isEmpty())
            continue;
        const QString word = head.first().text.toLower();
        if (head.first().id != tokIdentifier || !word.startsWith(QLatin1String("clsn")))
            break;
        int type = word.startsWith(QLatin1String("clsn2")) ? cbtClsn2 : cbtClsn1;
        if (word.endsWith(QLatin1String("default")))
            type |= cbtClsn1Default;
        const int count = head.size() > 2 ? head.at(2).text.toInt() : 0;
        for (int n = 0; n < count && at < lines.size(); ++at) {
            QTokenizer boxTokenizer(lines.at(at));
            const QList<QTextToken> tokens = QTextToken::readLine(boxTokenizer);
            if (tokens.isEmpty())
                continue;
            // The four numbers behind "=": left, top, right, bottom.
            int value[4] = { 0, 0, -1, -1 };
            int taken = 0;
            int from = 0;
            while (from < tokens.size() && tokens.at(from).id != tokAssign)
                ++from;
            for (int i = from + 1; i < tokens.size() && taken < 4; ++i) {
                if (isNumber(tokens.at(i)))
                    value[taken++] = tokens.at(i).text.toInt();
            }
            insertBox(QCollisionBoxType(type), QRect(QPoint(value[0], value[1]), QPoint(value[2], value[3])));
            ++n;
        }
    }
}

QTextCursor QAnimationFrame::selectBoxes() const
{
    if (!editor())
        return QTextCursor();
    QTextCursor cursor(editor()->document());
    const int own = startPosition();
    int start = own;
    int end = own;
    for (const QCollisionBoxes* boxes : m_boxes) {
        if (!boxes)
            continue;
        start = std::min(start, boxes->startPosition());
        const QTextElement* last = boxes->boxes().isEmpty() ? static_cast<const QTextElement*>(boxes)
                                                             : boxes->boxes().last();
        const QTextBlock block = last->block();
        end = std::max(end, block.position() + block.length());
    }
    cursor.setPosition(start);
    cursor.setPosition(std::min(end, editor()->document()->characterCount() - 1), QTextCursor::KeepAnchor);
    return cursor;
}

bool QAnimationFrame::checkInterElem(QInterFrameElementType type) const
{
    return std::any_of(m_inter.cbegin(), m_inter.cend(),
                       [type](const QInterFrameElement* line) { return line->interType() == type; });
}

void QAnimationFrame::setInterElem(QInterFrameElementType type, bool on)
{
    if (!editor() || checkInterElem(type) == on)
        return;
    QAnimationEdit edit(editor());
    if (!on) {
        for (QInterFrameElement* line : std::as_const(m_inter)) {
            if (line->interType() == type) {
                line->remove(true);
                return;
            }
        }
        return;
    }
    insertAbove(this, interFrameElementName(type));
}

void QAnimationFrame::invertAxis(int& x, int& y, int width, int height, unsigned int flags)
{
    if (flags & 2)
        x = width - 1 - x;
    if (flags & 1)
        y = height - 1 - y;
}
