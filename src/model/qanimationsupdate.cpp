// How the animations follow their text: the rows of the list, the links of
// the changed regions, and the counts and indices of the boxes.
#include "qanimations.h"

#include "qanimationframe.h"
#include "qanimationslinker.h"
#include "qcollisionbox.h"
#include "qcollisionboxes.h"
#include "qinterframeelement.h"
#include "syntax/qsyntaxtexteditor.h"
#include "text/qnamecomment.h"

#include <QTextDocument>

namespace {

/// Past this many actions coming or going at once (a load, a big paste) the
/// list is read again whole rather than row by row.
constexpr int rowByRowLimit = 16;

constexpr QTextElementType actionHeader = animationElement::action | QTextElement::headerBit;

bool isAction(const QTextElement* element)
{
    return element && element->groupType() == animationElement::action;
}

} // namespace

void QAnimations::update(QElementTextEditor*, QList<QTextElementChange>& changes)
{
    if (!m_text)
        return;
    updateRows(changes);
    // Undo and redo bring back text that was right when it was written:
    // rewriting it there would cut off the redo steps.
    const bool renumber = m_renumber && !m_text->document()->isRedoAvailable();
    QList<QPair<QCollisionBoxes*, int>> moved;
    const QSet<QTextElement*> regions = QAnimationsLinker::touchedRegions(changes);
    for (QTextElement* region : regions)
        QAnimationsLinker::relink(m_text, region, renumber ? &moved : nullptr);
    if (!moved.isEmpty())
        renumberBoxes(moved);
}

void QAnimations::rebuild()
{
    beginResetModel();
    m_list.clear();
    if (m_text) {
        for (QTextElement* element = m_text->head(); element; element = element->chainNext()) {
            if (element->isValid() && isAction(element))
                m_list.append(static_cast<QAnimation*>(element));
        }
    }
    endResetModel();
}

void QAnimations::updateRows(const QList<QTextElementChange>& changes)
{
    int comings = 0;
    for (const QTextElementChange& change : changes) {
        if (isAction(change.element) && change.kind != QTextElementChange::Updated)
            ++comings;
    }
    if (comings > rowByRowLimit || (comings > 1 && m_list.isEmpty())) {
        rebuild();
        return;
    }
    if (comings > 0) {
        for (const QTextElementChange& change : changes) {
            if (change.kind != QTextElementChange::Removed || !isAction(change.element))
                continue;
            const int row = int(m_list.indexOf(static_cast<QAnimation*>(change.element)));
            if (row < 0)
                continue;
            beginRemoveRows(QModelIndex(), row, row);
            m_list.removeAt(row);
            endRemoveRows();
        }
        for (const QTextElementChange& change : changes) {
            if (change.kind != QTextElementChange::Added || !isAction(change.element))
                continue;
            auto* previous = static_cast<QAnimation*>(change.element->previous(actionHeader));
            const int row = previous ? int(m_list.indexOf(previous)) + 1 : 0;
            if (previous && row == 0) {
                rebuild(); // the one before it isn't listed yet: read the list whole
                return;
            }
            beginInsertRows(QModelIndex(), row, row);
            m_list.insert(row, static_cast<QAnimation*>(change.element));
            endInsertRows();
        }
    }

    // A new number or a new name shows in the row.
    for (const QTextElementChange& change : changes) {
        QTextElement* element = change.element;
        QTextElement* named = nullptr;
        if (isAction(element) && change.kind == QTextElementChange::Updated)
            named = element;
        else if (element->groupType() == QNameComment::commentGroupType)
            named = element->nextValid();
        const int row = isAction(named) ? int(m_list.indexOf(static_cast<QAnimation*>(named))) : -1;
        if (row >= 0)
            emit dataChanged(QAbstractListModel::index(row), QAbstractListModel::index(row));
    }
}

void QAnimations::renumberBoxes(const QList<QPair<QCollisionBoxes*, int>>& declarations)
{
    // Part of the edit that made them necessary: one undo step takes back both.
    QElementTextCursor& cursor = m_text->cursor();
    cursor.joinPreviousEditBlock();
    for (const auto& [boxes, first] : declarations) {
        if (!boxes->isValid())
            continue;
        boxes->countChanged();
        for (int i = first; i < boxes->count(); ++i)
            boxes->at(i)->indexChanged();
    }
    m_text->raiseSuppress();
    cursor.endEditBlock();
    m_text->lowerSuppress();
}

void QAnimations::checkErrors()
{
    QMessages* list = messages();
    list->beginChange();
    list->clear();
    for (QTextElement* element = m_text ? m_text->head() : nullptr; element; element = element->chainNext()) {
        if (!element->isValid())
            continue;
        const int line = element->line();
        switch (element->groupType()) {
        case animationElement::frame:
            if (!static_cast<QAnimationFrame*>(element)->parent())
                list->add(mtWarning, tr("The frame stands in no action."), 0, line);
            break;
        case animationElement::declaration: {
            const auto* boxes = static_cast<QCollisionBoxes*>(element);
            if (!boxes->parent())
                list->add(mtWarning, tr("The boxes are declared for no frame."), 0, line);
            if (boxes->declaredCount() != boxes->count())
                list->add(mtWarning, tr("%1 boxes are declared, %2 follow.").arg(boxes->declaredCount()).arg(boxes->count()),
                          0, line);
            break;
        }
        case animationElement::box:
            if (!static_cast<QCollisionBox*>(element)->parent())
                list->add(mtWarning, tr("The box has no declaration above it."), 0, line);
            break;
        case animationElement::interFrame:
            if (!static_cast<QInterFrameElement*>(element)->parent())
                list->add(mtWarning, tr("The line speaks of no frame."), 0, line);
            break;
        default:
            break;
        }
    }
    list->endChange();
}
