#include "qanimationslinker.h"

#include "qanimation.h"
#include "qanimationframe.h"
#include "qcollisionbox.h"
#include "qcollisionboxes.h"
#include "qinterframeelement.h"
#include "text/qelementtexteditor.h"

#include <algorithm>

namespace {

bool isHeader(const QTextElement* element)
{
    return element->type() & QTextElement::headerBit;
}

/// The header of the region the element stands in (the element itself for a
/// valid header), or null above the first header. Works for removed
/// elements too, which are still linked while their removal is reported.
QTextElement* regionOf(const QTextElement* element)
{
    if (element->isValid() && isHeader(element))
        return const_cast<QTextElement*>(element);
    return element->previous(QTextElement::headerBit);
}

QTextElement* firstValid(QElementTextEditor* editor)
{
    QTextElement* element = editor->head();
    while (element && !element->isValid())
        element = element->chainNext();
    return element;
}

} // namespace

QSet<QTextElement*> QAnimationsLinker::touchedRegions(const QList<QTextElementChange>& changes)
{
    QSet<QTextElement*> regions;
    for (const QTextElementChange& change : changes) {
        QTextElement* element = change.element;
        // An updated line keeps its links, unless it is a declaration or an
        // inter-frame line that changed its type.
        if (change.kind == QTextElementChange::Updated && element->groupType() != animationElement::declaration
            && element->groupType() != animationElement::interFrame)
            continue;
        regions.insert(regionOf(element));
        // A header that comes or goes moves the lines below it between its region and the one above.
        if (isHeader(element))
            regions.insert(element->previous(QTextElement::headerBit));
    }
    return regions;
}

void QAnimationsLinker::relink(QElementTextEditor* editor, QTextElement* header,
                               QList<QPair<QCollisionBoxes*, int>>* renumber)
{
    if (header && !header->isValid())
        return;
    QAnimation* action = header && header->groupType() == animationElement::action
                             ? static_cast<QAnimation*>(header)
                             : nullptr;
    QList<QAnimationFrame*> frames;
    // What stands above the next frame: the nearest declaration of each type, the first inter-frame line of each.
    QCollisionBoxes* pendingBoxes[collisionBoxTypeCount] = {};
    QList<QInterFrameElement*> pendingInter;
    QCollisionBoxes* declaration = nullptr;
    QList<QCollisionBoxes*> declarations;
    QList<QList<QCollisionBox*>> lists;

    QTextElement* element = header ? header->nextValid() : firstValid(editor);
    for (; element && !isHeader(element); element = element->nextValid()) {
        switch (element->groupType()) {
        case animationElement::frame: {
            auto* frame = static_cast<QAnimationFrame*>(element);
            frame->m_parent = action;
            frames.append(frame);
            for (int type = 0; type < collisionBoxTypeCount; ++type) {
                frame->m_boxes[type] = pendingBoxes[type];
                if (pendingBoxes[type])
                    pendingBoxes[type]->m_parent = frame;
                pendingBoxes[type] = nullptr;
            }
            frame->m_inter = pendingInter;
            for (QInterFrameElement* inter : std::as_const(pendingInter))
                inter->m_parent = frame;
            pendingInter.clear();
            break;
        }
        case animationElement::declaration: {
            declaration = static_cast<QCollisionBoxes*>(element);
            declaration->m_parent = nullptr;
            pendingBoxes[declaration->clsnType()] = declaration;
            declarations.append(declaration);
            lists.append(QList<QCollisionBox*>());
            break;
        }
        case animationElement::box: {
            auto* box = static_cast<QCollisionBox*>(element);
            box->m_parent = declaration;
            if (declaration)
                lists.last().append(box);
            break;
        }
        case animationElement::interFrame: {
            auto* inter = static_cast<QInterFrameElement*>(element);
            inter->m_parent = nullptr;
            const bool taken = std::any_of(pendingInter.cbegin(), pendingInter.cend(), [inter](auto* other) {
                return other->interType() == inter->interType();
            });
            if (!taken)
                pendingInter.append(inter);
            break;
        }
        default:
            break;
        }
    }
    // Lines below the last frame speak of no frame.
    for (QInterFrameElement* inter : std::as_const(pendingInter))
        inter->m_parent = nullptr;

    if (action)
        action->m_frames = frames;
    for (int i = 0; i < declarations.size(); ++i) {
        QCollisionBoxes* boxes = declarations.at(i);
        const QList<QCollisionBox*>& list = lists.at(i);
        if (renumber && boxes->m_boxes != list) {
            int first = 0;
            while (first < list.size() && first < boxes->m_boxes.size() && list.at(first) == boxes->m_boxes.at(first))
                ++first;
            renumber->append({ boxes, first });
        }
        boxes->m_boxes = list;
    }
}

void QAnimationsLinker::relinkAll(QElementTextEditor* editor)
{
    relink(editor, nullptr, nullptr);
    for (QTextElement* element = firstValid(editor); element; element = element->nextValid()) {
        if (isHeader(element))
            relink(editor, element, nullptr);
    }
}
