#include "qcommonelements.h"

#include "qgroupheader.h"
#include "qgroupparam.h"
#include "qparamgroup.h"

#include <QHash>
#include <QSet>

namespace {

bool isHeader(const QTextElement* element)
{
    return element && (element->type() & QTextElement::headerBit);
}

bool isComment(const QTextElement* element)
{
    return element && element->groupType() == QNameComment::commentGroupType;
}

bool isParam(const QTextElement* element)
{
    return element && element->groupType() == QGroupParam::paramGroupType;
}

QParamGroup* asParamGroup(QTextElement* element)
{
    return element && (element->type() & QTextElement::paramGroupBit) ? static_cast<QParamGroup*>(element)
                                                                      : nullptr;
}

/// A header is named by the comment right before it in the valid chain.
void relinkNameComments(const QList<QTextElementChange>& changes)
{
    QList<QTextElement*> sites;
    for (const QTextElementChange& change : changes) {
        QTextElement* element = change.element;
        if (change.kind == QTextElementChange::Removed) {
            if (isHeader(element))
                static_cast<QGroupHeader*>(element)->setNameComment(nullptr);
            else if (isComment(element) && static_cast<QNameComment*>(element)->header())
                static_cast<QNameComment*>(element)->header()->setNameComment(nullptr);
        } else {
            sites.append(element);
        }
        // A run of removed lines has the same valid neighbours throughout:
        // only its ends look for them, so a mass removal stays linear.
        const QTextElement* before = element->chainPrevious();
        if (element->isValid() || !before || before->isValid())
            sites.append(element->previousValid());
        const QTextElement* after = element->chainNext();
        if (element->isValid() || !after || after->isValid())
            sites.append(element->nextValid());
    }
    for (QTextElement* site : std::as_const(sites)) {
        if (isHeader(site)) {
            QTextElement* before = site->previousValid();
            static_cast<QGroupHeader*>(site)->setNameComment(
                isComment(before) ? static_cast<QNameComment*>(before) : nullptr);
        } else if (isComment(site)) {
            auto* comment = static_cast<QNameComment*>(site);
            QTextElement* after = site->nextValid();
            if (isHeader(after))
                static_cast<QGroupHeader*>(after)->setNameComment(comment);
            else if (comment->header())
                comment->header()->setNameComment(nullptr);
        }
    }
}

/// What one change of membership means to the groups' owners.
class MembershipReport
{
public:
    void affect(QParamGroup* group)
    {
        if (group && !m_old.contains(group)) {
            m_order.append(group);
            m_old.insert(group, group->parameters());
        }
    }

    void noteAdded(QTextElement* element) { m_added.insert(element); }

    void noteUpdated(QGroupParam* param)
    {
        if (param->group() && param->group()->reportsUpdates())
            m_valueUpdates.append(param);
    }

    void rebuildAndReport()
    {
        QHash<QParamGroup*, QList<QGroupParam*>> now;
        for (QParamGroup* group : std::as_const(m_order))
            now.insert(group, group->isValid() ? group->collectParams() : QList<QGroupParam*>());
        for (QParamGroup* group : std::as_const(m_order))
            group->setParams(now.value(group));
        for (QParamGroup* group : std::as_const(m_order))
            compare(group, m_old.value(group), now.value(group));
        for (QGroupParam* param : std::as_const(m_valueUpdates))
            if (param->group())
                listUpdated(param->group(), param);
        for (QParamGroup* group : std::as_const(m_order))
            if (!m_removed.value(group).isEmpty())
                group->paramsRemoved(m_removed.value(group));
        for (QParamGroup* group : std::as_const(m_updatedOrder))
            group->paramsUpdated(m_updated.value(group));
    }

private:
    void compare(QParamGroup* group, const QList<QGroupParam*>& before, const QList<QGroupParam*>& after)
    {
        if (m_added.contains(group))
            return;
        QHash<QGroupParamID, QGroupParam*> afterById;
        for (QGroupParam* param : after)
            afterById.insert(param->id(), param);
        QSet<QGroupParamID> replaced;
        for (QGroupParam* param : before) {
            if (after.contains(param))
                continue;
            if (QGroupParam* successor = afterById.value(param->id())) {
                replaced.insert(param->id());
                listUpdated(group, successor);
            } else {
                m_removed[group].append(param);
            }
        }
        for (QGroupParam* param : after) {
            if (before.contains(param) || replaced.contains(param->id()))
                continue;
            // A new line joins quietly while the group writes its own value.
            if (!m_added.contains(param) || group->reportsUpdates())
                listUpdated(group, param);
        }
    }

    void listUpdated(QParamGroup* group, QGroupParam* param)
    {
        QList<QGroupParam*>& list = m_updated[group];
        if (list.isEmpty())
            m_updatedOrder.append(group);
        if (!list.contains(param))
            list.append(param);
    }

    QList<QParamGroup*> m_order;
    QHash<QParamGroup*, QList<QGroupParam*>> m_old;
    QSet<QTextElement*> m_added;
    QList<QGroupParam*> m_valueUpdates;
    QHash<QParamGroup*, QList<QGroupParam*>> m_removed;
    QHash<QParamGroup*, QList<QGroupParam*>> m_updated;
    QList<QParamGroup*> m_updatedOrder;
};

/// Finds the header that governs a line. Lines pasted in bulk come in a row,
/// so each walk back stops at the parameter found before it; lines removed in
/// bulk lie in a row too, and the walk remembers what it found behind them.
class HeaderFinder
{
public:
    QParamGroup* enclosingGroup(QTextElement* element)
    {
        QTextElement* header = nullptr;
        QList<const QTextElement*> removed;
        for (QTextElement* before = element->chainPrevious(); before; before = before->chainPrevious()) {
            const auto known = m_headers.constFind(before);
            if (known != m_headers.cend()) {
                header = known.value();
                break;
            }
            if (!before->isValid()) {
                removed.append(before);
                continue;
            }
            if (isHeader(before)) {
                header = before;
                break;
            }
        }
        for (const QTextElement* passed : std::as_const(removed))
            m_headers.insert(passed, header);
        if (isParam(element))
            m_headers.insert(element, header);
        return asParamGroup(header);
    }

private:
    QHash<const QTextElement*, QTextElement*> m_headers;
};

} // namespace

void updateCommonElements(QList<QTextElementChange>& changes)
{
    relinkNameComments(changes);

    MembershipReport report;
    HeaderFinder finder;
    for (const QTextElementChange& change : std::as_const(changes)) {
        QTextElement* element = change.element;
        if (change.kind == QTextElementChange::Added)
            report.noteAdded(element);
        if (isParam(element)) {
            auto* param = static_cast<QGroupParam*>(element);
            if (change.kind == QTextElementChange::Removed)
                report.affect(param->group());
            else if (change.kind == QTextElementChange::Added)
                report.affect(finder.enclosingGroup(param));
            else
                report.noteUpdated(param);
        } else if (isHeader(element) && change.kind != QTextElementChange::Updated) {
            report.affect(asParamGroup(element));
            report.affect(finder.enclosingGroup(element));
        }
    }
    report.rebuildAndReport();
}
