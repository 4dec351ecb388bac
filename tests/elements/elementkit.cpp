#include "elementkit.h"

#include "text/paramreg.h"
#include "text/qcommonelements.h"
#include "text/qgroupparam.h"
#include "text/singletongroupreg.h"

#include <QDebug>
#include <QTextDocument>

namespace kit {

namespace {

    QRecycleAllocator<LoggingGroup> loggingPool;

    class LoggingGroupReg : public NamedParamGrpReg
    {
    public:
        LoggingGroupReg(const char* keyword, QTextElementType type)
            : NamedParamGrpReg(keyword)
            , m_type(type)
        {
        }

        QTextElementType type() const override { return m_type; }
        QTextElement* create() override
        {
            LoggingGroup* group = loggingPool.alloc();
            group->setGroupType(m_type);
            return setup(group);
        }

    private:
        QTextElementType m_type;
    };

    template <class T> void param(const char* key, QGroupParamID id, QRecycleAllocator<T>& pool)
    {
        QTextElementReg::registerElement(new ParamReg<T>(QLatin1String(key), id, &pool));
    }

    QString lines(const QList<QGroupParam*>& params)
    {
        QStringList list;
        for (const QGroupParam* param : params)
            list.append(param->line() < 0 ? QStringLiteral("-") : QString::number(param->line()));
        return list.join(QLatin1Char(','));
    }

    QString lineOf(const QTextElement* element)
    {
        return element && element->line() >= 0 ? QString::number(element->line()) : QStringLiteral("-");
    }

    QString valueText(const QVariant& value)
    {
        QString text;
        QDebug(&text).nospace().noquote() << value;
        return text;
    }

    QString kindName(const QTextElement* element)
    {
        if (element->type() & QTextElement::headerBit)
            return QStringLiteral("header");
        return element->groupType() == QGroupParam::paramGroupType ? QStringLiteral("param")
                                                                   : QStringLiteral("comment");
    }

} // namespace

void registerElements()
{
    if (!regElems.isEmpty())
        return;
    param("name", idName, strAlloc);
    param("displayname", idDisplayName, strAlloc);
    param("mugenversion", idVersion, verAlloc);
    param("life", idLife, intAlloc);
    param("attack", idAttack, intAlloc);
    param("anim", idAnim, intAlloc);
    param("ctrl", idCtrl, intAlloc);
    param("time", idTime, intAlloc);
    param("type", idType, valAlloc);
    param("movetype", idMoveType, valAlloc);
    param("physics", idPhysics, valAlloc);
    param("velset", idVelset, floatnAlloc);
    param("size", idSize, intnAlloc);
    param("localcoord", idSize + 100, intnAlloc);
    param("xscale", idScale, floatAlloc);
    param("command", idCommand, cmdPAlloc);
    param("sprite", idSprite, fpAlloc);
    param("cns", idCns, fpAlloc);
    param("trigger1", idTrigger, fpAlloc);
    param("triggerall", idTriggerAll, fpAlloc);
    param("value", idValue, fpAlloc);
    QTextElementReg::registerElement(new LoggingGroupReg("Statedef", statedefType));
    QTextElementReg::registerElement(new LoggingGroupReg("State", stateType));
    QTextElementReg::registerElement(new LoggingGroupReg("Begin", actionType));
    QTextElementReg::registerElement(new LoggingGroupReg("Command", commandType));
    QTextElementReg::registerElement(new SingletonGroupReg("Info", nullptr, 0x10));
    QTextElementReg::registerElement(new SingletonGroupReg("Files", nullptr, 0x11));
    QTextElementReg::registerElement(new SingletonGroupReg("Select", "Info", 0x1A));
    QTextElementReg::registerElement(new SingletonGroupReg("Data", nullptr, 0x13));
    QTextElementReg::registerElement(new SingletonGroupReg("Size", nullptr, 0x17));
    initCommonElements();
}

QStringList& groupLog()
{
    static QStringList log;
    return log;
}

void LoggingGroup::paramsRemoved(const QList<QGroupParam*>& params)
{
    groupLog().append(QStringLiteral("removed %1: %2").arg(line()).arg(lines(params)));
}

void LoggingGroup::paramsUpdated(const QList<QGroupParam*>& params)
{
    groupLog().append(QStringLiteral("updated %1: %2").arg(line()).arg(lines(params)));
}

Editor::Editor(bool linkDocument)
    : QElementTextEditor(linkDocument)
{
    registerElements();
    QSet<unsigned long long> enabled;
    for (const QTextElementReg* reg : std::as_const(regElems)) {
        const unsigned long long key = QTextElementMatcher::enableKey(reg->type(), reg->subType());
        if (!enabled.contains(key)) {
            enabled.insert(key);
            enableElement(true, reg->type(), reg->subType());
        }
    }
    connect(this, &QElementTextEditor::updated, this,
        [this](bool structure) { updatedSignals.append(structure); });
}

void Editor::setText(const QString& text)
{
    document()->setPlainText(text);
}

QString Editor::text() const
{
    return document()->toPlainText();
}

void Editor::updateInternal(QList<QTextElementChange>& list)
{
    updateCommonElements(list);
    changes.clear();
    static const char kinds[] = { 'R', 'A', 'U' };
    for (const QTextElementChange& change : std::as_const(list))
        changes.append(QStringLiteral("%1 %2 %3")
                           .arg(QString(QLatin1Char(kinds[change.kind])), lineOf(change.element),
                               kindName(change.element)));
    QElementTextEditor::updateInternal(list);
}

QStringList describe(const QElementTextEditor& editor)
{
    QStringList out;
    for (const QTextElement* element = editor.head(); element; element = element->chainNext()) {
        QString line = QStringLiteral("%1 %2/%3")
                           .arg(element->line())
                           .arg(element->type(), 0, 16)
                           .arg(element->subType(), 0, 16);
        if (element->groupType() == QGroupParam::paramGroupType) {
            auto* param = static_cast<const QGroupParam*>(element);
            line += QStringLiteral(" %1#%2 = %3 in %4")
                        .arg(param->key())
                        .arg(param->id())
                        .arg(valueText(param->getValue()),
                            param->group() ? lineOf(param->group()) : QStringLiteral("-"));
        } else if (element->groupType() == QNameComment::commentGroupType) {
            auto* comment = static_cast<const QNameComment*>(element);
            line += QStringLiteral(" '%1' names %2").arg(comment->text(), lineOf(comment->header()));
        } else if (element->type() & QTextElement::headerBit) {
            auto* header = static_cast<const QGroupHeader*>(element);
            line += QStringLiteral(" named by %1").arg(lineOf(header->nameComment()));
            if (element->type() & QTextElement::paramGroupBit)
                line += QStringLiteral(" holds [%1]")
                            .arg(lines(static_cast<const QParamGroup*>(element)->parameters()));
            if (element->groupType() >= statedefType)
                line += QStringLiteral(" '%1'").arg(static_cast<const QNamedParamGroup*>(element)->name());
        }
        out.append(line);
    }
    return out;
}

QStringList describeFresh(const QString& text)
{
    Editor fresh(false);
    fresh.setText(text);
    fresh.updateAllElements();
    return describe(fresh);
}

QString checkChain(const QElementTextEditor& editor)
{
    const QTextElement* previous = nullptr;
    for (const QTextElement* element = editor.head(); element; element = element->chainNext()) {
        if (element->chainPrevious() != previous)
            return QStringLiteral("back link broken at line %1").arg(element->line());
        if (!element->isValid() || element->editor() != &editor)
            return QStringLiteral("stale element at line %1").arg(element->line());
        if (QElementTextEditor::elementOf(element->block()) != element)
            return QStringLiteral("line %1 does not point back at its element").arg(element->line());
        if (previous && previous->line() >= element->line())
            return QStringLiteral("chain out of order at line %1").arg(element->line());
        previous = element;
    }
    int count = 0;
    for (QTextBlock block = editor.document()->begin(); block.isValid(); block = block.next())
        count += QElementTextEditor::elementOf(block) ? 1 : 0;
    int chained = 0;
    for (const QTextElement* element = editor.head(); element; element = element->chainNext())
        ++chained;
    return count == chained
        ? QString()
        : QStringLiteral("%1 lines with elements, %2 in the chain").arg(count).arg(chained);
}

} // namespace kit
