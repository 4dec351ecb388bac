#include "qcollisionbox.h"

#include "qanimationedit.h"
#include "qanimationtypes.h"
#include "qcollisionboxes.h"

#include <algorithm>
#include <utility>

QString collisionBoxText(QCollisionBoxType type, int index, int left, int top, int right, int bottom)
{
    return QStringLiteral("  Clsn%1[%2] = %3, %4, %5, %6")
        .arg(type & cbtClsn2 ? 2 : 1)
        .arg(index)
        .arg(left)
        .arg(top)
        .arg(right)
        .arg(bottom);
}

QTextElementType QCollisionBox::groupType() const
{
    return animationElement::box;
}

void QCollisionBox::update(const QList<QTextToken>& tokens)
{
    // The line matched "clsnN[i] = l, t, r, b": the values are tokens 5, 7, 9 and 11.
    const auto value = [&tokens](int at) { return at < tokens.size() ? tokens.at(at).text.toInt() : 0; };
    m_left = value(5);
    m_top = value(7);
    m_right = value(9);
    m_bottom = value(11);
    if (m_left > m_right)
        std::swap(m_left, m_right);
    if (m_bottom < m_top)
        std::swap(m_top, m_bottom);
}

void QCollisionBox::clean()
{
    m_parent = nullptr;
    QTextElement::clean();
}

int QCollisionBox::index() const
{
    return m_parent ? int(m_parent->boxes().indexOf(const_cast<QCollisionBox*>(this))) : -1;
}

QRect QCollisionBox::rect() const
{
    return QRect(QPoint(m_left, m_top), QPoint(m_right, m_bottom));
}

void QCollisionBox::setRect(const QRect& rect, bool continueDrag)
{
    const QRect normal = rect.normalized();
    if (normal == this->rect() || !editor())
        return;
    m_left = normal.left();
    m_top = normal.top();
    m_right = normal.right();
    m_bottom = normal.bottom();
    QAnimationEdit edit(editor(), continueDrag);
    indexChanged();
}

void QCollisionBox::indexChanged()
{
    const QString text = collisionBoxText(m_parent ? m_parent->clsnType() : cbtClsn1, std::max(0, index()), m_left,
                                          m_top, m_right, m_bottom);
    if (block().text() != text)
        changeText(text, false);
}
