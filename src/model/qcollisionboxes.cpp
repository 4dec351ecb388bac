#include "qcollisionboxes.h"

#include "qanimationedit.h"
#include "qcollisionbox.h"
#include "text/qelementtexteditor.h"

QString collisionDeclarationText(QCollisionBoxType type, int count)
{
    static const char* const clsnStr[collisionBoxTypeCount]
        = { "Clsn1: %1", "Clsn2: %1", "Clsn1Default: %1", "Clsn2Default: %1" };
    return QString::fromLatin1(clsnStr[type & 3]).arg(count);
}

void QCollisionBoxes::update(const QList<QTextToken>& tokens)
{
    // "clsn2" as a prefix says Clsn2, "default" as a suffix says default.
    const QString word = tokens.isEmpty() ? QString() : tokens.first().text;
    int type = word.startsWith(QLatin1String("clsn2"), Qt::CaseInsensitive) ? cbtClsn2 : cbtClsn1;
    if (word.endsWith(QLatin1String("default"), Qt::CaseInsensitive))
        type |= cbtClsn1Default;
    m_type = QCollisionBoxType(type);
    m_declaredCount = tokens.size() > 2 ? tokens.at(2).text.toInt() : 0;
}

void QCollisionBoxes::clean()
{
    m_parent = nullptr;
    m_boxes.clear();
    QTextElement::clean();
}

QCollisionBox* QCollisionBoxes::insert(const QRect& rect)
{
    QElementTextEditor* owner = editor();
    if (!owner)
        return nullptr;
    const QRect box = rect.normalized();
    QTextElement* after = m_boxes.isEmpty() ? static_cast<QTextElement*>(this) : m_boxes.last();
    const int line = after->line() + 1;
    QAnimationEdit edit(owner);
    owner->insertAfter(
        after, collisionBoxText(m_type, count(), box.left(), box.top(), box.right(), box.bottom()), true);
    QTextElement* inserted = owner->elementAt(line);
    return inserted && inserted->groupType() == animationElement::box ? static_cast<QCollisionBox*>(inserted)
                                                                         : nullptr;
}

void QCollisionBoxes::clear()
{
    QElementTextEditor* owner = editor();
    if (!owner)
        return;
    QAnimationEdit edit(owner);
    const QList<QCollisionBox*> boxes = m_boxes;
    for (auto it = boxes.crbegin(); it != boxes.crend(); ++it)
        (*it)->remove(true);
    remove(true);
}

void QCollisionBoxes::countChanged()
{
    m_declaredCount = count();
    const QString text = collisionDeclarationText(m_type, count());
    if (block().text() != text)
        changeText(text, false);
}
